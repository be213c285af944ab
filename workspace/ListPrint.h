#pragma once

#include <QList>
#include <QStringList>
#include <vector>

#include "results/Drawing.h"

class QPagedPaintDevice;
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

/// Paints a list, with margins of its own, on paper without any.
void paintList(const PrintedList& list, QPagedPaintDevice& paper);

/// Prints a list on A4 sheets across, on a printer that the user chooses, or shows it in a window first.
void printList(const PrintedList& list, bool preview, QWidget* window);

}  // namespace marvello
