#include "workspace/MapSearch.h"

#include <QMetaObject>
#include <exception>
#include <utility>

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

MapSearch::MapSearch(QObject* parent) : QObject(parent) {}

void MapSearch::stop() {
    thread_.stop();
    ++asked_;
    isSearching_ = false;
}

void MapSearch::ask(Question question) {
    const unsigned number = ++asked_;
    isSearching_ = true;
    if (isRefpropConcurrent() &&
        thread_.start([this, number, question](const SessionThread::IsWanted& isWanted) {
            answer(number, question, isWanted);
        }))
        return;
    // Nothing else may happen in the middle of it.
    const auto giveTurn = std::exchange(Session::current().hooks.giveTurn, nullptr);
    answer(number, question, {});
    Session::current().hooks.giveTurn = giveTurn;
}

/// In any thread. A failure was said by the calculation of the list.
void MapSearch::answer(unsigned number, const Question& question, const IsWanted& isWanted) {
    bool isTold = false;
    try {
        const CollectedBoxes said;
        gDatabase().Connect({});
        gDatabase().followFile();
        const auto catalogue = preparedCatalogue(gDatabase());
        Calculator calculator;
        if (const PreparedCompressor* const compressor =
                catalogue->find(question.refrigerant, question.serie, question.model))
            refineMap(calculator, *compressor, question.conditions, isWanted,
                      [&](const PerformanceMap& map, bool isLast) {
                          tell(number, std::make_shared<const PerformanceMap>(map), isLast);
                          isTold = isTold || isLast;
                      });
    } catch (const std::exception&) {
        isTold = false;
    }
    if (!isTold) tell(number, nullptr, true);
}

void MapSearch::tell(unsigned number, const std::shared_ptr<const PerformanceMap>& map, bool isLast) {
    const auto emitIfWanted = [this, number, map, isLast] {
        if (asked_ != number) return;
        isSearching_ = !isLast;
        emit found(map, isLast);
    };
    QMetaObject::invokeMethod(this, emitIfWanted, Qt::QueuedConnection);
}

}  // namespace marvello
