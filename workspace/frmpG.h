#pragma once

#include <QElapsedTimer>

#include "controls/DialogFrame.h"

class QLabel;
class QTimer;

namespace marvello {

class ProgressBar;
class ctlBtn;

/// The progress of a calculation, over the main window. Its button asks the run to stop.
class frmpG : public DialogFrame {
    Q_OBJECT

  public:
    explicit frmpG(QWidget* parent);

    /// Sets the bar, 0 to 100, as often as an eye can follow.
    void setPercent(int percent);

  signals:
    /// The run was asked to stop.
    void aborted();

  protected:
    /// Escape and the close button abort too; the window goes when the run has ended.
    void reject() override;

  private:
    void showPercent(int percent);
    void abort();
    void showDots();

    QLabel* Label1_;
    QLabel* LabelDots_;
    QLabel* percent_;
    ProgressBar* pg_;
    ctlBtn* btnAbort_;
    QTimer* Timer1_;
    QElapsedTimer lastShown_;
};

}  // namespace marvello
