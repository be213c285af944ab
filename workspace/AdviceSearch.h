#pragma once

#include <QObject>
#include <memory>
#include <string>
#include <vector>

#include "engine/Advice.h"
#include "workspace/Background.h"

namespace marvello {

/// Looks for what ends the messages of a compressor while the window goes on.
class AdviceSearch : public QObject {
    Q_OBJECT

  public:
    struct Question {
        std::string refrigerant;
        std::string serie;
        std::string model;
        std::shared_ptr<const clsProjectConditions> conditions;
        UnitSystem units = UnitSystem::metric;
    };

    explicit AdviceSearch(QObject* parent);

    /// Gives up what was asked before, and emits found() later.
    void ask(const Question& question);
    /// Gives up what was asked before.
    void stop();
    /// True until found() or stop().
    bool isSearching() const { return isSearching_; }

  signals:
    /// Of the last question; empty if there is nothing to advise on, or if it failed.
    void found(const std::vector<marvello::MessageAdvice>& advice);

  private:
    void take(const std::vector<MessageAdvice>& advice);

    bool isSearching_ = false;
    Background background_;
};

}  // namespace marvello
