#include "controls/TwoLineHeader.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int sidePadding = 10;

QFont nameFont() { return lookFont(12, QFont::Medium); }
QFont unitFont() { return lookFont(11); }

/// Points up where the values grow from the top.
void paintArrow(QPainter& painter, const QPointF& middle, bool descending) {
    const double tip = descending ? 2.5 : -2.5;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Look::current().accent);
    painter.drawPolygon(
        QPolygonF{middle + QPointF(-4, -tip), middle + QPointF(4, -tip), middle + QPointF(0, tip)});
    painter.restore();
}

}  // namespace

TwoLineHeader::TwoLineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setFixedHeight(headerHeight);
    setSectionsMovable(false);
    setHighlightSections(false);
    setMinimumSectionSize(40);
}

std::pair<QString, QString> TwoLineHeader::lines(const QString& text) {
    // The one that belongs to the last ")": a unit such as "kJ/(kg K)" has its own.
    qsizetype mark = text.size();
    int open = text.endsWith(u')') ? 0 : 1;
    while (--mark >= 0) {
        if (text[mark] == u')') ++open;
        if (text[mark] == u'(' && --open <= 0) break;
    }
    if (mark < 0) return {text.trimmed(), {}};
    QString unit = text.mid(mark + 1);
    if (unit.endsWith(u')')) unit.chop(1);
    return {text.left(mark).trimmed(), unit.trimmed()};
}

int TwoLineHeader::widthOf(const QString& text) {
    const auto [name, unit] = lines(text);
    const int width = std::max(QFontMetrics(nameFont()).horizontalAdvance(name),
                               QFontMetrics(unitFont()).horizontalAdvance(unit));
    return width + 2 * sidePadding;
}

void TwoLineHeader::setSortable() {
    setSectionsClickable(true);
    setFocusPolicy(Qt::TabFocus);
}

void TwoLineHeader::setSortMark(int section, bool descending) {
    sortSection_ = section;
    isDescending_ = descending;
    viewport()->update();
}

int TwoLineHeader::sectionInUse() const { return std::clamp(keySection_, 0, std::max(0, count() - 1)); }

void TwoLineHeader::goTo(int section) {
    keySection_ = section;
    keySection_ = sectionInUse();
    emit sectionReached(keySection_);
    viewport()->update();
}

void TwoLineHeader::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            goTo(sectionInUse() - 1);
            break;
        case Qt::Key_Right:
            goTo(sectionInUse() + 1);
            break;
        case Qt::Key_Home:
            goTo(0);
            break;
        case Qt::Key_End:
            goTo(count() - 1);
            break;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (count() > 0) emit sectionClicked(sectionInUse());
            break;
        default:
            event->ignore();
    }
}

void TwoLineHeader::focusInEvent(QFocusEvent* event) {
    QHeaderView::focusInEvent(event);
    goTo(keySection_);
}

void TwoLineHeader::focusOutEvent(QFocusEvent* event) {
    QHeaderView::focusOutEvent(event);
    viewport()->update();
}

// Without a look at the sections: their widths are the list's concern.
QSize TwoLineHeader::sizeHint() const { return {0, headerHeight}; }

bool TwoLineHeader::hasUnits() const {
    for (int section = 0; section < count(); ++section)
        if (!lines(model()->headerData(section, Qt::Horizontal).toString()).second.isEmpty()) return true;
    return false;
}

bool TwoLineHeader::isLeftAligned(int section) const {
    return section == 0 ||
           model()->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).value<Qt::AlignmentFlag>() ==
               Qt::AlignLeft;
}

bool TwoLineHeader::isOverFirst(const QMouseEvent& event) const {
    constexpr int grip = 4;  // the edge by which a column is made wider
    return count() > 0 && event.position().x() < sectionSize(0) + grip;
}

