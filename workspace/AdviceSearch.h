#pragma once

#include <QObject>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "catalogue/PreparedCatalogue.h"
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
    ~AdviceSearch() override;

    /// Gives up what was asked before, and emits found() later; never if the catalogue cannot be read.
    void ask(Question question);
    /// Gives up what was asked before.
    void stop();
    /// True until found() or stop().
    bool isSearching() const { return isSearching_; }

  signals:
    /// Of the last question; empty if there is nothing to advise on, or if it failed.
    void found(const std::vector<marvello::MessageAdvice>& advice);

  private:
    /// What is asked for, and its number: an answer to an older one is thrown away.
    struct Order {
        Question question;
        std::shared_ptr<const PreparedCatalogue> catalogue;
        std::string connection;  ///< to its file
        unsigned long long number = 0;
    };
    /// False if the system has no thread left.
    bool hasThread();
    void live(const std::string& folder);
    std::vector<MessageAdvice> answer(Calculator& calculator, const Order& order) const;
    void tell(unsigned long long number, const std::vector<MessageAdvice>& advice);

    bool isSearching_ = false;
    std::atomic<unsigned long long> wanted_ = 0;  ///< The number of the last question.
    std::mutex lock_;
    std::condition_variable changed_;
    std::optional<Order> next_;
    bool isOver_ = false;
    std::jthread thread_;  ///< The last member: it uses the others.
};

}  // namespace marvello
