#pragma once

#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "engine/Performance.h"
#include "inputs/SelectionInputs.h"
#include "reports/ReportContent.h"
#include "workspace/PartLoadRule.h"

namespace marvello {

/// A section that the report of a compressor can have, of the same name as a page of it.
struct OfferedSection {
    QString key;  ///< of the page
    QString name;
    std::function<std::optional<ReportSection>()> make;
};

/// What the user chose on the pages that the sections are named after.
struct SectionChoices {
    Figure mapped = Figure::cop;  ///< of the map of the limits
    PartLoadRule partLoad;
};

/// Returns the sections that the report of a calculated compressor can have, in their order: the limits with
/// a map of a figure, rating tables, the cycle, part load. They keep what they are made of, whatever becomes
/// of the arguments. To make one throws nothing; none comes where there are no values. The user interface has
/// no turn while one is made, so that nothing starts it, or closes its window, a second time.
std::vector<OfferedSection> offeredSections(const std::shared_ptr<const clsCompressor>& compressor,
                                            const std::shared_ptr<const clsProjectConditions>& conditions,
                                            const SelectionInputs& inputs, const SectionChoices& choices);

/// Makes those of the sections whose keys are chosen.
std::vector<ReportSection> madeSections(const std::vector<OfferedSection>& offered,
                                        const QStringList& chosen);

}  // namespace marvello
