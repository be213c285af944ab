#pragma once

#include "controls/DialogFrame.h"

namespace marvello {

/// The list of builds: what came with each version, from a rich text of the application folder.
class formBuilds : public DialogFrame {
    Q_OBJECT

  public:
    /// `file` is a rich text; a file that cannot be read leaves the window empty.
    formBuilds(const QString& file, QWidget* parent);

    /// True if the list in `file` is longer than the one that the user saw last. A first start sees it all as
    /// known.
    static bool hasNews(const QString& file);
    /// Keeps that the user has seen the list.
    static void markSeen(const QString& file);
};

}  // namespace marvello
