#include "workspace/AdvisedMessages.h"

#include <algorithm>

#include "catalogue/clsCompressor.h"
#include "controls/MessagesView.h"
#include "controls/NumberText.h"
#include "results/AdviceTexts.h"
#include "results/MarginTexts.h"
#include "results/Messages.h"
#include "workspace/AdviceSearch.h"
#include "workspace/ResultMarks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

AdvisedMessages::AdvisedMessages(MessagesView& view)
    : QObject(&view), view_(view), search_(new AdviceSearch(this)) {
    connect(search_, &AdviceSearch::found, this, &AdvisedMessages::showAdvice);
    connect(&view_, &MessagesView::used, this, &AdvisedMessages::use);
}

void AdvisedMessages::clear() {
    search_->stop();
    advice_.clear();
    view_.clear();
    view_.setEmptyText(QString());
}

void AdvisedMessages::show(const clsCompressor& compressor,
                           const std::shared_ptr<const clsProjectConditions>& conditions, UnitSystem units) {
    clear();
    view_.setEmptyText(dictionaryText(QStringLiteral("frmselection.messages.empty")));
    const NumberMarks marks = marksOf(QLocale());
    for (const ShownMessage& message : messagesOf(compressor)) {
        const QString mark = markOf(message.severity);
        QStringList causes;
        for (const std::string& cause : message.causes) causes += fromCore(cause);
        view_.addMessage(mark, markText(mark), fromCore(message.text), fromCore(message.key), causes,
                         fromCore(distanceText(compressor, message, units, marks)));
    }
    conditions_ = conditions;
    units_ = units;
    if (conditions_)
        search_->ask({compressor.Refrigerant, compressor.Serie, compressor.Model, conditions_, units_});
}

void AdvisedMessages::showAdvice(const std::vector<MessageAdvice>& advice) {
    advice_ = advice;
    const NumberMarks marks = marksOf(QLocale());
    const QString use = dictionaryText(QStringLiteral("messages.advice.use"));
    bool isAny = false;
    for (const MessageAdvice& about : advice_) {
        QList<AdviceLine::Texts> lines;
        for (const Advice& each : shownOf(about.advice)) {
            const ShownAdvice shown = shownAdvice(advice_, about.message, each, *conditions_, units_, marks);
            lines.push_back({fromCore(shown.text), fromCore(shown.step), use, fromCore(shown.effect)});
        }
        isAny = isAny || !lines.isEmpty();
        if (lines.isEmpty()) lines.push_back({fromCore(noAdviceText()), {}, {}, {}});
        view_.setAdvice(markOf(about.message.severity), fromCore(about.message.key), lines);
    }
    if (isAny) view_.setNote(dictionaryText(QStringLiteral("messages.advice.note")));
}

void AdvisedMessages::use(const QString& mark, const QString& key, int line) {
    for (const auto& [message, advice] : advice_) {
        if (markOf(message.severity) != mark || fromCore(message.key) != key) continue;
        const Advice& chosen = advice.at(static_cast<std::size_t>(line));
        const AdvisedInput input = chosen.input;
        const double value = chosen.value;
        emit used(input, value);  // which may clear the page
        return;
    }
}

}  // namespace marvello
