#include "workspace/CycleContent.h"

#include <exception>
#include <utility>

#include "controls/NumberText.h"
#include "results/CycleTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

std::optional<CycleDiagram::Content> cycleContent(const clsCompressor& compressor, UnitSystem units) try {
    const auto refprop = SharedRefprop(compressor.Refrigerant);
    auto cycle = cycleOf(compressor, *refprop);
    if (!cycle) return std::nullopt;
    const QString title = dictionaryText(QStringLiteral("frmselection.cycle.title")) + QStringLiteral(", ") +
                          fromCore(compressor.Refrigerant);
    const auto reading = [refprop, units](const PhPoint& point) {
        return fromCore(readingAt(*refprop, point, units, marksOf(QLocale())));
    };
    const auto diagram = phDiagramAround(*cycle, compressor.Refrigerant, units);
    return CycleDiagram::Content{std::make_shared<const Cycle>(*std::move(cycle)), diagram, units, title,
                                 reading};
} catch (const std::exception&) {
    return std::nullopt;
}

}  // namespace marvello