// The first column is painted, and takes the mouse, where it is seen; its section has scrolled away to the
// left.
QMouseEvent TwoLineHeader::inSections(const QMouseEvent& event) const {
    const bool isHovering = event.type() == QEvent::MouseMove && event.buttons() == Qt::NoButton;
    const bool isFirst = isHovering ? isOverFirst(event) : isFirstHeld_;
    const QPointF moved = isFirst ? event.position() - QPointF(offset(), 0) : event.position();
    return {event.type(), moved, event.globalPosition(), event.button(), event.buttons(), event.modifiers()};
}

void TwoLineHeader::mousePressEvent(QMouseEvent* event) {
    isFirstHeld_ = isOverFirst(*event);
    QMouseEvent moved = inSections(*event);
    QHeaderView::mousePressEvent(&moved);
}

void TwoLineHeader::mouseMoveEvent(QMouseEvent* event) {
    QMouseEvent moved = inSections(*event);
    QHeaderView::mouseMoveEvent(&moved);
}

void TwoLineHeader::mouseReleaseEvent(QMouseEvent* event) {
    QMouseEvent moved = inSections(*event);
    QHeaderView::mouseReleaseEvent(&moved);
    isFirstHeld_ = false;
}

void TwoLineHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    isFirstHeld_ = isOverFirst(*event);
    QMouseEvent moved = inSections(*event);
    QHeaderView::mouseDoubleClickEvent(&moved);
}

void TwoLineHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    const QRect whole = viewport()->rect();
    const QRect rest(length() - offset(), 0, whole.width() - length() + offset(), whole.height());
    QPainter painter(viewport());
    if (offset() > 0 && count() > 0) {
        const QRect first(0, 0, sectionSize(0), whole.height());
        paintSection(&painter, first, 0);
        painter.fillRect(QRect(first.topRight(), QSize(1, first.height())), Look::current().controlLine);
    }
    if (rest.width() <= 0) return;
    painter.fillRect(rest, Look::current().surfaceAlt);
    painter.fillRect(QRect(rest.left(), rest.bottom(), rest.width(), 1), Look::current().line);
}

void TwoLineHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    const Look& look = Look::current();
    const auto [name, unit] = lines(model()->headerData(section, Qt::Horizontal).toString());
    painter->save();
    painter->fillRect(rect, look.surfaceAlt);
    painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), look.line);
    painter->setPen(look.text);
    painter->setFont(nameFont());
    if (section == 0) {
        painter->drawText(rect.adjusted(12, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter, name);
        const int end = rect.left() + 12 + painter->fontMetrics().horizontalAdvance(name);
        if (section == sortSection_)
            paintArrow(*painter, {end + 10.0, rect.center().y() + 0.5}, isDescending_);
    } else {
        const bool isAtLeft = isLeftAligned(section);
        const QRect inner =
            isAtLeft ? rect.adjusted(sidePadding, 5, -4, -5) : rect.adjusted(4, 5, -sidePadding, -5);
        const auto side = static_cast<int>(Qt::AlignVCenter | (isAtLeft ? Qt::AlignLeft : Qt::AlignRight));
        const int unitHeight = hasUnits() ? inner.height() / 2 : 0;
        painter->drawText(inner.adjusted(0, 0, 0, -unitHeight), side, name);
        painter->setPen(look.muted);
        painter->setFont(unitFont());
        painter->drawText(inner.adjusted(0, inner.height() / 2, 0, 0), side, unit);
        if (section == sortSection_) {
            // Next to the name, on the side where it does not begin or end with the values.
            const int width = QFontMetrics(nameFont()).horizontalAdvance(name);
            const double middle = inner.top() + (inner.height() - unitHeight) / 2.0;
            const double left = std::max(inner.right() - width - 8.0, rect.left() + 5.0);
            paintArrow(*painter, {isAtLeft ? inner.left() + width + 10.0 : left, middle}, isDescending_);
        }
    }
    if (section == sortSection_)
        painter->fillRect(QRect(rect.left(), rect.bottom() - 1, rect.width(), 2), look.accent);
    if (hasFocus() && section == sectionInUse()) {
        painter->setPen(QPen(look.accent, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(rect.adjusted(1, 1, -1, -2));
    }
    painter->restore();
}

}  // namespace marvello
