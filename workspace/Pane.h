#pragma once

#include <QWidget>

#include "controls/Look.h"

namespace marvello {

/// Gives a part of a form its name, by which a splitter knows it, and the ground that it paints.
inline void setUpPane(QWidget& pane, const char* name) {
    pane.setObjectName(QLatin1String(name));
    pane.setAutoFillBackground(true);
    QPalette palette = pane.palette();
    palette.setColor(QPalette::Window, Look::current().surface);
    pane.setPalette(palette);
}

}  // namespace marvello
