#pragma once

#include <QObject>
#include <QTimer>

namespace marvello {

/// Reads the compressors of the open catalogue into memory as soon as the user pauses, so that the first
/// calculation need not. What is wrong with the catalogue is left to the calculation to say.
class ReadAhead : public QObject {
    Q_OBJECT

  public:
    /// Waits for a moment without a key, a click or a turn of the wheel.
    ReadAhead();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void read();

    QTimer pause_;
};

}  // namespace marvello
