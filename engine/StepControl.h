#pragma once

#include <cmath>
#include <limits>

namespace marvello {

/// The step size of a search: halved when the error changes its sign, but never in two trials that follow.
class StepControl {
  public:
    explicit StepControl(float size) : size_(size) {}

    double size() const { return static_cast<double>(size_); }
    /// The next halving has to wait for one more trial.
    void restart() { mayHalve_ = false; }
    void remember(double error) { previous_ = error; }
    void apply(double error) {
        const bool turned = sign(error) != sign(previous_);
        if (turned && mayHalve_) size_ /= 2;
        mayHalve_ = !(turned && mayHalve_);
        previous_ = error;
    }

  private:
    static int sign(double value) { return (value > 0) - (value < 0); }

    float size_;
    bool mayHalve_ = false;
    double previous_ = 0;
};

/// Finds that an iteration without a pass counter comes to nothing: its error has had no new least value for
/// as many passes as its patience lasts.
class LostSearch {
  public:
    explicit LostSearch(int patience) : patience_(patience) {}

    bool isLost(double error) {
        if (std::abs(error) < minError_) {
            minError_ = std::abs(error);
            withoutGain_ = 0;
            return false;
        }
        return ++withoutGain_ >= patience_;
    }

  private:
    int patience_;
    int withoutGain_ = 0;
    double minError_ = std::numeric_limits<double>::infinity();
};

}  // namespace marvello
