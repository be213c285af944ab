#include "controls/TagBox.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <utility>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/ctlCombo.h"

namespace marvello {

namespace {

constexpr int halo = FieldFrame::halo;
constexpr int lineHeight = 28;  // of the box with one line of tags
constexpr int tagHeight = 22;
constexpr int pitch = 26;
constexpr int inset = 3;
constexpr int tagGap = 4;
constexpr int tagPadding = 7;
constexpr int crossSide = 10;
constexpr int crossRoom = 5 + crossSide + 5;
constexpr int buttonWidth = 26;
constexpr int captionGap = 8;

const QString allKey = QStringLiteral("*");

QFont tagFont() { return lookFont(12); }

}  // namespace

TagBox::TagBox(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
}

void TagBox::setCaption(const QString& caption, int width) {
    caption_ = caption;
    captionWidth_ = width;
    setAccessibleName(caption);
    update();
}

void TagBox::setEmptyText(const QString& text) {
    emptyText_ = text;
    setChosen(chosen_);
}

void TagBox::setChoices(const QStringList& keys, const Details& details) {
    choices_ = keys;
    details_ = details;
    setChosen(chosen_);
}

void TagBox::setChosen(const QStringList& keys) {
    chosen_.clear();
    for (const QString& choice : choices_)
        if (keys.contains(choice, Qt::CaseInsensitive)) chosen_ += choice;
    hovered_ = pressed_ = -1;
    setAccessibleDescription(isInvalid() ? emptyText_ : chosen_.join(QStringLiteral(", ")));
    updateGeometry();
    update();
    QAccessibleValueChangeEvent changed(this, chosen_.join(QStringLiteral(", ")));
    QAccessible::updateAccessibility(&changed);
}

RowDetail TagBox::detailOf(const QString& key) const { return details_ ? details_(key) : RowDetail{}; }

void TagBox::choose(const QStringList& keys) {
    if (keys == chosen_) return;
    setChosen(keys);
    emit chosenByUser();
}

void TagBox::takeOff(qsizetype tag) {
    QStringList left = chosen_;
    left.removeAt(tag);
    choose(left);
}

QRect TagBox::boxFor(int width, int height) const {
    const int left = halo + captionWidth_;
    return {left, halo, width - halo - left, height - 2 * halo};
}

std::vector<TagBox::Tag> TagBox::tagsIn(int width) const {
    const QFontMetrics metrics(tagFont());
    const int start = halo + captionWidth_ + inset + 1;
    const int end = width - halo - buttonWidth;
    const auto widthOf = [&](const QString& text, bool isRest) {
        return metrics.horizontalAdvance(text) + tagPadding + (isRest ? tagPadding : crossRoom);
    };
    std::vector<Tag> tags;
    int left = start;
    int line = 0;
    for (qsizetype i = 0; i < chosen_.size(); ++i) {
        const int need = widthOf(chosen_[i], false);
        if (left > start && left + need > end) {
            left = start;
            ++line;
        }
        if (line == maxLines) break;
        tags.push_back({chosen_[i], {left, halo + inset + line * pitch, need, tagHeight}, false});
        left += need + tagGap;
    }
    if (std::ssize(tags) == chosen_.size()) return tags;
    // The last ones give way to the number of those that have no room.
    while (true) {
        const QString rest = QStringLiteral("+%1").arg(chosen_.size() - std::ssize(tags));
        const QRect last = tags.back().place;
        const int need = widthOf(rest, true);
        if (tags.size() == 1 || last.right() + 1 + tagGap + need <= end) {
            tags.push_back({rest, {last.right() + 1 + tagGap, last.top(), need, tagHeight}, true});
            return tags;
        }
        tags.pop_back();
    }
}

int TagBox::heightForWidth(int width) const {
    const std::vector<Tag> tags = tagsIn(width);
    const int below = tags.empty() ? 0 : tags.back().place.top() - halo - inset;
    return lineHeight + below + 2 * halo;
}

QSize TagBox::sizeHint() const {
    const int hint = std::max(width(), captionWidth_ + 106);
    return {hint, heightForWidth(hint)};
}

QRect TagBox::crossOf(const Tag& tag) const {
    if (tag.isRest) return {};
    return {tag.place.right() - crossRoom + 1, tag.place.top(), crossRoom, tagHeight};
}

int TagBox::crossAt(const QPoint& at) const {
    const std::vector<Tag> tags = tagsIn(width());
    for (std::size_t i = 0; i < tags.size(); ++i)
        if (crossOf(tags[i]).contains(at)) return static_cast<int>(i);
    return -1;
}

void TagBox::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(lookFont());
    painter.setPen(isEnabled() ? look.muted : look.disabled);
    const QRect room(halo, halo, captionWidth_ - captionGap, lineHeight);
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(lookFont()).elidedText(caption_, Qt::ElideRight, room.width() + 1));
    const QRect box = this->box();
    FieldFrame{.isFocused = hasFocus() || isOpen(),
               .isHovered = underMouse() && isEnabled(),
               .isInvalid = isInvalid(),
               .isEnabled = isEnabled()}
        .paint(painter, box);
    painter.setFont(tagFont());
    if (isInvalid()) {
        painter.setPen(look.muted);
        painter.drawText(box.adjusted(8, 0, -buttonWidth, 0), Qt::AlignLeft | Qt::AlignVCenter, emptyText_);
    }
    const std::vector<Tag> tags = tagsIn(width());
    for (std::size_t i = 0; i < tags.size(); ++i) {
        const Tag& tag = tags[i];
        painter.setPen(Qt::NoPen);
        painter.setBrush(look.hover);
        painter.drawRoundedRect(tag.place, 4, 4);
        painter.setPen(tag.isRest ? look.muted : look.text);
        painter.drawText(tag.place.adjusted(tagPadding, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, tag.text);
        if (tag.isRest) continue;
        QRectF cross(0, 0, crossSide, crossSide);
        cross.moveCenter(QRectF(crossOf(tag)).center());
        paintIcon(painter, cross, QStringLiteral("close"),
                  hovered_ == static_cast<int>(i) ? look.text : look.muted);
    }
    const QRectF chevron(box.right() - buttonWidth / 2.0 - 6.5, box.top() + lineHeight / 2.0 - 7, 14, 14);
    paintIcon(painter, chevron, QStringLiteral("chev"), isOpen() ? look.accent : look.muted);
}

