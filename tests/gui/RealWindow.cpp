#include "tests/gui/RealWindow.h"

#include <QSettings>

#include "catalogue/Globals.h"

namespace marvello::testing {

RealWindow::RealWindow(const char* language) : session(MARVELLO_APP_FOLDER) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings_.path());
    handlerBefore_ = MessageBox::setHandler([this](MessageBox::Mark, const QString& text) { boxes += text; });
    openCatalogue();
    gApplication().User().language = language;
    window = std::make_unique<MDIMain>("1.0.0");
    // The screen of the tests is small, and a first start fits it.
    window->showNormal();
    window->resize(1440, 870);
}

RealWindow::~RealWindow() {
    window.reset();
    MessageBox::setHandler(handlerBefore_);
}

}  // namespace marvello::testing
