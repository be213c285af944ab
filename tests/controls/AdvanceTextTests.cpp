#include "controls/AdvanceText.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>
#include <memory>

#include "controls/MessageBox.h"

using namespace marvello;

namespace {

/// A window with a numeric field and one after it, and the boxes that were shown.
class AdvanceTextTest : public testing::Test {
  protected:
    void SetUp() override {
        before_ = MessageBox::setHandler([this](MessageBox::Mark, const QString& text) { boxes += text; });
        field->SetTextType(1);
        field->SetTextFormat("#0.00");
        field->SetTextValue(2);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        next->setFocus();
    }
    void TearDown() override {
        MessageBox::setHandler(before_);
        QLocale::setDefault(QLocale::c());
    }

    QLineEdit* edit() const { return field->findChild<QLineEdit*>(); }
    void type(const QString& text) {
        field->setFocus();
        QTest::keyClicks(edit(), text);
    }
    /// Tab out of the field, with what follows in the event queue.
    void leave() {
        QTest::keyClick(edit(), Qt::Key_Tab);
        QApplication::processEvents();
    }

    AdvanceText* added() {
        auto* made = new AdvanceText(&window);
        layout->addWidget(made);
        return made;
    }

    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    AdvanceText* field = added();
    AdvanceText* next = added();
    QStringList boxes;

  private:
    MessageBox::Handler before_;
};

}  // namespace

TEST_F(AdvanceTextTest, TypingReplacesTheWholeTextAndIsReportedEachTime) {
    QSignalSpy changes(field, &AdvanceText::TextChange);
    type("1.5");
    EXPECT_EQ(field->TextText(), "1.5");
    EXPECT_EQ(changes.count(), 3);
    EXPECT_EQ(field->number(), 1.5);
    leave();
    EXPECT_TRUE(boxes.isEmpty());
    EXPECT_EQ(field->TextText(), "1.50");
}

TEST_F(AdvanceTextTest, AWriteOfTheProgramIsNotTyping) {
    QSignalSpy changes(field, &AdvanceText::TextChange);
    field->setFocus();
    field->SetTextValue(7.126);
    field->SetTextText("8");
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(field->TextText(), "8.00");
    EXPECT_EQ(field->TextValue().toDouble(), 8.0);
}

TEST_F(AdvanceTextTest, BothMarksAreTheSameNumberInAGermanLocale) {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    type("1.5");
    EXPECT_EQ(field->number(), 1.5);
    leave();
    EXPECT_EQ(field->TextText(), "1,50");
    type("1234,5");
    leave();
    EXPECT_EQ(field->number(), 1234.5);
    EXPECT_EQ(field->TextText(), "1234,50");
}

TEST_F(AdvanceTextTest, ATextThatIsNoNumberKeepsTheFocusUntilCorrected) {
    type("1.2.3");
    leave();
    EXPECT_EQ(boxes, QStringList("Error. Only Numeric value"));
    EXPECT_TRUE(edit()->hasFocus());
    EXPECT_TRUE(field->isInvalid());
    EXPECT_EQ(field->number(), 0.0);
    QTest::keyClick(edit(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit(), "3");
    EXPECT_FALSE(field->isInvalid());
    leave();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_FALSE(edit()->hasFocus());
}

TEST_F(AdvanceTextTest, AValueOutOfRangeIsBroughtToTheNearerBound) {
    field->setProperty("TextMin", 0.0);
    field->setProperty("TextMax", 30.0);
    type("31");
    leave();
    ASSERT_EQ(boxes, QStringList("Error...\nValue (Min= 0 Max= 30)"));
    EXPECT_EQ(field->number(), 30.0);
    EXPECT_TRUE(edit()->hasFocus());
    type("-1");
    leave();
    EXPECT_EQ(field->number(), 0.0);
    EXPECT_EQ(boxes.size(), 2);
}

TEST_F(AdvanceTextTest, TheOwnerMayRefuseAValue) {
    QObject::connect(field, &AdvanceText::TextValidate, field, [](bool& cancel) { cancel = true; });
    field->setFocus();
    EXPECT_FALSE(field->validate());
    EXPECT_TRUE(boxes.isEmpty());
}

TEST_F(AdvanceTextTest, ALockedFieldDropsKeysAndAsksForItsList) {
    field->SetTextType(0);
    field->SetLocked(true);
    field->setProperty("ButtonVisible", true);
    field->SetTextText("R134A");
    QSignalSpy clicks(field, &AdvanceText::ButtonClick);
    field->setFocus();
    QTest::keyClicks(edit(), "x");
    QTest::keyClick(edit(), Qt::Key_Down);
    QTest::keyClick(edit(), Qt::Key_Escape);
    EXPECT_EQ(clicks.count(), 2);
    EXPECT_EQ(field->TextText(), "R134A");
    QTest::keyClick(edit(), Qt::Key_Tab);
    EXPECT_FALSE(edit()->hasFocus());
}

TEST_F(AdvanceTextTest, FocusAndF2SelectTheText) {
    field->setFocus();
    EXPECT_EQ(edit()->selectedText(), "2.00");
    edit()->deselect();
    QTest::keyClick(edit(), Qt::Key_F2);
    EXPECT_EQ(edit()->selectedText(), "2.00");
}

TEST_F(AdvanceTextTest, UndoTakesTypingBack) {
    type("9");
    QTest::keySequence(edit(), QKeySequence::Undo);
    EXPECT_EQ(field->TextText(), "2.00");
    EXPECT_EQ(field->number(), 2.0);
}

TEST_F(AdvanceTextTest, KeysAreReportedWithTheKeyBefore) {
    QSignalSpy changes(field, &AdvanceText::KeyChange);
    field->setkey("a");
    field->SetKey("b");
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0], (QVariantList{"a", "b"}));
    EXPECT_EQ(field->OldKey(), "a");
}