bool TagBox::isOpen() const { return combo_ && combo_->isVisible(); }

// While all are chosen only the row for all is checked, so that one click more leaves a single one.
void TagBox::fillList() {
    const bool isAll = chosen_.size() == choices_.size();
    combo_->Populate(allKey + u'|' + allText_ + u';' + choices_.join(u';'),
                     isAll ? allKey : chosen_.join(u';'), false, true);
    if (details_) combo_->setDetails(details_);
    combo_->SetCaption(caption_);
    combo_->setApplyText(applyText_);
}

void TagBox::open() {
    if (!combo_) {
        combo_ = new ctlCombo(this);
        combo_->setNoneAllowed(true);
        connect(combo_, &ctlCombo::Choice, this, [this](const QString& keys) {
            choose(keys == allKey ? choices_ : keys.split(u';', Qt::SkipEmptyParts));
        });
        connect(combo_, &ctlCombo::Closed, this, qOverload<>(&QWidget::update));
    }
    fillList();
    const QRect place = box();
    combo_->openUnder({mapToGlobal(place.topLeft()), place.size()});
    update();
}

bool TagBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const QPoint at = static_cast<QHelpEvent*>(event)->pos();
    QString said;
    for (const Tag& tag : tagsIn(width()))
        if (tag.place.contains(at))
            said = tag.isRest ? chosen_.join(QStringLiteral(", ")) : detailOf(tag.text).toolTip;
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), said, this);
    return true;
}

void TagBox::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (event->reason() != Qt::PopupFocusReason) emit gotFocus();
    update();
}

void TagBox::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

void TagBox::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Backspace:
            if (!chosen_.isEmpty()) takeOff(chosen_.size() - 1);
            break;
        case Qt::Key_Space:
        case Qt::Key_Down:
        case Qt::Key_F4:
            open();
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void TagBox::mouseMoveEvent(QMouseEvent* event) {
    const int under = crossAt(event->position().toPoint());
    if (under == hovered_) return;
    hovered_ = under;
    update();
}

void TagBox::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    if (event->button() != Qt::LeftButton || !box().contains(at)) return;
    pressed_ = crossAt(at);
    if (pressed_ < 0) open();
}

void TagBox::mouseReleaseEvent(QMouseEvent* event) {
    const int pressed = std::exchange(pressed_, -1);
    if (pressed >= 0 && crossAt(event->position().toPoint()) == pressed) takeOff(pressed);
}

}  // namespace marvello
