#pragma once

#include <QWidget>

namespace marvello {

/// The lower right corner of a window, by which it is resized.
class Grip : public QWidget {
    Q_OBJECT

  public:
    /// `minSize` is the smallest size that the window may get.
    Grip(const QSize& minSize, QWidget* window);

    void moveToCorner();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    QSize minSize_;
    QPoint start_;
    QSize size_;
};

}  // namespace marvello