TEST_F(AdvanceTextTest, NoMoreIsTypedThanTheGreatestLength) {
    field->setProperty("TextMaxLenght", 3);
    type("12345");
    EXPECT_EQ(field->TextText(), "123");
}

TEST_F(AdvanceTextTest, AListThatOpensTakesOverThePressedButtonAndTheMouse) {
    using Event = FieldState::Event;
    next->SetLocked(true);
    next->setProperty("ButtonVisible", true);
    QObject::connect(next, &AdvanceText::ButtonClick, next, [this] { next->setOpen(true); });
    next->setFocus();
    const QPoint button(next->width() - AdvanceText::halo - 8, next->height() / 2);
    QTest::mouseMove(next, button);
    QTest::mousePress(next, Qt::LeftButton, Qt::NoModifier, button);
    EXPECT_TRUE(next->state().isDown());
    // The release goes to the list, and the mouse is elsewhere when it closes.
    QCursor::setPos(field->mapToGlobal(QPoint(1, 1)));
    next->setOpen(false);
    EXPECT_FALSE(next->state().isDown());
    EXPECT_FALSE(next->state().isHovered());
    EXPECT_TRUE(next->state().isActive()) << "the focus is its own";
    field->setFocus();
    EXPECT_EQ(next->state(), FieldState());

    // Nothing stays of a field that is put away under the mouse.
    FieldState state;
    for (const Event event :
         {Event::mouseEntered, Event::buttonPressed, Event::listOpened, Event::hiddenOrDisabled})
        EXPECT_TRUE(state.take(event));
    EXPECT_FALSE(state.take(Event::listClosed));
    EXPECT_EQ(state, FieldState());
}

TEST_F(AdvanceTextTest, TheFirstOfSeveralFaultsSpeaks) {
    field->setProperty("TextMax", 30.0);
    field->SetRemark("remark");
    field->SetRefusal("refusal");
    type("31");
    EXPECT_EQ(field->complaint(), "remark") << "typing takes the refusal back";
    field->SetRemark({});
    EXPECT_EQ(field->complaint(), "Value (Min= 0 Max= 30)");
    field->SetTextValue(30);
    EXPECT_FALSE(field->isInvalid());
}

TEST_F(AdvanceTextTest, BothEnterKeysAreACarriageReturn) {
    const QSignalSpy keys(field, &AdvanceText::KeyPress);
    field->setFocus();
    QTest::keyClick(edit(), Qt::Key_Return);
    QTest::keyClick(edit(), Qt::Key_Enter);
    ASSERT_EQ(keys.size(), 2);
    for (const auto& key : keys) EXPECT_EQ(key[0].toInt(), 13);
}

TEST_F(AdvanceTextTest, TheToolTipSaysWhatIsWrong) {
    const auto toolTip = [this] {
        QHelpEvent event(QEvent::ToolTip, field->rect().center(), field->mapToGlobal(field->rect().center()));
        QApplication::sendEvent(field, &event);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTip(), "");
    field->SetRefusal("No such state");
    EXPECT_EQ(toolTip(), "No such state");
}
