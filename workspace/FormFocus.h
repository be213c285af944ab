#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>

class QMdiArea;
class QMdiSubWindow;
class QWidget;

namespace marvello {

/// Gives a form of the work area its last focus again when the user comes back to it. The work area itself
/// moves the focus on to the next control with each change of forms.
class FormFocus : public QObject {
    Q_OBJECT

  public:
    explicit FormFocus(QMdiArea& area);

    /// Keeps where the focus of a form begins, for a form that was never shown.
    void begin(QMdiSubWindow* window, QWidget* control);

  private:
    void settleSoon();
    void settle();
    QMdiSubWindow* windowOf(QWidget* control) const;

    QMdiArea& area_;
    QHash<const QMdiSubWindow*, QPointer<QWidget>> last_;
    QPointer<QMdiSubWindow> current_;
    QPointer<QMdiSubWindow> cameBack_;  ///< activated since the focus was looked at
    bool isPending_ = false;
};

}  // namespace marvello
