#pragma once

#include "controls/DialogFrame.h"

namespace marvello {

/// Who made the program, where to reach them, and the terms of use.
class frmAbout : public DialogFrame {
    Q_OBJECT

  public:
    frmAbout(const QString& version, QWidget* parent);

  private:
    QWidget* makeInformation(const QString& version);
    QWidget* makeTerms();
};

}  // namespace marvello
