#include "controls/AdvanceText.h"

#include <QEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>

#include "controls/FieldNote.h"
#include "controls/Look.h"
#include "controls/MessageBox.h"
#include "controls/NumberText.h"

namespace marvello {

AdvanceText::AdvanceText(QWidget* parent)
    : QWidget(parent),
      edit_(new QLineEdit(this)),
      captionFont_(lookFont()),
      unitCaptionFont_(lookFont(12)),
      textFont_(lookFont()) {
    edit_->setFrame(false);
    edit_->installEventFilter(this);
    setFocusProxy(edit_);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    connect(edit_, &QLineEdit::textEdited, this, &AdvanceText::takeTyping);
    connect(this, &AdvanceText::partsChanged, this, &AdvanceText::Refresh);
    Refresh();
}

AdvanceText::~AdvanceText() { delete note_; }

void AdvanceText::SetLocked(bool locked) {
    locked_ = locked;
    edit_->setReadOnly(locked);
    edit_->setCursor(locked ? Qt::ArrowCursor : Qt::IBeamCursor);
    edit_->setContextMenuPolicy(locked ? Qt::NoContextMenu : Qt::DefaultContextMenu);
}

void AdvanceText::SetKey(const QString& key) {
    setkey(key);
    emit KeyChange(oldKey_, key_);
}

void AdvanceText::setkey(const QString& key) {
    oldKey_ = key_;
    key_ = key;
}

void AdvanceText::SetCaptionText(const QString& text) {
    captionText_ = text;
    describe();
    update();
}

void AdvanceText::SetUnitCaptiontext(const QString& text) {
    unitCaptionText_ = text;
    describe();
    update();
    emit UnitCaptionTextChange(text);
}

void AdvanceText::SetButtonPicture(const QPixmap& picture) {
    buttonPicture_ = picture;
    update();
}

// What a screen reader says: the name of the value and its unit.
void AdvanceText::describe() {
    const QString name = unitCaptionText_.trimmed().isEmpty()
                             ? captionText_
                             : QStringLiteral("%1, %2").arg(captionText_, unitCaptionText_.trimmed());
    edit_->setAccessibleName(name);
    setAccessibleName(name);
}

std::optional<double> AdvanceText::storedNumber() const {
    return value_.typeId() == QMetaType::Double ? std::optional(value_.toDouble())
                                                : typedNumber(value_.toString());
}

QVariant AdvanceText::TextValue() const { return textType_ == 1 ? QVariant(number()) : value_; }

double AdvanceText::number() const { return storedNumber().value_or(0.0); }

void AdvanceText::SetTextValue(const QVariant& value) {
    unknown_ = false;
    value_ = value;
    // Free text stays as it was written: a description such as "2.60" is no number.
    if (textType_ == 1) {
        const bool isNumber = value.typeId() != QMetaType::QString && value.canConvert<double>();
        if (const auto number = isNumber ? std::optional(value.toDouble()) : typedNumber(value.toString()))
            value_ = *number;
    }
    showValue();
}

QString AdvanceText::TextText() const { return edit_->text(); }

void AdvanceText::SetTextText(const QString& text) { SetTextValue(text); }

void AdvanceText::SetTextFormat(const QString& format) {
    textFormat_ = format;
    showValue();
}

void AdvanceText::SetTextType(int type) {
    textType_ = type;
    if (type == 1) SetTextAlignment(1);
    SetTextValue(value_);
}

int AdvanceText::TextMaxLenght() const { return edit_->maxLength(); }

void AdvanceText::SetTextMaxLenght(int length) {
    constexpr int unlimited = 32767;
    edit_->setMaxLength(length > 0 ? length : unlimited);
}

void AdvanceText::SetTextAlignment(int alignment) {
    textAlignment_ = alignment;
    const Qt::Alignment horizontal = alignment == 1   ? Qt::AlignRight
                                     : alignment == 2 ? Qt::AlignHCenter
                                                      : Qt::AlignLeft;
    edit_->setAlignment(horizontal | Qt::AlignVCenter);
    Refresh();
}

void AdvanceText::SetDerived(bool derived) {
    derived_ = derived;
    applyColours();
}

void AdvanceText::setOpen(bool open) {
    open_ = open;
    update();
}

void AdvanceText::setTabStop(bool stop) { edit_->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }

void AdvanceText::setInvalid(bool invalid) {
    invalid_ = invalid;
    update();
}

void AdvanceText::SetRefusal(const QString& reason) {
    refusal_ = reason;
    showNote();
}

void AdvanceText::SetRemark(const QString& text) {
    remark_ = text;
    showNote();
}

QString AdvanceText::complaint() const {
    if (!refusal_.isEmpty()) return refusal_;
    if (!remark_.isEmpty()) return remark_;
    const bool isLimited = textType_ == 1 && (textMin_ != 0 || textMax_ != 0);
    const auto value = typedNumber(edit_->text());
    if (!isLimited || !value) return {};
    return *value < textMin_ || *value > textMax_ ? limitsText() : QString();
}

QString AdvanceText::limitsText() const {
    return QStringLiteral("Value (Min= %1 Max= %2)")
        .arg(formatNumber(textMin_, {}), formatNumber(textMax_, {}));
}

void AdvanceText::SetUnknown() {
    value_ = QVariant();
    unknown_ = true;
    invalid_ = false;
    showText(QStringLiteral("\u2013"));
    showNote();
}

void AdvanceText::showText(const QString& text) {
    if (edit_->text() != text) edit_->setText(text);
    edit_->setCursorPosition(textAlignment_ == 1 ? static_cast<int>(text.size()) : 0);
}

void AdvanceText::showValue() {
    const bool isDouble = value_.typeId() == QMetaType::Double;
    showText(isDouble ? formatNumber(value_.toDouble(), textFormat_) : value_.toString());
    if (invalid_ && (textType_ != 1 || isDouble)) setInvalid(false);
    showNote();
}

void AdvanceText::takeTyping(const QString& text) {
    value_ = text;
    unknown_ = false;
    refusal_.clear();
    if (invalid_ && typedNumber(text)) setInvalid(false);
    showNote();
    emit TextChange();
}

void AdvanceText::selectText() {
    const QString text = edit_->text();
    const QString body = text.trimmed();
    edit_->setSelection(static_cast<int>(text.indexOf(body)), static_cast<int>(body.size()));
}

void AdvanceText::gotFocus() {
    if (locked_)
        edit_->deselect();  // the line edit selects on a tab, also what cannot be typed over
    else
        selectText();
    showNote();
    emit TextGotFocus();
}

void AdvanceText::lostFocus(Qt::FocusReason reason) {
    showNote();
    emit TextLostFocus();
    // A menu, a drop list or another program only borrows the focus.
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
        reason == Qt::MenuBarFocusReason)
        return;
    edit_->deselect();
    if (textType_ != 1 || unknown_) return;
    const auto value = storedNumber();
    if (value && ((textMin_ == 0 && textMax_ == 0) || (*value >= textMin_ && *value <= textMax_))) {
        validate();
        return;
    }
    // The focus change has to be over before a box may open and the field take the focus back.
    QTimer::singleShot(0, this, [this] {
        if (isVisible() && !validate()) edit_->setFocus();
    });
}

