#pragma once

#include <QList>
#include <QStringList>
#include <functional>
#include <vector>

#include "results/Drawing.h"

class QPagedPaintDevice;
class QTextDocument;
class QWidget;

namespace marvello {

/// Charts next to each other, on white.
struct PrintedCharts {
    QString heading;
    std::vector<Drawing> charts;
};

/// A list on paper.
struct PrintedList {
    static constexpr double width = 960;  ///< of the paper between its margins, in logical pixels
    static constexpr double height = 620;

    QString title;
    QStringList conditions;  ///< below the title
    QStringList columns;
    QList<QStringList> rows;              ///< a row of nothing but its first text is a heading
    QList<int> wordColumns;               ///< columns of words; the others hold numbers
    std::vector<PrintedCharts> charts{};  ///< on a sheet of their own behind the rows
};

/// Returns the rows of a list as a table in HTML, with the name of a column above its unit.
QString tableHtml(const PrintedList& list);

/// Writes charts at the end of a document, on a sheet of their own.
void addCharts(QTextDocument& document, const std::vector<PrintedCharts>& lines);

/// Paints a list, with margins of its own, on paper without any.
void paintList(const PrintedList& list, QPagedPaintDevice& paper);

/// Prints a list on A4 sheets across, on a printer that the user chooses, or shows it in a window first.
void printList(const PrintedList& list, bool preview, QWidget* window);

/// Prints a document on the same sheets and in the same way.
void printDocument(const QString& title, const std::function<void(QTextDocument&)>& fill, bool preview,
                   QWidget* window);

}  // namespace marvello
