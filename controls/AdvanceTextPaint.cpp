// How an AdvanceText is laid out and painted.

#include <QApplication>
#include <QFontMetricsF>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "controls/Accessibility.h"
#include "controls/AdvanceText.h"
#include "controls/FieldFrame.h"
#include "controls/FieldNote.h"
#include "controls/Icons.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int captionGap = 8;
constexpr int unitGap = 5;

Qt::Alignment alignmentOf(int alignment) {
    const Qt::Alignment horizontal = alignment == 1   ? Qt::AlignRight
                                     : alignment == 2 ? Qt::AlignHCenter
                                                      : Qt::AlignLeft;
    return horizontal | Qt::AlignVCenter;
}

const QColor& orElse(const QColor& chosen, const QColor& token) { return chosen.isValid() ? chosen : token; }

}  // namespace

QSize AdvanceText::sizeHint() const {
    return {(captionVisible_ ? captionWidth_ : 0) + 106 + 2 * halo, boxHeight + 2 * halo};
}

QSize AdvanceText::minimumSizeHint() const { return {60, boxHeight + 2 * halo}; }

QRectF AdvanceText::captionRect() const {
    return captionVisible_ ? QRectF(halo, halo, captionWidth_, boxHeight) : QRectF();
}

QRectF AdvanceText::boxRect() const {
    const int left = halo + (captionVisible_ ? captionWidth_ : 0);
    return {static_cast<qreal>(left), halo, static_cast<qreal>(width() - halo - left), boxHeight};
}

QRectF AdvanceText::buttonRect() const {
    if (!buttonVisible_ || !isEnabled()) return {};
    const QRectF box = boxRect();
    return {box.right() - 1 - buttonWidth_, box.top() + 1, static_cast<qreal>(buttonWidth_),
            box.height() - 2};
}

QRectF AdvanceText::unitRect() const {
    if (!unitCaptionVisible_) return {};
    const QRectF box = boxRect();
    const qreal right = box.right() - 1 - (buttonVisible_ ? buttonWidth_ : 0);
    return {right - unitCaptionWidth_, box.top(), static_cast<qreal>(unitCaptionWidth_), box.height()};
}

QRect AdvanceText::globalBox() const {
    const QRect box = boxRect().toRect();
    return {mapToGlobal(box.topLeft()), box.size()};
}

double AdvanceText::TextLeft() const { return boxRect().left(); }

double AdvanceText::TextWidth() const {
    return boxRect().width() - (unitCaptionVisible_ ? unitCaptionWidth_ : 0) -
           (buttonVisible_ ? buttonWidth_ : 0);
}

void AdvanceText::Refresh() {
    const QRectF box = boxRect();
    constexpr int inner = 2;  // what a line edit keeps free at its sides
    const bool isNumber = textAlignment_ == 1;
    const double left = box.left() + 1 + (isNumber ? 4 : 8) - inner;
    double right = box.right() - 1 - (isNumber ? unitGap : 4) + inner;
    if (unitCaptionVisible_)
        right = unitRect().left() - unitGap + inner;
    else if (buttonVisible_)
        right -= buttonWidth_;
    edit_->setGeometry(QRectF(left, box.top() + 1, std::max(0.0, right - left), box.height() - 2).toRect());
    edit_->setFont(textFont_);
    applyColours();
    if (wasChoice_ != isChoice()) renewAccessibility(edit_);
    wasChoice_ = isChoice();
}

void AdvanceText::applyColours() {
    const Look& look = Look::current();
    QPalette palette = edit_->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Disabled, QPalette::Base, Qt::transparent);
    const QColor text = orElse(textForeColor_, derived_ ? look.muted : look.text);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Text, text);
        palette.setColor(group, QPalette::Highlight, look.accent);
        palette.setColor(group, QPalette::HighlightedText, look.onAccent);
    }
    palette.setColor(QPalette::Disabled, QPalette::Text, look.disabled);
    edit_->setPalette(palette);
    update();
}

void AdvanceText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintCaption(painter);
    paintBox(painter);
    paintButton(painter);
    paintUnit(painter);
}

void AdvanceText::paintCaption(QPainter& painter) const {
    if (!captionVisible_) return;
    const Look& look = Look::current();
    QRectF rect = captionRect();
    if (captionBackColor_.isValid()) painter.fillRect(rect, captionBackColor_);
    rect.setRight(rect.right() - captionGap);
    painter.setFont(captionFont_);
    painter.setPen(isEnabled() ? orElse(captionForeColor_, look.muted) : look.disabled);
    const QString text =
        QFontMetricsF(captionFont_).elidedText(captionText_, Qt::ElideRight, rect.width() + 1);
    painter.drawText(rect, static_cast<int>(alignmentOf(captionAlignment_)), text);
}

