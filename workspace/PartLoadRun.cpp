#include "workspace/PartLoadRun.h"

namespace marvello {

namespace {

/// None if nobody wants it any more.
std::optional<PartLoadTable> tableOf(const PartLoadQuestion& question,
                                     const SessionThread::IsWanted& isWanted) {
    const bool hasEconomizer = question.plan.conditions.EcoCalculateMode != EconomizerMode::none;
    if (isWanted && hasEconomizer) return partLoadTable(question, loopWith(sessionPool()));
    Calculator calculator;
    return partLoadTable(question, loopWith(calculator, isWanted));
}

}  // namespace

PartLoadRun::PartLoadRun(QObject* parent) : QObject(parent), background_(*this) {}

void PartLoadRun::start(const std::shared_ptr<const PreparedCatalogue>& catalogue,
                        const PartLoadQuestion& question) {
    background_.start(
        [this, catalogue, question](const Background::Place& place) {
            if (const auto table = tableOf(question, place.isWanted))
                place.tell([this, table = *table] { emit calculated(table); });
        },
        [this](const QString& reason) { emit failed(reason); });
}

void PartLoadRun::stop() { background_.stop(); }

}  // namespace marvello
