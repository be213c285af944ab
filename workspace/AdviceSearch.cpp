#include "workspace/AdviceSearch.h"

#include <QMetaObject>
#include <exception>
#include <system_error>
#include <utility>

#include "data/CollectedBoxes.h"
#include "data/Session.h"
#include "thermo/RefpropLibrary.h"

namespace marvello {

AdviceSearch::AdviceSearch(QObject* parent) : QObject(parent) {}

AdviceSearch::~AdviceSearch() {
    stop();
    {
        const std::lock_guard held(lock_);
        isOver_ = true;
    }
    changed_.notify_one();
}

void AdviceSearch::stop() {
    const std::lock_guard held(lock_);
    isSearching_ = false;
    ++wanted_;
    next_.reset();
}

void AdviceSearch::ask(Question question) try {
    stop();
    Order order{std::move(question), preparedCatalogue(gDatabase()), gDatabase().ConnectionString, wanted_};
    isSearching_ = true;
    if (!isRefpropConcurrent() || !hasThread()) {
        Calculator calculator;
        // Nothing else may happen in the middle of it.
        const auto giveTurn = std::exchange(Session::current().hooks.giveTurn, nullptr);
        tell(order.number, answer(calculator, order));
        Session::current().hooks.giveTurn = giveTurn;
        return;
    }
    {
        const std::lock_guard held(lock_);
        next_ = std::move(order);
    }
    changed_.notify_one();
} catch (const DatabaseError&) {
    // A calculation says it.
}

bool AdviceSearch::hasThread() {
    if (thread_.joinable()) return true;
    try {
        thread_ = std::jthread([this, folder = Session::current().applicationFolder] { live(folder); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

/// The thread's life: a session, and one order after the other.
void AdviceSearch::live(const std::string& folder) {
    const Session session(folder);
    Calculator calculator;
    while (true) {
        std::unique_lock held(lock_);
        changed_.wait(held, [this] { return isOver_ || next_; });
        if (isOver_) return;
        const Order order = *std::exchange(next_, std::nullopt);
        held.unlock();
        tell(order.number, answer(calculator, order));
    }
}

/// A failure was said by the calculation of the list; there is nothing to advise then.
std::vector<MessageAdvice> AdviceSearch::answer(Calculator& calculator, const Order& order) const try {
    const CollectedBoxes said;
    const Question& question = order.question;
    gDatabase().Connect(order.connection);
    gDatabase().followFile();
    const PreparedCompressor* const compressor =
        order.catalogue->find(question.refrigerant, question.serie, question.model);
    if (!compressor) return {};
    return adviseOn(calculator, *compressor, *question.conditions, question.units,
                    [&] { return wanted_ == order.number; });
} catch (const std::exception&) {
    return {};
}

void AdviceSearch::tell(unsigned long long number, const std::vector<MessageAdvice>& advice) {
    const auto emitIfWanted = [this, number, advice] {
        if (wanted_ != number) return;
        isSearching_ = false;
        emit found(advice);
    };
    QMetaObject::invokeMethod(this, emitIfWanted, Qt::QueuedConnection);
}

}  // namespace marvello