bool AdvanceText::validate() {
    if (unknown_) return true;
    bool cancel = textType_ == 1 && !checkNumber();
    emit TextValidate(cancel);
    if (!cancel) {
        // A valid text is shown again in the field's own format.
        if (textType_ == 1) SetTextValue(number());
        return true;
    }
    setInvalid(textType_ == 1 && !storedNumber());
    return false;
}

bool AdvanceText::checkNumber() {
    const auto refuse = [this](const QString& text) {
        MessageBox::show(this, MessageBox::Mark::critical, text);
    };
    const auto notNumeric = QStringLiteral("Error. Only Numeric value");
    if (!storedNumber()) {
        setInvalid(true);
        refuse(notNumeric);
        return false;
    }
    if (textMin_ == 0 && textMax_ == 0) return true;
    if (!typedNumber(edit_->text())) {
        refuse(notNumeric);
        edit_->undo();
        selectText();
        return true;
    }
    const double value = number();
    if (value >= textMin_ && value <= textMax_) return true;
    refuse(QStringLiteral("Error...\n") + limitsText());
    SetTextValue(value >= textMin_ ? textMax_ : textMin_);
    return false;
}

// True when the key is used up.
bool AdvanceText::handleKeyPress(int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool isCharacter = !text.isEmpty() && key != Qt::Key_Tab && key != Qt::Key_Backtab &&
                             key != Qt::Key_Escape &&
                             !(modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (locked_) {
        const bool opens = isCharacter || key == Qt::Key_Down || key == Qt::Key_Up || key == Qt::Key_F4;
        if (opens && buttonVisible_) emit ButtonClick();
        return opens;
    }
    if (isCharacter) emit KeyPress(isEnter ? enterCode : text.front().unicode());
    return false;
}

bool AdvanceText::eventFilter(QObject* watched, QEvent* event) {
    if (watched != edit_) return QWidget::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::FocusIn:
            edit_->event(event);
            gotFocus();
            // The click that brought the focus places the cursor yet.
            if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
                QTimer::singleShot(0, this, [this] {
                    if (edit_->hasFocus() && !locked_ && !edit_->hasSelectedText()) selectText();
                });
            return true;
        case QEvent::FocusOut:
            edit_->event(event);
            lostFocus(static_cast<QFocusEvent*>(event)->reason());
            return true;
        case QEvent::KeyPress: {
            const auto* key = static_cast<QKeyEvent*>(event);
            return handleKeyPress(key->key(), key->text(), key->modifiers());
        }
        case QEvent::KeyRelease: {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (key->key() == Qt::Key_F2) selectText();
            emit KeyUp(key->key(), static_cast<int>(key->modifiers() >> 25));
            return false;
        }
        case QEvent::MouseButtonPress:
            if (!locked_ || !buttonVisible_) return false;
            edit_->setFocus(Qt::MouseFocusReason);
            emit ButtonClick();
            return true;
        default:
            return false;
    }
}

}  // namespace marvello
