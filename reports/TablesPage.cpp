#include "reports/TablesPage.h"

#include <QPainter>
#include <algorithm>

#include "controls/Hatch.h"
#include "controls/Icons.h"
#include "controls/Marks.h"

namespace marvello {

namespace {

constexpr std::size_t tablesAcross = 2;
constexpr double headRows = 2;  // heading and captions
constexpr double rowsBetween = 1.6;
constexpr double legendRows = 2;

}  // namespace

// All tables of a section are alike: two next to each other, with rows set closer where they need it.
void TablesPage::paint(const ReportTables& section) {
    const double between = 8 * mm;
    const double width = (right() - side - between) / tablesAcross;
    const auto down = static_cast<double>((section.tables.size() + tablesAcross - 1) / tablesAcross);
    const double rows = section.tables.empty() ? 0 : static_cast<double>(section.tables.front().rows.size());
    const double rowsOfAll = down * (headRows + rows + rowsBetween) + legendRows;
    const double step = std::min(lineStep, (footTop() - bodyTop) / rowsOfAll);
    for (std::size_t i = 0; i < section.tables.size(); ++i) {
        const double left = side + static_cast<double>(i % tablesAcross) * (width + between);
        const auto above = static_cast<double>(i / tablesAcross);
        paintTable(section.tables[i],
                   {left, bodyTop + above * (headRows + rows + rowsBetween) * step, width, step});
    }
    paintLegend(section, bodyTop + down * (headRows + rows + rowsBetween) * step);
}

void TablesPage::paintTable(const ReportTable& table, const Grid& grid) {
    const double captionWidth = 15 * mm;
    const double cellWidth =
        (grid.width - captionWidth) / std::max(1.0, static_cast<double>(table.columns.size()));
    paintHeads(table, grid, captionWidth, cellWidth);
    const double size = 7.5 * point * grid.step / lineStep;
    const double cellSize = size * std::min(1.0, fitting(table, cellWidth, size));
    for (int row = 0; row < table.rows.size(); ++row) {
        const double top = grid.top + (headRows + row) * grid.step;
        text({grid.left, top, captionWidth - 1 * mm, grid.step}, Qt::AlignLeft | Qt::AlignVCenter, size,
             table.rows.at(row), quiet);
        rule(top + grid.step - hairline, hairline, faint, grid.left, grid.left + grid.width);
        for (int column = 0; column < table.columns.size(); ++column) {
            const QRectF box(grid.left + captionWidth + column * cellWidth, top, cellWidth, grid.step);
            paintCell(table.cells.at(static_cast<std::size_t>(row * table.columns.size() + column)), box,
                      cellSize, row == table.currentRow && column == table.currentColumn);
        }
    }
}

void TablesPage::paintHeads(const ReportTable& table, const Grid& grid, double captionWidth,
                            double cellWidth) {
    const double size = 7.5 * point * grid.step / lineStep;
    text({grid.left, grid.top, grid.width, grid.step}, Qt::AlignLeft | Qt::AlignVCenter,
         8.5 * point * grid.step / lineStep, table.heading, headingBlue, QFont::Medium);
    const double top = grid.top + grid.step;
    text({grid.left, top, captionWidth - 1 * mm, grid.step}, Qt::AlignLeft | Qt::AlignVCenter, size,
         table.corner, quiet);
    for (int column = 0; column < table.columns.size(); ++column)
        text({grid.left + captionWidth + column * cellWidth, top, cellWidth - 0.8 * mm, grid.step},
             Qt::AlignRight | Qt::AlignVCenter, size, table.columns.at(column), quiet);
    rule(top + grid.step - hairline, hairline, frame, grid.left, grid.left + grid.width);
}

double TablesPage::fitting(const ReportTable& table, double cellWidth, double size) {
    const QFontMetricsF metrics(letters(size));
    double least = 1;
    for (const ReportTable::Cell& cell : table.cells)
        least = std::min(least, (cellWidth - roomBefore(cell) - roomBehind) /
                                    std::max(1.0, metrics.horizontalAdvance(cell.text)));
    return least;
}

void TablesPage::paintCell(const ReportTable::Cell& cell, const QRectF& box, double size,
                           bool isOperatingPoint) {
    if (cell.text.isEmpty()) {
        painter_.save();
        painter_.setClipRect(box);
        paintHatch(painter_, box, frame, 2 * mm, 0.12 * mm);
        painter_.restore();
    }
    if (cell.hasWarnings) {
        const double mark = std::min(1.5 * mm, box.width() / 5);
        paintMarkOnPaper(painter_, {box.left() + 0.3 * mm, box.center().y() - mark / 2, mark, mark},
                         mark::attention);
    }
    text(box.adjusted(roomBefore(cell), 0, -roomBehind, 0), Qt::AlignRight | Qt::AlignVCenter, size,
         cell.text, ink);
    if (!isOperatingPoint) return;
    painter_.setBrush(Qt::NoBrush);
    painter_.setPen(QPen(headingBlue, 0.3 * mm));
    painter_.drawRect(box.adjusted(0.15 * mm, 0.15 * mm, -0.15 * mm, -0.15 * mm));
}

void TablesPage::paintLegend(const ReportTables& section, double top) {
    const double height = 2.6 * mm;
    double left = side;
    const auto add = [&](const QString& words, const auto& paintSample) {
        paintSample(QRectF(left, top, 5 * mm, height));
        const double width = QFontMetricsF(letters(7 * point)).horizontalAdvance(words);
        text({left + 6.5 * mm, top - 0.7 * mm, width + 1 * mm, height + 1.4 * mm},
             Qt::AlignLeft | Qt::AlignVCenter, 7 * point, words, quiet);
        left += 6.5 * mm + width + 7 * mm;
    };
    add(section.ofPoint, [this](const QRectF& box) {
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(headingBlue, 0.3 * mm));
        painter_.drawRect(box);
    });
    add(section.ofWarnings, [this, height](const QRectF& box) {
        paintMarkOnPaper(painter_, {box.center().x() - height / 2, box.top(), height, height},
                         mark::attention);
    });
    add(section.ofNone, [this](const QRectF& box) {
        painter_.save();
        painter_.setClipRect(box);
        paintHatch(painter_, box, frame, 1.2 * mm, 0.12 * mm);
        painter_.restore();
    });
}

}  // namespace marvello
