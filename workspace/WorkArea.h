#pragma once

#include <QMdiArea>

namespace marvello {

/// The area of the forms; while there is none it shows the emblem.
class WorkArea : public QMdiArea {
  public:
    explicit WorkArea(QWidget* parent);

    /// Divides the area among the forms: below each other if vertical, else next to each other.
    void tile(Qt::Orientation orientation);
    /// Puts minimized forms next to each other at the lower edge, in rows from the bottom.
    void arrangeIcons();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvello
