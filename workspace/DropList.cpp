#include "workspace/DropList.h"

#include <QWidget>

#include "controls/AdvanceText.h"
#include "controls/ctlCombo.h"

namespace marvello {

DropList::DropList(QWidget* window) : QObject(window), combo_(new ctlCombo(window)) {
    combo_->setObjectName(QStringLiteral("ctlCombo1"));
    connect(combo_, &ctlCombo::Choice, this, &DropList::take);
    connect(combo_, &ctlCombo::Closed, this, &DropList::close);
}

void DropList::serve(AdvanceText* field, bool checkBoxes) {
    connect(field, &AdvanceText::ButtonClick, this, [this, field, checkBoxes] { open(field, checkBoxes); });
}

void DropList::open(AdvanceText* field, bool checkBoxes) {
    combo_->hide();
    field_ = field;
    checkBoxes_ = checkBoxes;
    combo_->Populate(field->Tag1(), field->Key(), false, checkBoxes);
    combo_->SetCaption(field->CaptionText());
    combo_->openUnder(field->globalBox());
    field->setOpen(true);
}

void DropList::take(const QString& key, const QString& text) {
    AdvanceText* field = field_;
    if (!field) return;
    // The text first: who hears of the new key may read both.
    field->SetTextValue(checkBoxes_ && key != u"*" ? key : text);
    field->SetKey(key);
}

void DropList::close() {
    if (!field_) return;
    field_->setOpen(false);
    field_->setFocus(Qt::PopupFocusReason);
}

}  // namespace marvello
