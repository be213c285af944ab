#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <memory>

#include "controls/MessageBox.h"
#include "data/Session.h"
#include "workspace/MDIMain.h"

namespace marvello::testing {

/// The program's window on the catalogue that is shipped, with settings of its own, and the boxes it showed.
class RealWindow {
  public:
    explicit RealWindow(const char* language);
    ~RealWindow();
    RealWindow(const RealWindow&) = delete;
    RealWindow& operator=(const RealWindow&) = delete;

    Session session;
    QStringList boxes;
    std::unique_ptr<MDIMain> window;

  private:
    QTemporaryDir settings_;
    MessageBox::Handler handlerBefore_;
};

}  // namespace marvello::testing
