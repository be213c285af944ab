#include "controls/ctlBtn.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int frameHeight = 32;
constexpr int minimumFrameWidth = 88;
constexpr int sidePadding = 16;
constexpr int iconSide = 16;
constexpr int iconGap = 8;
constexpr int chipGap = 8;
constexpr int chipPadding = 5;

double chipWidth(const QString& hint) {
    return QFontMetricsF(lookFont(11, QFont::Medium)).horizontalAdvance(hint) + 2 * chipPadding + 2;
}

}  // namespace

ctlBtn::ctlBtn(QWidget* parent) : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(this, &ctlBtn::appearanceChanged, this, qOverload<>(&QWidget::update));
}

ctlBtn::ctlBtn(const QString& caption, bool isMain, QWidget* parent) : ctlBtn(parent) {
    setText(caption);
    main_ = isMain;
}

QFont ctlBtn::captionFont() const {
    QFont result = font();
    result.setWeight(main_ && isEnabled() ? QFont::Medium : QFont::Normal);
    return result;
}

QSize ctlBtn::sizeHint() const {
    double width = QFontMetricsF(captionFont()).horizontalAdvance(text()) + 2 * sidePadding;
    if (!icon().isNull()) width += iconSide + iconGap;
    if (!keyHint_.isEmpty()) width += chipGap + chipWidth(keyHint_);
    return {std::max(minimumFrameWidth, static_cast<int>(width) + 1) + 2 * ring, frameHeight + 2 * ring};
}

ctlBtn::Colours ctlBtn::colours() const {
    const Look& look = Look::current();
    if (!isEnabled()) return {look.surfaceAlt, look.line, look.disabled};
    Colours result{look.surface, look.controlLine, look.text};
    if (main_) {
        const QColor ground = isDown() ? look.accentPress : underMouse() ? look.accentHover : look.accent;
        result = {ground, ground, look.onAccent};
    } else if (isDown()) {
        result = {look.line, look.text, look.text};
    } else if (underMouse()) {
        result = {look.hover, look.text, look.text};
    }
    if (backColor_.isValid()) result.ground = backColor_;
    if (foreColor_.isValid()) result.text = foreColor_;
    const QColor& border = underMouse() ? borderColorMouseMove_ : borderColor_;
    if (border.isValid()) result.border = border;
    return result;
}

void ctlBtn::paintEvent(QPaintEvent*) {
    const Colours colours = this->colours();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(ring, ring, -ring, -ring);
    if (hasFocus()) {
        painter.setPen(QPen(Look::current().accent, 2));
        painter.drawRoundedRect(frame.adjusted(-3, -3, 3, 3), 8, 8);
    }
    painter.setPen(colours.border);
    painter.setBrush(colours.ground);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);

    const QFont font = captionFont();
    painter.setFont(font);
    painter.setPen(colours.text);
    const double textWidth = QFontMetricsF(font).size(Qt::TextShowMnemonic, text()).width();
    const double chip = keyHint_.isEmpty() ? 0 : chipWidth(keyHint_);
    const double before = icon().isNull() ? 0 : iconSide + (text().isEmpty() ? 0 : iconGap);
    const double whole = before + textWidth + (chip > 0 ? chipGap + chip : 0);
    const double left = frame.center().x() - whole / 2 + before;
    if (before > 0)
        icon().paint(&painter,
                     QRectF(left - before, frame.center().y() - iconSide / 2.0, iconSide, iconSide).toRect(),
                     Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    painter.drawText(QRectF(left, frame.top(), textWidth + 1, frame.height()),
                     Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (chip == 0) return;
    QRectF chipRect(left + textWidth + chipGap, frame.center().y() - 9, chip, 18);
    painter.setOpacity(0.8);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(chipRect.adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    painter.setFont(lookFont(11, QFont::Medium));
    painter.drawText(chipRect, Qt::AlignCenter, keyHint_);
}

void ctlBtn::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

}  // namespace marvello
