#pragma once

#include <optional>

#include "controls/DialogFrame.h"
#include "data/clsParametersForm.h"

class QListWidget;

namespace marvello {

/// Lets several refrigerants of the catalogue be chosen.
class frmRefrigerant : public DialogFrame {
    Q_OBJECT

  public:
    explicit frmRefrigerant(QWidget* parent);

    /// Shows the dialog with the refrigerants of `choice.Parameter` ("R134A;R290") checked. Gives the record
    /// with those that were checked in the end, or none if the user cancelled.
    std::optional<clsParametersForm> OpenForm(clsParametersForm choice);

  private:
    void fill(const QString& chosen);
    QString checkedKeys() const;

    QListWidget* lv_;
};

}  // namespace marvello
