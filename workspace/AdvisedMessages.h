#pragma once

#include <QObject>
#include <memory>
#include <vector>

#include "engine/Advice.h"

namespace marvello {

class AdviceSearch;
class MessagesView;
class clsCompressor;

/// Fills the page of messages: those of a compressor at once, and below them what ends each as soon as it is
/// found.
class AdvisedMessages : public QObject {
    Q_OBJECT

  public:
    /// Belongs to `view`.
    explicit AdvisedMessages(MessagesView& view);

    /// Shows the messages of a compressor and what to do about them, with numbers in `units`. Without the
    /// `conditions` it was calculated for there is nothing to do.
    void show(const clsCompressor& compressor, const std::shared_ptr<const clsProjectConditions>& conditions,
              UnitSystem units);
    void clear();

  signals:
    /// The user wants an input at a value, in the units that were shown.
    void used(marvello::AdvisedInput input, double value);

  private:
    void showAdvice(const std::vector<MessageAdvice>& advice);
    void use(const QString& mark, const QString& key, int line);

    MessagesView& view_;
    AdviceSearch* search_;
    std::shared_ptr<const clsProjectConditions> conditions_;
    UnitSystem units_ = UnitSystem::metric;
    std::vector<MessageAdvice> advice_;  ///< What is shown.
};

}  // namespace marvello
