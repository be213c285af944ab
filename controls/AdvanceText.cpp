#include "controls/AdvanceText.h"

#include <QApplication>
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

namespace {

const QString notNumeric = QStringLiteral("Error. Only Numeric value");

/// The form that a widget is part of: its window, or the child window of the frame.
const QWidget* formOf(const QWidget* widget) {
    while (widget && !widget->isWindow() && widget->windowType() != Qt::SubWindow)
        widget = widget->parentWidget();
    return widget;
}

/// Runs `action` once the mouse is up and the event in hand is over: a box that opened sooner would swallow
/// the release of a click. Nothing if `owner` is gone by then.
void onceMouseIsUp(QObject* owner, const std::function<void()>& action) {
    constexpr int retry = 10;  // milliseconds
    const bool isDown = QApplication::mouseButtons() != Qt::NoButton;
    QTimer::singleShot(isDown ? retry : 0, owner, [owner, action] {
        if (QApplication::mouseButtons() == Qt::NoButton)
            action();
        else
            onceMouseIsUp(owner, action);
    });
}

}  // namespace

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
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
        if (!isInUse_ || !now || now == edit_ || formOf(now) != formOf(this)) return;
        isInUse_ = false;
        if (before == edit_) leave();  // else another window gave the focus back
    });
    Refresh();
}

AdvanceText::~AdvanceText() { delete note_; }

