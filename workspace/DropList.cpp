#include "workspace/DropList.h"

#include <QKeyEvent>
#include <QWidget>

#include "controls/AdvanceText.h"
#include "controls/ctlCombo.h"
#include "data/Texts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

DropList::DropList(QWidget* window) : QObject(window) {}

void DropList::makeCombo() {
    combo_ = new ctlCombo(static_cast<QWidget*>(parent()));
    combo_->setObjectName(QStringLiteral("ctlCombo1"));
    connect(combo_, &ctlCombo::Choice, this, &DropList::take);
    connect(combo_, &ctlCombo::Closed, this, &DropList::close);
}

void DropList::serve(AdvanceText* field, bool checkBoxes, const Details& details) {
    // A letter that opens the list is the first of the name that is meant.
    field->focusProxy()->installEventFilter(this);
    connect(field, &AdvanceText::ButtonClick, this,
            [this, field, checkBoxes, details] { open(field, checkBoxes, details); });
}

bool DropList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) typed_.clear();
    if (event->type() == QEvent::KeyPress)
        if (const QString text = static_cast<QKeyEvent*>(event)->text();
            !text.isEmpty() && text.front().isPrint())
            typed_ = text;
    return QObject::eventFilter(watched, event);
}

void DropList::open(AdvanceText* field, bool checkBoxes, const Details& details) {
    if (!combo_) makeCombo();
    combo_->hide();
    field_ = field;
    checkBoxes_ = checkBoxes;
    combo_->Populate(field->Tag1(), field->Key(), false, checkBoxes);
    if (details) combo_->setDetails(details);
    combo_->SetCaption(field->CaptionText());
    if (checkBoxes) combo_->setApplyText(dictionaryText(QStringLiteral("frmselection.apply")));
    combo_->openUnder(field->globalBox());
    if (!typed_.isEmpty()) combo_->search(typed_);
    typed_.clear();
    field->setOpen(true);
}

void DropList::take(const QString& key, const QString& text) {
    AdvanceText* field = field_;
    // The entry that is chosen already changes nothing.
    if (!field || key == field->Key()) return;
    const QString known = fromCore(ListLookup(toCore(key), toCore(field->Tag1())));
    // The text first: who hears of the new key may read both.
    field->SetTextValue(checkBoxes_ && key != u"*" ? key : known.isEmpty() ? text : known);
    field->SetKey(key);
}

void DropList::close() {
    if (!field_) return;
    field_->setOpen(false);
    field_->setFocus(Qt::PopupFocusReason);
}

}  // namespace marvello
