#include "controls/FieldNote.h"

#include <QAccessible>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "controls/Icons.h"
#include "controls/Look.h"
#include "controls/Marks.h"

namespace marvello {

namespace {

constexpr int arrow = 7;
constexpr int padding = 9;
constexpr int markSize = 14;
constexpr int markGap = 7;
constexpr int widestText = 260;
constexpr int gap = 4;

QFont noteFont() { return lookFont(12); }

}  // namespace

FieldNote::FieldNote(const QWidget& field) : QWidget(field.window()) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void FieldNote::say(const QString& text, const QWidget& field, const QRect& box, Kind kind) {
    const bool isNew = isHidden() || text != text_;
    text_ = text;
    kind_ = kind;
    setAccessibleName(text);
    const QRect words = QFontMetrics(noteFont()).boundingRect(0, 0, widestText, 1000, Qt::TextWordWrap, text);
    const int width = words.width() + 1 + 2 * padding + markSize + markGap;
    const int height = std::max(words.height(), markSize) + 2 * padding - 4;

    const QWidget* const holder = field.parentWidget() ? field.parentWidget() : &field;
    const QPoint boxTop = field.mapTo(window(), box.topLeft());
    const int side = holder->mapTo(window(), QPoint(holder->width(), 0)).x() + gap;
    isBelow_ = side + arrow + width > window()->width();
    if (isBelow_) {
        const int left = std::max(0, std::min(boxTop.x(), window()->width() - width));
        setGeometry(left, boxTop.y() + box.height() + gap, width, height + arrow);
    } else {
        setGeometry(side, boxTop.y() + (box.height() - height) / 2, width + arrow, height);
    }
    raise();
    show();
    if (isNew) {
        QAccessibleEvent said(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&said);
    }
    update();
}

QRect FieldNote::bubble() const {
    return isBelow_ ? rect().adjusted(0, arrow, 0, 0) : rect().adjusted(arrow, 0, 0, 0);
}

void FieldNote::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    const QRectF body = QRectF(bubble()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(body, 4, 4);
    QPainterPath tip;
    if (isBelow_)
        tip.addPolygon(QPolygonF({{body.left() + 14, body.top() + 1},
                                  {body.left() + 14 + arrow, 0.5},
                                  {body.left() + 14 + 2 * arrow, body.top() + 1}}));
    else
        tip.addPolygon(QPolygonF({{body.left() + 1, body.center().y() - arrow},
                                  {0.5, body.center().y()},
                                  {body.left() + 1, body.center().y() + arrow}}));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(kind_ == Kind::fault ? look.red : look.accent, 1));
    painter.setBrush(look.raised);
    painter.drawPath(shape.united(tip));
    const QRect inner = bubble().adjusted(padding, 0, -padding, 0);
    paintMark(painter, QRect(inner.left(), inner.center().y() - markSize / 2 + 1, markSize, markSize),
              kind_ == Kind::fault ? mark::notPossible : mark::information);
    painter.setPen(look.text);
    painter.setFont(noteFont());
    painter.drawText(inner.adjusted(markSize + markGap, 0, 1, 0),
                     static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap, text_);
}

}  // namespace marvello
