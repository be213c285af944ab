#pragma once

#include <QWidget>

namespace marvello {

/// A parent for objects that are never seen.
class formHide : public QWidget {
  public:
    formHide() { setObjectName(QStringLiteral("formHide")); }
    void setVisible(bool) override {}
};

}  // namespace marvello
