#pragma once

#include <QObject>
#include <memory>
#include <string>
#include <vector>

#include "data/SessionThread.h"
#include "engine/Advice.h"

namespace marvello {

/// Looks for what ends the messages of a compressor while the window goes on: in a thread with a session of
/// its own, on the application folder and the catalogue of the one that asks. Without a thread, and with a
/// property library that calculates in one thread alone, it is looked for at once.
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
    void ask(Question question);
    /// Gives up what was asked before.
    void stop();
    /// True until found() or stop().
    bool isSearching() const { return isSearching_; }

  signals:
    /// Of the last question; empty if there is nothing to advise on, or if it failed.
    void found(const std::vector<marvello::MessageAdvice>& advice);

  private:
    void tell(unsigned number, const std::vector<MessageAdvice>& advice);

    bool isSearching_ = false;
    unsigned asked_ = 0;    ///< The number of the newest question.
    SessionThread thread_;  ///< The last member: it uses the others.
};

}  // namespace marvello
