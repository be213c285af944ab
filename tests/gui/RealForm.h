#pragma once

#include "controls/ResultsView.h"
#include "tests/gui/RealWindow.h"
#include "tests/support/Controls.h"
#include "workspace/SelectionForm.h"

namespace marvello::testing {

/// The program's window with a selection form in it, the one that the keys go to.
class RealForm : public RealWindow {
  public:
    explicit RealForm(const char* language) : RealWindow(language), form(window->newSelection()) {
        activate();
    }

    /// A list that was open leaves it to the window system which window is active.
    void activate() {
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    }
    AdvanceText* field(const char* name) { return testing::field(*form, name); }
    ResultsView* list() { return control<ResultsView>(*form, "lvCps"); }
    void type(const char* name, const QString& text) { testing::type(*form, name, text); }
    void choose(const char* name, const QString& key) {
        testing::choose(*form, name, key);
        EXPECT_EQ(field(name)->Key(), key);
    }
    void calculate() {
        activate();
        QTest::keyClick(form->focusWidget(), Qt::Key_F5);
    }

    SelectionForm* form;
};

}  // namespace marvello::testing
