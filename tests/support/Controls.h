#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include "controls/AdvanceText.h"
#include "controls/ctlCombo.h"

/// The controls of a window by their names, and what a user does with them.
namespace marvello::testing {

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
inline void type(const QWidget& window, const char* name, const QString& text) {
    auto* edit = field(window, name)->findChild<QLineEdit*>();
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
}

/// Opens the list of a field with Down and chooses the entry of a key.
inline void choose(const QWidget& window, const char* name, const QString& key) {
    QTest::keyClick(field(window, name)->findChild<QLineEdit*>(), Qt::Key_Down);
    auto* combo = qobject_cast<ctlCombo*>(QApplication::activePopupWidget());
    ASSERT_NE(combo, nullptr) << name << " opened no list";
    auto* list = combo->findChild<QListWidget*>();
    for (int row = 0; row < list->count(); ++row)
        if (list->item(row)->data(Qt::UserRole).toString() == u'@' + key) {
            list->setCurrentRow(row);
            // A box is ticked; a plain row is chosen as it is.
            if (list->item(row)->data(Qt::CheckStateRole).isValid()) QTest::keyClick(list, Qt::Key_Space);
            QTest::keyClick(list, Qt::Key_Return);
            return;
        }
    FAIL() << "no " << key.toStdString() << " in the list of " << name;
}

}  // namespace marvello::testing
