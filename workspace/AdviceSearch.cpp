#include "workspace/AdviceSearch.h"

#include <QMetaObject>
#include <exception>
#include <utility>

#include "catalogue/PreparedCatalogue.h"
#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

namespace {

/// A failure was said by the calculation of the list; there is nothing to advise then.
std::vector<MessageAdvice> answer(const AdviceSearch::Question& question,
                                  const SessionThread::IsWanted& isWanted) try {
    const CollectedBoxes said;
    gDatabase().Connect({});
    gDatabase().followFile();
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const compressor =
        catalogue->find(question.refrigerant, question.serie, question.model);
    if (!compressor) return {};
    Calculator calculator;
    return adviseOn(calculator, *compressor, *question.conditions, question.units, isWanted);
} catch (const std::exception&) {
    return {};
}

}  // namespace

AdviceSearch::AdviceSearch(QObject* parent) : QObject(parent) {}

void AdviceSearch::stop() {
    thread_.stop();
    ++asked_;
    isSearching_ = false;
}

void AdviceSearch::ask(Question question) {
    const unsigned number = ++asked_;
    isSearching_ = true;
    if (isRefpropConcurrent() &&
        thread_.start([this, number, question](const SessionThread::IsWanted& isWanted) {
            tell(number, answer(question, isWanted));
        }))
        return;
    // Nothing else may happen in the middle of it.
    const auto giveTurn = std::exchange(Session::current().hooks.giveTurn, nullptr);
    tell(number, answer(question, {}));
    Session::current().hooks.giveTurn = giveTurn;
}

/// From any thread.
void AdviceSearch::tell(unsigned number, const std::vector<MessageAdvice>& advice) {
    const auto emitIfWanted = [this, number, advice] {
        if (asked_ != number) return;
        isSearching_ = false;
        emit found(advice);
    };
    QMetaObject::invokeMethod(this, emitIfWanted, Qt::QueuedConnection);
}

}  // namespace marvello