void AdvanceText::SetLocked(bool locked) {
    locked_ = locked;
    edit_->setReadOnly(locked);
    edit_->setCursor(locked ? Qt::ArrowCursor : Qt::IBeamCursor);
    edit_->setContextMenuPolicy(locked ? Qt::NoContextMenu : Qt::DefaultContextMenu);
    Refresh();
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
    emit described();
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

void AdvanceText::SetNamedBy(AdvanceText* selector) {
    namedBy_ = selector;
    connect(selector, &AdvanceText::described, this, &AdvanceText::describe);
    describe();
}

// What a screen reader says: the name of the value and its unit.
void AdvanceText::describe() {
    QString name = captionText_;
    if (name.isEmpty() && namedBy_)
        name = QStringLiteral("%1: %2").arg(namedBy_->CaptionText(), namedBy_->TextText());
    if (const QString unit = unitCaptionText_.trimmed(); !unit.isEmpty()) name += QStringLiteral(", ") + unit;
    edit_->setAccessibleName(name);
    setAccessibleName(name);
}

TypedReading AdvanceText::read(const QString& text) const {
    return reader_ ? reader_(text) : TypedReading{.value = typedNumber(text)};
}

std::optional<double> AdvanceText::storedNumber() const {
    return value_.typeId() == QMetaType::Double ? std::optional(value_.toDouble())
                                                : read(value_.toString()).value;
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

void AdvanceText::apply(FieldState::Event event) {
    if (state_.take(event)) update();
}

void AdvanceText::setOpen(bool open) {
    apply(open ? FieldState::Event::listOpened : FieldState::Event::listClosed);
    if (open) return;
    apply(isUnderPointer() ? FieldState::Event::mouseEntered : FieldState::Event::mouseLeft);
}

void AdvanceText::setTabStop(bool stop) { edit_->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus); }

void AdvanceText::SetRefusal(const QString& reason) {
    fault_.set(FieldFault::Reason::refused, reason);
    showNote();
}

void AdvanceText::SetRemark(const QString& text) {
    fault_.set(FieldFault::Reason::remarked, text);
    showNote();
}

bool AdvanceText::isInRange(double value) const {
    return !isLimited() || (value >= textMin_ && value <= textMax_);
}

void AdvanceText::checkRange() {
    const auto value = textType_ == 1 ? read(edit_->text()).value : std::nullopt;
    fault_.set(FieldFault::Reason::outOfRange, value && !isInRange(*value) ? limitsText() : QString());
}

QString AdvanceText::limitsText() const {
    return QStringLiteral("Value (Min= %1 Max= %2)")
        .arg(formatNumber(textMin_, QStringView()), formatNumber(textMax_, QStringView()));
}

QString AdvanceText::readingText() const {
    if (textType_ != 1 || unknown_ || value_.typeId() == QMetaType::Double) return {};
    const QString text = value_.toString();
    const TypedReading reading = read(text);
    if (!reading.value || reading.isPlain) return {};
    return QStringLiteral("%1 = %2 %3")
        .arg(text.trimmed(), formatNumber(*reading.value, textFormat_), unitCaptionText_.trimmed());
}

void AdvanceText::SetUnknown() {
    value_ = QVariant();
    unknown_ = true;
    fault_.clear(FieldFault::Reason::notNumeric);
    showText(QStringLiteral("\u2013"));
    showNote();
}

void AdvanceText::showText(const QString& text) {
    if (edit_->text() != text) {
        edit_->setText(text);
        emit described();
    }
    edit_->setCursorPosition(textAlignment_ == 1 ? static_cast<int>(text.size()) : 0);
}

void AdvanceText::showValue() {
    const bool isDouble = value_.typeId() == QMetaType::Double;
    showText(isDouble ? formatNumber(value_.toDouble(), textFormat_) : value_.toString());
    if (textType_ != 1 || isDouble) fault_.clear(FieldFault::Reason::notNumeric);
    checkRange();
    showNote();
}

void AdvanceText::takeTyping(const QString& text) {
    value_ = text;
    unknown_ = false;
    fault_.clear(FieldFault::Reason::refused);
    const TypedReading reading = read(text);
    if (reading.value)
        fault_.clear(FieldFault::Reason::notNumeric);
    else if (textType_ == 1 && !reading.isUnfinished)
        fault_.set(FieldFault::Reason::notNumeric, notNumeric);
    checkRange();
    showNote();
    emit TextChange();
}

void AdvanceText::commit() {
    if (textType_ != 1 || unknown_ || value_.typeId() == QMetaType::Double) return;
    const TypedReading reading = read(value_.toString());
    if (!reading.value || reading.isPlain) return;
    SetTextValue(*reading.value);
    emit TextChange();
}

void AdvanceText::selectText() {
    const QString text = edit_->text();
    const QString body = text.trimmed();
    edit_->setSelection(static_cast<int>(text.indexOf(body)), static_cast<int>(body.size()));
}

void AdvanceText::gotFocus(Qt::FocusReason reason) {
    const bool wasBorrowed = isInUse_ && (reason == Qt::ActiveWindowFocusReason ||
                                          reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason);
    isInUse_ = true;
    if (locked_)
        edit_->deselect();  // the line edit selects on a tab, also what cannot be typed over
    else if (!wasBorrowed)
        selectText();
    apply(FieldState::Event::focusGained);
    showNote();
    emit TextGotFocus();
}

void AdvanceText::leave() {
    edit_->deselect();
    commit();
    const auto value = storedNumber();
    const bool isGood = textType_ == 1 && !unknown_ && value && isInRange(*value);
    if (isGood) validate();
    onceMouseIsUp(this, [this, isGood] {
        // Closed meanwhile, in use again, or in the hands of a box that says what there is to say.
        const QWidget* const box = QApplication::activeModalWidget();
        if (!isVisible() || isInUse_ || (box && box != window())) return;
        if (!isGood && textType_ == 1 && !validate())
            edit_->setFocus();
        else
            emit TextLostFocus();
    });
}

bool AdvanceText::validate() {
    if (unknown_) return true;
    commit();
    bool cancel = textType_ == 1 && !checkNumber();
    emit TextValidate(cancel);
    if (!cancel) {
        // A valid text is shown again in the field's own format.
        if (textType_ == 1) SetTextValue(number());
        return true;
    }
    if (textType_ == 1 && !storedNumber()) fault_.set(FieldFault::Reason::notNumeric, notNumeric);
    showNote();
    return false;
}

bool AdvanceText::checkNumber() {
    const auto refuse = [this](const QString& text) {
        MessageBox::show(this, MessageBox::Mark::critical, text);
    };
    if (!storedNumber()) {
        fault_.set(FieldFault::Reason::notNumeric, notNumeric);
        update();
        refuse(notNumeric);
        return false;
    }
    if (!isLimited()) return true;
    if (!read(edit_->text()).value) {
        refuse(notNumeric);
        edit_->undo();
        selectText();
        return true;
    }
    const double value = number();
    if (isInRange(value)) return true;
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
    // What is typed may be chosen as well.
    if (buttonVisible_ && (key == Qt::Key_Down || key == Qt::Key_F4)) {
        emit ButtonClick();
        return true;
    }
    if (isEnter) commit();
    if (isCharacter) emit KeyPress(isEnter ? enterCode : text.front().unicode());
    return false;
}

bool AdvanceText::eventFilter(QObject* watched, QEvent* event) {
    if (watched != edit_) return QWidget::eventFilter(watched, event);
    switch (event->type()) {
        case QEvent::FocusIn:
            edit_->event(event);
            gotFocus(static_cast<QFocusEvent*>(event)->reason());
            // The click that brought the focus places the cursor yet.
            if (static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason)
                QTimer::singleShot(0, this, [this] {
                    if (edit_->hasFocus() && !locked_ && !edit_->hasSelectedText()) selectText();
                });
            return true;
        case QEvent::FocusOut:
            edit_->event(event);
            apply(FieldState::Event::focusLost);
            showNote();
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
