#pragma once

#include <QEventLoop>
#include <QWidget>
#include <chrono>

namespace marvello {

/// The picture with name and version on the screen while the program starts.
class Frmsplash : public QWidget {
    Q_OBJECT

  public:
    Frmsplash();

    /// Waits while window events are handled; any key or click ends it early.
    void hold(std::chrono::milliseconds time);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QEventLoop holding_;
};

}  // namespace marvello
