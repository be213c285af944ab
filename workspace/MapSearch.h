#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "engine/PerformanceMap.h"
#include "workspace/Background.h"

namespace marvello {

/// Calculates the map of a compressor while the window goes on.
class MapSearch : public QObject {
    Q_OBJECT

  public:
    struct Question {
        std::string refrigerant;
        std::string serie;
        std::string model;
        clsProjectConditions conditions;  ///< whose temperatures are not used

        bool operator==(const Question&) const = default;
    };

    explicit MapSearch(QObject* parent);

    /// Gives up what was asked before, and emits found() later, once or more often.
    void ask(const Question& question);
    /// Gives up what was asked before.
    void stop();
    /// True until the last found() or stop().
    bool isSearching() const { return isSearching_; }

  signals:
    /// A map of the last question, coarse first. Null if there is none, or if it failed.
    void found(const std::shared_ptr<const marvello::PerformanceMap>& map, bool isLast);

  private:
    void answer(const Question& question, const Background::Place& place);
    void take(const std::shared_ptr<const PerformanceMap>& map, bool isLast);

    bool isSearching_ = false;
    Background background_;
};

}  // namespace marvello
