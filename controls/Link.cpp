#include "controls/Link.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include "controls/Look.h"

namespace marvello {

Link::Link(const QString& caption, QWidget* parent) : QAbstractButton(parent) {
    setText(caption);
    setFont(lookFont());
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &Link::appearanceChanged, this, qOverload<>(&QWidget::update));
}

QSize Link::sizeHint() const {
    return {QFontMetrics(font()).horizontalAdvance(text()), QFontMetrics(font()).height() + 4};
}

void Link::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    const bool isOn = isEnabled() && (underMouse() || hasFocus());
    QPainter painter(this);
    if (backColor_.isValid()) painter.fillRect(rect(), backColor_);
    QFont shown = font();
    shown.setUnderline(isOn);
    painter.setFont(shown);
    painter.setPen(!isEnabled() ? look.disabled : isOn ? look.accentHover : look.accent);
    painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft, text());
}

void Link::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

}  // namespace marvello
