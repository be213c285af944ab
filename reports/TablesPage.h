#pragma once

#include "reports/PaperPage.h"

namespace marvello {

/// A page of the report with tables over the operating points.
class TablesPage : public PaperPage {
  public:
    using PaperPage::PaperPage;

    /// Paints what is between head and foot.
    void paint(const ReportTables& section);

  private:
    struct Grid {
        double left, top, width, step;
    };
    void paintTable(const ReportTable& table, const Grid& grid);
    void paintHeads(const ReportTable& table, const Grid& grid, double captionWidth, double cellWidth);
    void paintCell(const ReportTable::Cell& cell, const QRectF& box, double size, bool isOperatingPoint);
    /// The factor on a size of letters with which all cells fit; they have one size.
    static double fitting(const ReportTable& table, double cellWidth, double size);
    static double roomBefore(const ReportTable::Cell& cell) { return (cell.hasWarnings ? 1.9 : 0.3) * mm; }
    static constexpr double roomBehind = 0.8 * mm;
    void paintLegend(const ReportTables& section, double top);
};

}  // namespace marvello
