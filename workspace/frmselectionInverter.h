#pragma once

#include "workspace/SelectionForm.h"

namespace marvello {

/// A selection of compressors on an inverter.
class frmselectionInverter : public SelectionForm {
    Q_OBJECT

  public:
    explicit frmselectionInverter(QWidget* parent = nullptr) : SelectionForm(onInverter, parent) {}
};

}  // namespace marvello
