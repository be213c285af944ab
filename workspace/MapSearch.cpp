#include "workspace/MapSearch.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"

namespace marvello {

MapSearch::MapSearch(QObject* parent) : QObject(parent), background_(*this) {}

void MapSearch::stop() {
    background_.stop();
    isSearching_ = false;
}

void MapSearch::ask(const Question& question) {
    isSearching_ = true;
    // A failure was said by the calculation of the list.
    background_.start([this, question](const Background::Place& place) { answer(question, place); },
                      [this](const QString&) { take(nullptr, true); });
}

/// In any thread.
void MapSearch::answer(const Question& question, const Background::Place& place) {
    bool isTold = false;
    const auto tell = [this, &place, &isTold](const std::shared_ptr<const PerformanceMap>& map, bool isLast) {
        place.tell([this, map, isLast] { take(map, isLast); });
        isTold = isTold || isLast;
    };
    const auto catalogue = preparedCatalogue(gDatabase());
    Calculator calculator;
    if (const PreparedCompressor* const compressor =
            catalogue->find(question.refrigerant, question.serie, question.model))
        refineMap(calculator, *compressor, question.conditions, place.isWanted,
                  [&tell](const PerformanceMap& map, bool isLast) {
                      tell(std::make_shared<const PerformanceMap>(map), isLast);
                  });
    if (!isTold) tell(nullptr, true);
}

void MapSearch::take(const std::shared_ptr<const PerformanceMap>& map, bool isLast) {
    isSearching_ = !isLast;
    emit found(map, isLast);
}

}  // namespace marvello