void AdvanceText::paintBox(QPainter& painter) const {
    FieldFrame{.isFocused = state_.isActive(),
               .isHovered = state_.isHovered(),
               .isInvalid = isInvalid(),
               .isEnabled = isEnabled(),
               .border = textBordersColor_,
               .ground = textBackColor_}
        .paint(painter, boxRect());
}

void AdvanceText::paintUnit(QPainter& painter) const {
    if (!unitCaptionVisible_) return;
    const Look& look = Look::current();
    if (unitCaptionBackColor_.isValid())
        painter.fillRect(unitRect().adjusted(0, 1, 0, -1), unitCaptionBackColor_);
    painter.setFont(unitCaptionFont_);
    painter.setPen(isEnabled() ? orElse(unitCaptionForeColor_, look.muted) : look.disabled);
    painter.drawText(unitRect(), static_cast<int>(alignmentOf(unitCaptionAlignment_)),
                     unitCaptionText_.trimmed());
}

void AdvanceText::paintButton(QPainter& painter) const {
    const QRectF rect = buttonRect();
    if (rect.isEmpty()) return;
    const Look& look = Look::current();
    const bool down = state_.isDown();
    const QColor ground = down ? orElse(buttonBackColorOnClick_, look.accentTint) : buttonBackColor_;
    if (ground.isValid()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect, 3, 3);
        painter.drawRect(rect.adjusted(0, 0, -4, 0));
    }
    QRectF place(0, 0, 14, 14);
    place.moveCenter(rect.center());
    if (!buttonPicture_.isNull()) {
        painter.drawPixmap(place.toRect(), buttonPicture_);
        return;
    }
    const QColor& rest = state_.isHovered() ? look.text : look.muted;
    paintIcon(painter, place, QStringLiteral("chev"), down ? look.accent : orElse(buttonForeColor_, rest));
}

// Next to the field while it is in use; the red frame stays when it is left.
void AdvanceText::showNote() {
    update();
    const QString wrong = complaint();
    edit_->setAccessibleDescription(wrong);
    const QString text = !edit_->hasFocus() ? QString() : wrong.isEmpty() ? readingText() : wrong;
    if (text.isEmpty()) {
        if (note_) note_->hide();
        return;
    }
    if (note_ && note_->parentWidget() != window()) delete note_;
    if (!note_) note_ = new FieldNote(*this);
    note_->say(text, *this, boxRect().toRect(),
               wrong.isEmpty() ? FieldNote::Kind::reading : FieldNote::Kind::fault);
}

void AdvanceText::resizeEvent(QResizeEvent*) {
    Refresh();
    showNote();
}

void AdvanceText::hideEvent(QHideEvent* event) {
    if (note_) note_->hide();
    apply(FieldState::Event::hiddenOrDisabled);
    if (!event->spontaneous()) isInUse_ = false;
    QWidget::hideEvent(event);
}

void AdvanceText::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        if (!isEnabled()) apply(FieldState::Event::hiddenOrDisabled);
        Refresh();
    }
    QWidget::changeEvent(event);
}

bool AdvanceText::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::HoverEnter:
        case QEvent::HoverLeave:
        case QEvent::HoverMove: {
            const QPointF place = event->type() == QEvent::HoverLeave
                                      ? QPointF(-1, -1)
                                      : static_cast<QHoverEvent*>(event)->position();
            const bool isInside = boxRect().contains(place) && isEnabled();
            apply(isInside ? FieldState::Event::mouseEntered : FieldState::Event::mouseLeft);
            break;
        }
        case QEvent::ToolTip: {
            const auto* help = static_cast<QHelpEvent*>(event);
            if (const QString wrong = complaint(); !wrong.isEmpty()) {
                QToolTip::showText(help->globalPos(), wrong, this);
                return true;
            }
            const bool elided =
                QFontMetricsF(captionFont_).horizontalAdvance(captionText_) > captionWidth_ - captionGap + 1;
            if (captionVisible_ && elided && captionRect().contains(help->pos())) {
                QToolTip::showText(help->globalPos(), captionText_, this);
                return true;
            }
            break;
        }
        default:
            break;
    }
    return QWidget::event(event);
}

void AdvanceText::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !boxRect().contains(event->position())) return;
    edit_->setFocus(Qt::MouseFocusReason);
    if (!buttonRect().contains(event->position())) return;
    apply(FieldState::Event::buttonPressed);
    emit ButtonClick();
}

void AdvanceText::mouseReleaseEvent(QMouseEvent*) { apply(FieldState::Event::buttonReleased); }

bool AdvanceText::isUnderPointer() const {
    const QPoint place = QCursor::pos();
    const QWidget* const under = QApplication::widgetAt(place);
    return isEnabled() && under && (under == this || isAncestorOf(under)) &&
           boxRect().contains(mapFromGlobal(place));
}

}  // namespace marvello
