#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>

namespace marvello::testing {

/// Answers modal dialogs one after the other while this lives.
class Person {
  public:
    explicit Person(std::deque<std::function<void(QWidget&)>> answers) : answers_(std::move(answers)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog || isAnswering_) return;
            if (answers_.empty()) {
                ADD_FAILURE() << "a dialog that no one expects: " << dialog->windowTitle().toStdString();
                dialog->close();
                return;
            }
            isAnswering_ = true;
            answers_.front()(*dialog);
            answers_.pop_front();
            isAnswering_ = false;
        });
        timer_.start(5);
    }
    ~Person() { EXPECT_TRUE(answers_.empty()) << "a dialog did not come"; }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

  private:
    std::deque<std::function<void(QWidget&)>> answers_;
    QTimer timer_;
    bool isAnswering_ = false;
};

inline void press(QWidget& dialog, QDialogButtonBox::StandardButton which) {
    auto* button = dialog.findChild<QDialogButtonBox*>()->button(which);
    ASSERT_NE(button, nullptr);
    QTest::mouseClick(button, Qt::LeftButton);
}

/// Types a name into the dialog of an export, chooses a filter and presses its button.
inline auto saveAs(const QString& name, const QString& filter) {
    return [=](QWidget& widget) {
        auto* dialog = qobject_cast<QFileDialog*>(&widget);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Export to...");
        EXPECT_TRUE(dialog->nameFilters().contains(filter));
        dialog->selectNameFilter(filter);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(name);
        press(widget, QDialogButtonBox::Save);
    };
}

}  // namespace marvello::testing
