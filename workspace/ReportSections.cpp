#include "workspace/ReportSections.h"

#include <QLocale>
#include <array>
#include <exception>

#include "catalogue/PreparedCatalogue.h"
#include "controls/NumberText.h"
#include "data/CollectedBoxes.h"
#include "data/Hooks.h"
#include "data/Session.h"
#include "engine/PerformanceMap.h"
#include "results/CycleDrawing.h"
#include "workspace/CycleContent.h"
#include "workspace/DrawnMap.h"
#include "workspace/PartLoadSection.h"
#include "workspace/RatingSection.h"
#include "workspace/SelectionReport.h"
#include "workspace/UnitTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

/// What a section is about.
struct Subject {
    std::shared_ptr<const clsCompressor> compressor;
    std::shared_ptr<const clsProjectConditions> conditions;
    SelectionInputs inputs;
    SectionChoices choices;
};

using Content = std::optional<decltype(ReportSection::content)>;

Content tablesContent(const Subject& subject) {
    auto tables = ratingSection(*subject.compressor, *subject.conditions, subject.inputs.units());
    if (!tables) return std::nullopt;
    return *std::move(tables);
}

/// The finest map of a compressor; none where no point has values.
std::optional<PerformanceMap> finestMap(const PreparedCompressor& compressor,
                                        const clsProjectConditions& conditions) {
    std::optional<PerformanceMap> finest;
    Calculator calculator;
    refineMap(calculator, compressor, conditions, {}, [&finest](const PerformanceMap& map, bool isLast) {
        if (isLast) finest = map;
    });
    return finest;
}

Content mapContent(const Subject& subject) {
    const clsCompressor& compressor = *subject.compressor;
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const prepared =
        catalogue->find(compressor.Refrigerant, compressor.Serie, compressor.Model);
    if (prepared == nullptr) return std::nullopt;
    const auto map = finestMap(*prepared, *subject.conditions);
    if (!map) return std::nullopt;
    const clsLimits& limits = prepared->envelopeFor(subject.conditions->EcoCalculateMode)->limits;
    const auto shown =
        shownMap(*map, limits, subject.choices.mapped, subject.inputs.units(), marksOf(QLocale()));
    if (!shown) return std::nullopt;
    ReportMap content{.heading = fromCore(shown->name), .envelope = envelopeOf(compressor, subject.inputs)};
    if (!shown->unit.empty()) content.heading += QStringLiteral(", ") + fromCore(shown->unit);
    content.envelope.map = drawnMap(*shown);
    return content;
}

Content cyclePageContent(const Subject& subject) {
    constexpr double width = 680;  // logical pixels between the margins of the paper
    constexpr double height = 420;
    const UnitSystem units = subject.inputs.units();
    const NumberMarks marks = marksOf(QLocale());
    const auto cycle = cycleContent(*subject.compressor, units);
    if (!cycle) return std::nullopt;
    const CycleTable table = tableOf(*cycle->cycle, units, marks);
    ReportCycle content{.heading = cycle->title,
                        .diagram = cycleDrawing(*cycle->cycle, *cycle->diagram,
                                                {.width = width,
                                                 .height = height,
                                                 .shown = cycle->diagram->range,
                                                 .units = units,
                                                 .marks = marks,
                                                 .title = toCore(cycle->title)}),
                        .columns = {fromCore(table.state)},
                        .states = {},
                        .figures = figuresOf(*cycle->cycle, units, marks)};
    for (const CycleTable::Column& column : table.columns)
        content.columns += fromCore(column.unit.empty() ? column.symbol : column.symbol + ", " + column.unit);
    for (const CycleTable::Row& row : table.rows) {
        QStringList state{fromCore(row.number + "  " + row.name)};
        for (const std::string& value : row.values) state += fromCore(value);
        content.states.push_back(state);
    }
    return content;
}

Content partLoadContent(const Subject& subject) {
    auto load = partLoadSection(*subject.compressor, *subject.conditions, subject.choices.partLoad,
                                subject.inputs.units());
    if (!load) return std::nullopt;
    return *std::move(load);
}

struct Kind {
    const char* key;
    const char* nameKey;
    Content (*make)(const Subject& subject);
};
constexpr std::array kinds{Kind{"limits", "frmselection.tabstrip.tabs.limits", mapContent},
                           Kind{"rating", "frmselection.tabstrip.tabs.rating", tablesContent},
                           Kind{"cycle", "frmselection.tabstrip.tabs.cycle", cyclePageContent},
                           Kind{"partload", "frmselection.tabstrip.tabs.partload", partLoadContent}};

/// "Cycle · R134A · 2.00 °C / 40.00 °C · Superheat 10.00 K · ...".
QString titleOf(const QString& name, const Subject& subject) {
    const SelectionInputs& inputs = subject.inputs;
    QStringList parts{
        name, fromCore(subject.compressor->Refrigerant),
        withUnit(inputs, Input::evaporatingDew) + QStringLiteral(" / ") +
            withUnit(inputs, Input::condensingDew),
        fromCore(inputs.caption(Input::superheatKind)) + u' ' + withUnit(inputs, Input::superheat),
        dictionaryText(QStringLiteral("frmselection.txtsc.captiontext")) + u' ' +
            withUnit(inputs, Input::subcooling)};
    if (subject.compressor->hasInvert) parts += withUnit(inputs, Input::frequency);
    return parts.join(QStringLiteral(" \u00B7 "));
}

/// A failure was said by the calculation of the list.
std::optional<ReportSection> made(const Kind& kind, const QString& name, const Subject& subject) try {
    const NoTurns untilItIsMade;
    const CollectedBoxes said;
    auto content = kind.make(subject);
    if (!content) return std::nullopt;
    return ReportSection{titleOf(name, subject), *std::move(content)};
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace

std::vector<OfferedSection> offeredSections(const std::shared_ptr<const clsCompressor>& compressor,
                                            const std::shared_ptr<const clsProjectConditions>& conditions,
                                            const SelectionInputs& inputs, const SectionChoices& choices) {
    const Subject subject{compressor, conditions, inputs, choices};
    std::vector<OfferedSection> offered;
    for (const Kind& kind : kinds) {
        const QString name = dictionaryText(QLatin1String(kind.nameKey));
        // Once: a map of an economizer takes most of a second.
        const auto make = [&kind, name, subject,
                           known = std::optional<std::optional<ReportSection>>()]() mutable {
            if (!known) known = made(kind, name, subject);
            return *known;
        };
        offered.push_back({QLatin1String(kind.key), name, make});
    }
    return offered;
}

std::vector<ReportSection> madeSections(const std::vector<OfferedSection>& offered,
                                        const QStringList& chosen) {
    std::vector<ReportSection> sections;
    for (const OfferedSection& each : offered)
        if (chosen.contains(each.key))
            if (auto section = each.make()) sections.push_back(*std::move(section));
    return sections;
}

}  // namespace marvello
