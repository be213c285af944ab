#include "workspace/PartLoadSection.h"

#include <QLocale>

#include "catalogue/PreparedCatalogue.h"
#include "controls/CoreText.h"
#include "controls/NumberText.h"
#include "data/Session.h"
#include "results/PartLoadSheet.h"
#include "workspace/ResultMarks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

ReportPartLoad::Table tableOf(const std::vector<PartLoadSheet::Column>& columns, const std::string& title,
                              const std::vector<PartLoadSheet::Row>& rows) {
    ReportPartLoad::Table table{.title = fromCore(title), .rows = {}};
    for (const PartLoadSheet::Row& row : rows) {
        ReportPartLoad::Row printed{
            .label = fromCore(row.label), .mark = markOf(row.state), .values = {}, .sentence = {}};
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const QString value = fromCore(row.values[i]);
            if (columns[i].isText)
                printed.sentence = value;
            else
                printed.values += value;
        }
        table.rows.push_back(std::move(printed));
    }
    return table;
}

}  // namespace

std::optional<ReportPartLoad> partLoadSection(const clsCompressor& compressor,
                                              const clsProjectConditions& conditions,
                                              const PartLoadRule& rule, UnitSystem units) {
    constexpr double chartWidth = 680;  // logical pixels between the margins of the paper
    constexpr double chartHeight = 270;
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const prepared =
        catalogue->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    if (prepared == nullptr) return std::nullopt;
    Calculator calculator;
    const auto table =
        partLoadTable(partLoadQuestion(rule.planOf(*prepared, conditions)), loopWith(calculator));
    if (!table || !table->full.share) return std::nullopt;
    const NumberMarks marks = marksOf(QLocale());
    const PartLoadSheet sheet = partLoadSheet(*prepared, *table, units, marks);
    ReportPartLoad section{
        .heading = rule.words.join(QStringLiteral(" \u00B7 ")),
        .full = fromCore(sheet.full),
        .chart = chartDrawing(partLoadChart(*prepared, *table, units),
                              {.width = chartWidth, .height = chartHeight, .marks = marks}),
        .columns = {},
        .tables = {tableOf(sheet.columns, sheet.statesTitle, sheet.states),
                   tableOf(sheet.columns, sheet.sharesTitle, sheet.shares)}};
    for (const PartLoadSheet::Column& column : sheet.columns)
        if (!column.isText) section.columns.push_back({fromCore(column.name), fromCore(column.unit)});
    return section;
}

}  // namespace marvello
