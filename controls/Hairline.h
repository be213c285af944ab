#pragma once

#include <QWidget>

namespace marvello {

/// An upright line of one pixel between two groups of a window, in the middle of the room it is given.
class Hairline : public QWidget {
    Q_OBJECT

  public:
    explicit Hairline(QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvello
