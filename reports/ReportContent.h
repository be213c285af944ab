#pragma once

#include <QDateTime>
#include <QImage>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

#include "controls/EnvelopeDrawing.h"
#include "results/CycleTexts.h"
#include "results/Drawing.h"
#include "results/ReportLines.h"

namespace marvello {

/// A table over two axes on paper.
struct ReportTable {
    struct Cell {
        QString text;  ///< empty: no value
        bool hasWarnings = false;
    };
    QString heading;
    QString corner;  ///< what the rows and the columns are
    QStringList columns;
    QStringList rows;
    std::vector<Cell> cells;  ///< row by row
    int currentColumn = 0;    ///< of the operating point
    int currentRow = 0;
};

/// Tables over the operating points, two next to each other.
struct ReportTables {
    std::vector<ReportTable> tables;
    QString ofPoint;     ///< what the framed cell is
    QString ofWarnings;  ///< what a marked cell is
    QString ofNone;      ///< what a hatched cell is
};

/// A quantity over the application limit.
struct ReportMap {
    QString heading;           ///< the quantity with its unit
    EnvelopeDrawing envelope;  ///< with its map
};

/// A cycle: its diagram, the table of its states and its figures.
struct ReportCycle {
    QString heading;
    Drawing diagram;                      ///< on white
    QStringList columns;                  ///< of the table; the first one has the names of the states
    std::vector<QStringList> states;      ///< by column
    std::vector<CaptionedValue> figures;  ///< two that belong together follow each other
};

/// A compressor over its load: a chart, and below it the tables of its states and of shares of its capacity.
struct ReportPartLoad {
    struct Column {
        QString name;
        QString unit;  ///< empty for a number without one
    };
    struct Row {
        QString label;
        QString mark;  ///< as controls/Marks.h names it
        QStringList values;
        QString sentence;  ///< how the compressor runs, or what its messages say; may be long
    };
    struct Table {
        QString title;
        std::vector<Row> rows;
    };
    QString heading;  ///< what was assumed of the condensing temperature and of intermittent running
    QString full;     ///< what the full capacity is
    Drawing chart;    ///< on white
    std::vector<Column> columns;
    std::vector<Table> tables;
};

/// A part of the report behind its first page, on a page of its own.
struct ReportSection {
    QString name;   ///< in the contents of a file
    QString title;  ///< what the page is, with the conditions
    std::variant<ReportTables, ReportMap, ReportCycle, ReportPartLoad> content;
};

/// What the report says of one compressor, with all its texts in the language of the user.
struct ReportContent {
    QString title;    ///< what the page is, in a few words
    QString model;    ///< Serie-Model
    QString version;  ///< of the program
    QString address;  ///< of the maker
    QString warning;  ///< both are shown with warnings alone
    QString warning2;
    QStringList pages;  ///< "Page 1 of 1", one for each page
    QString date;
    QDateTime created;  ///< of a file
    QString language;   ///< of the texts, such as "de-DE"
    QImage photo;       ///< null leaves its place empty
    EnvelopeDrawing envelope;
    QString margin;  ///< how far the point is from its limit, below the envelope
    std::vector<ReportLine> lines;
    bool hasWarnings = false;
    bool showsEnvelope = true;
    std::vector<ReportSection> sections;  ///< behind the first page
};

}  // namespace marvello
