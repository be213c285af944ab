#include "workspace/AdviceSearch.h"

#include "catalogue/PreparedCatalogue.h"
#include "data/Session.h"

namespace marvello {

namespace {

std::vector<MessageAdvice> answer(const AdviceSearch::Question& question,
                                  const SessionThread::IsWanted& isWanted) {
    const auto catalogue = preparedCatalogue(gDatabase());
    const PreparedCompressor* const compressor =
        catalogue->find(question.refrigerant, question.serie, question.model);
    if (!compressor) return {};
    Calculator calculator;
    return adviseOn(calculator, *compressor, *question.conditions, question.units, isWanted);
}

}  // namespace

AdviceSearch::AdviceSearch(QObject* parent) : QObject(parent), background_(*this) {}

void AdviceSearch::stop() {
    background_.stop();
    isSearching_ = false;
}

void AdviceSearch::ask(const Question& question) {
    isSearching_ = true;
    background_.start(
        [this, question](const Background::Place& place) {
            place.tell([this, advice = answer(question, place.isWanted)] { take(advice); });
        },
        // A failure was said by the calculation of the list; there is nothing to advise then.
        [this](const QString&) { take({}); });
}

void AdviceSearch::take(const std::vector<MessageAdvice>& advice) {
    isSearching_ = false;
    emit found(advice);
}

}  // namespace marvello
