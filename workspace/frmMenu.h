#pragma once

#include <QDialog>
#include <QPixmap>
#include <QTransform>
#include <array>

class QAbstractButton;
class QVariantAnimation;

namespace marvello {

/// The start menu over the main window: which form is to be opened. It is on a dimmed picture of the
/// window, into which it fades.
class frmMenu : public QDialog {
    Q_OBJECT

  public:
    enum Choice { none = 0, selection = 1, inverter = 2, find = 3, year = 4 };

    explicit frmMenu(QWidget* frame);

    /// Shows the menu and waits. Escape, or a click next to it, chooses nothing.
    Choice choose();

    /// Where a choice is in the window.
    QRectF placeOf(Choice choice) const;
    Choice shown() const { return on_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// From the measures of the menu to the window that it covers.
    QTransform toWindow() const;
    Choice choiceAt(const QPointF& at) const;
    void turnOn(Choice choice);
    void paintPanel(QPainter& painter) const;
    void paintChoice(QPainter& painter, Choice choice) const;
    void paintHints(QPainter& painter) const;

    void makeCards();

    QPixmap under_;
    std::array<QAbstractButton*, 4>
        cards_{};  // what a screen reader finds in the place of the painted choices
    QVariantAnimation* fade_;
    Choice on_ = selection;
    Choice pressed_ = none;
};

}  // namespace marvello
