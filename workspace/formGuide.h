#pragma once

#include "controls/DialogFrame.h"

namespace marvello {

/// The guide: how a selection is made, with pictures, from the Markdown file of the application folder. It
/// stays open next to the work.
class formGuide : public DialogFrame {
    Q_OBJECT

  public:
    /// `file` is the guide; its pictures are next to it. A file that cannot be read leaves the window empty.
    formGuide(const QString& file, QWidget* parent);
};

}  // namespace marvello
