#include "workspace/YearRun.h"

#include <algorithm>

#include "data/Session.h"

namespace marvello {

namespace {

/// An economizer is worth several threads.
PointLoop loopFor(const std::vector<YearChoice>& choices, Calculator& calculator,
                  const SessionThread::IsWanted& isWanted) {
    const bool hasEconomizer = std::ranges::any_of(choices, [](const YearChoice& choice) {
        return choice.conditions.EcoCalculateMode != EconomizerMode::none;
    });
    return isWanted && hasEconomizer ? loopWith(sessionPool()) : loopWith(calculator, isWanted);
}

}  // namespace

YearRun::YearRun(QObject* parent) : QObject(parent), background_(*this) {}

void YearRun::start(const std::vector<YearChoice>& choices, const YearTerms& terms,
                    const std::shared_ptr<const PreparedCatalogue>& catalogue) {
    isRunning_ = true;
    percent_ = 0;
    background_.start(
        [this, choices, terms, catalogue](const Background::Place& place) {
            Calculator calculator;
            const PointLoop loop = loopFor(choices, calculator, place.isWanted);
            const std::size_t loops = choices.size() * (terms.rule ? 2 : 1);
            std::atomic<std::size_t> begun = 0;
            const PointLoop counted = [&](std::size_t count, const CalculatorPool::Work& work) {
                const std::size_t before = begun++;
                std::atomic<std::size_t> done = 0;
                return loop(count, [&](Calculator& calculator, std::size_t index) {
                    work(calculator, index);
                    percent_ = static_cast<int>(100 * (before * count + ++done) / (loops * count));
                });
            };
            const auto years = yearsOf(choices, terms, catalogue, counted);
            if (!years) return;  // nobody wants them any more
            place.tell([this, shared = std::make_shared<const YearComparison>(*years)] {
                isRunning_ = false;
                emit calculated(shared);
            });
        },
        [this](const QString& reason) {
            isRunning_ = false;
            emit failed(reason);
        });
}

void YearRun::stop() {
    background_.stop();
    isRunning_ = false;
}

}  // namespace marvello
