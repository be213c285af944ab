#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "controls/AdvanceText.h"
#include "controls/MessageBox.h"
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

/// The control of that name, wherever it stands in the window.
template <class Control>
Control* control(const QWidget& window, const char* name) {
    auto* found = window.findChild<Control*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

inline AdvanceText* field(const QWidget& window, const char* name) {
    return control<AdvanceText>(window, name);
}

/// Focuses a field and types over its text.
void type(const QWidget& window, const char* name, const QString& text);

/// Opens the list of a field and chooses a key with keys or clicks, as a user does.
void choose(const QWidget& window, const char* name, const QString& key);

}  // namespace marvello::testing
