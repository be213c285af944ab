#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <string>
#include <vector>

#include "controls/MessageBox.h"
#include "controls/ResultsView.h"
#include "data/Session.h"
#include "tests/support/Controls.h"
#include "tests/support/SmallCatalogue.h"

namespace marvello::testing {

/// A catalogue with the texts and parameter sets of the real one and a few models of its own, and the boxes
/// that the windows showed.
///
/// R134A: TK-A 100, 120 (outside its limits at the default point) and 140; DZ with one model for each market
/// and one for both; MV-H 50. R290: TK-A 90 and NL-H 30.
class WorkspaceFixture : public ::testing::Test {
  protected:
    WorkspaceFixture();
    ~WorkspaceFixture() override;

    SmallCatalogue catalogue;
    QStringList boxes;

  private:
    void table(const std::string& file, const std::string& name, const std::vector<std::string>& before = {});

    QTemporaryDir settings_;
    MessageBox::Handler handlerBefore_;
};

/// A form in a window of its own, with the mouse and the keys in it.
template <class Form>
class FormFixture : public WorkspaceFixture {
  protected:
    void open(int width = 1200) {
        gApplication().populateDictionary("en-EN", "");
        form = std::make_unique<Form>();
        form->resize(width, 800);
        form->show();
        activate();
    }
    void activate() {
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    void calculate() {
        activate();
        QTest::keyClick(form->focusWidget(), Qt::Key_F5);
        QApplication::processEvents();
        activate();
    }
    ResultsView* list() { return control<ResultsView>(*form, "lvCps"); }

    std::unique_ptr<Form> form;
};

}  // namespace marvello::testing
