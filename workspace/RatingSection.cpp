#include "workspace/RatingSection.h"

#include <QLocale>

#include "catalogue/PreparedCatalogue.h"
#include "controls/NumberText.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "results/FigureTexts.h"
#include "results/RatingSheet.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr std::size_t maxColumns = 11;  // of a table over half of the paper

QString text(const char* key) { return dictionaryText(QLatin1String(key)); }

/// In steps of 5 K or 10 degrees Fahrenheit, wider ones where the limit is wide.
std::optional<RatingSheet> sheetOf(const PreparedCompressor& compressor,
                                   const clsProjectConditions& conditions, UnitSystem units) {
    const double step = units == UnitSystem::imperial ? 10 : 5;
    RatingStyle style{.units = units, .acrossStep = step, .downStep = step};
    auto sheet = ratingSheet(compressor, conditions, style);
    if (!sheet || sheet->columns.size() <= maxColumns) return sheet;
    style.acrossStep = 2 * step;
    return ratingSheet(compressor, conditions, style);
}

ReportTable tableOf(Figure figure, const RatingSheet& sheet, const std::vector<Performance>& cells) {
    const UnitSystem units = sheet.style.units;
    const NumberMarks marks = marksOf(QLocale());
    const QString unit = fromCore(unitOf(figure, units));
    ReportTable table;
    table.heading = dictionaryText(fromCore(textOf(figure).description)) +
                    (unit.isEmpty() ? QString() : QStringLiteral(", ") + unit);
    table.corner = text("frmselection.rating.corner");
    for (const double value : sheet.columns) table.columns += fromCore(axisText(value, marks));
    for (const double value : sheet.rows) table.rows += fromCore(axisText(value, marks));
    for (const Performance& cell : cells) {
        const ShownValue shown = shownFigure(figure, valueOf(cell, figure), units, marks);
        table.cells.push_back(
            {cell.hasValues() ? fromCore(shown.text) : QString(), cell.state == PointState::warning});
    }
    table.currentColumn = static_cast<int>(sheet.currentColumn);
    table.currentRow = static_cast<int>(sheet.currentRow);
    return table;
}

}  // namespace

std::optional<ReportTables> ratingSection(const clsCompressor& compressor,
                                          const clsProjectConditions& conditions, UnitSystem units) {
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const prepared =
        catalogue->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    if (prepared == nullptr) return std::nullopt;
    const auto sheet = sheetOf(*prepared, conditions, units);
    if (!sheet) return std::nullopt;
    Calculator calculator;
    const CollectedBoxes said;  // what a point failed at leaves its cell empty
    const auto cells = rate(sheet->plan, loopWith(calculator));
    ReportTables section{.tables = {},
                         .ofPoint = text("frmselection.rating.legend.point"),
                         .ofWarnings = text("frmselection.rating.legend.warning"),
                         .ofNone = text("frmselection.rating.legend.none")};
    for (const Figure figure : figures()) section.tables.push_back(tableOf(figure, *sheet, *cells));
    return section;
}

}  // namespace marvello
