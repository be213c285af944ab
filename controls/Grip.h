#pragma once

#include <QWidget>

namespace marvello {

/// The lower right corner of a window, by which it is resized.
class Grip : public QWidget {
    Q_OBJECT

  public:
    /// `least` is the smallest size that the window may get.
    Grip(const QSize& least, QWidget* window);

    void moveToCorner();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QSize least_;
    QPoint start_;
    QSize size_;
};

}  // namespace marvello
