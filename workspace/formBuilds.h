#pragma once

#include "controls/DialogFrame.h"

namespace marvello {

/// The list of builds: what came with each version, from a rich text of the application folder.
class formBuilds : public DialogFrame {
    Q_OBJECT

  public:
    /// `file` is a rich text; a file that cannot be read leaves the window empty.
    formBuilds(const QString& file, QWidget* parent);
};

}  // namespace marvello
