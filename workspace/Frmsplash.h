#pragma once

#include <QWidget>
#include <chrono>

namespace marvello {

/// The picture with name and version that stands on the screen while the program starts.
class Frmsplash : public QWidget {
    Q_OBJECT

  public:
    Frmsplash();

    /// Waits while window events are handled.
    void hold(std::chrono::milliseconds time);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvello
