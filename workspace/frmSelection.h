#pragma once

#include "workspace/SelectionForm.h"

namespace marvello {

/// A selection of compressors at mains frequency.
class frmSelection : public SelectionForm {
    Q_OBJECT

  public:
    explicit frmSelection(QWidget* parent = nullptr) : SelectionForm(fixedSpeed, parent) {}
};

}  // namespace marvello
