#pragma once

#include "reports/PaperPage.h"

namespace marvello {

/// A page of the report behind the first one, with the tables of a section.
class SectionPage : public PaperPage {
  public:
    using PaperPage::PaperPage;

    /// Pages count from 1, the first section is on page 2.
    void paint(int page);

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
    void paintLegend(const ReportSection& section, double top);
};

}  // namespace marvello
