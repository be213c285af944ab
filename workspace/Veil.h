#pragma once

#include <QPainter>
#include <QWidget>

#include "controls/Look.h"

namespace marvello {

/// Covers what must not be read as valid.
class Veil : public QWidget {
  public:
    using QWidget::QWidget;

  protected:
    void paintEvent(QPaintEvent*) override {
        QColor ground = Look::current().surface;
        ground.setAlphaF(0.65F);
        QPainter(this).fillRect(rect(), ground);
    }
};

}  // namespace marvello
