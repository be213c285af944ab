#pragma once

#include <QMdiArea>

namespace marvello {

/// The area of the forms; while there is none it shows the emblem.
class WorkArea : public QMdiArea {
  public:
    explicit WorkArea(QWidget* parent);

    /// Divide the area among the forms, below or next to each other.
    void tileHorizontal();
    void tileVertical();
    /// Puts minimized forms next to each other at the lower edge, in rows from the bottom.
    void arrangeIcons();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace marvello
