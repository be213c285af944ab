#include "controls/TabStrip.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int formsHeight = 34;
constexpr int pagesHeight = 36;
constexpr int iconSide = 16;

constexpr int inset = 8;

void paintBand(QPainter& painter, const QRect& rect, TabStrip::Kind kind) {
    const Look& look = Look::current();
    painter.fillRect(rect, kind == TabStrip::Kind::forms ? look.window : look.surface);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), look.line);
}

}  // namespace

TabStrip::TabStrip(Kind kind, QWidget* parent) : QTabBar(parent), kind_(kind) {
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFixedHeight(kind == Kind::forms ? formsHeight : pagesHeight);
}

int TabStrip::addKeyed(const QString& key, const QString& text, const QIcon& tabIcon) {
    const int index = addTab(tabIcon, text);
    setTabData(index, key);
    return index;
}

QString TabStrip::key(int index) const { return tabData(index).toString(); }

int TabStrip::indexOf(const QString& key) const {
    for (int index = 0; index < count(); ++index)
        if (this->key(index) == key) return index;
    return -1;
}

QSize TabStrip::tabSizeHint(int index) const {
    // Wide enough for the weight that the tab takes when it is chosen.
    const int text = QFontMetrics(lookFont(13, QFont::Medium)).horizontalAdvance(tabText(index));
    if (kind_ == Kind::forms) return {10 + iconSide + 7 + text + 16, formsHeight};
    return {text + 28, pagesHeight};
}

QSize TabStrip::minimumTabSizeHint(int index) const { return tabSizeHint(index); }

void TabStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintBand(painter, rect(), kind_);
    for (int index = 0; index < count(); ++index) {
        if (kind_ == Kind::forms)
            paintForm(painter, index);
        else
            paintPage(painter, index);
    }
}

void TabStrip::paintForm(QPainter& painter, int index) const {
    const Look& look = Look::current();
    const bool current = index == currentIndex();
    const QRect tab = tabRect(index).adjusted(0, 4, -2, 0);
    if (current) {
        QPainterPath path;
        path.moveTo(tab.left() + 0.5, tab.bottom() + 1);
        path.lineTo(tab.left() + 0.5, tab.top() + 6.5);
        path.quadTo(tab.left() + 0.5, tab.top() + 0.5, tab.left() + 6.5, tab.top() + 0.5);
        path.lineTo(tab.right() - 5.5, tab.top() + 0.5);
        path.quadTo(tab.right() + 0.5, tab.top() + 0.5, tab.right() + 0.5, tab.top() + 6.5);
        path.lineTo(tab.right() + 0.5, tab.bottom() + 1);
        painter.setPen(look.line);
        painter.setBrush(look.surface);
        painter.drawPath(path);
    }
    const QRect iconRect(tab.left() + 10, tab.center().y() - iconSide / 2 + 1, iconSide, iconSide);
    tabIcon(index).paint(&painter, iconRect, Qt::AlignCenter, QIcon::Normal,
                         current ? QIcon::On : QIcon::Off);
    painter.setFont(lookFont(13, current ? QFont::Medium : QFont::Normal));
    painter.setPen(current || index == hovered_ ? look.text : look.muted);
    painter.drawText(tab.adjusted(10 + iconSide + 7, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     tabText(index));
    if (current && hasFocus())
        painter.fillRect(QRect(tab.left() + 10, tab.bottom() - 3, tab.width() - 20, 2), look.accent);
}

void TabStrip::paintPage(QPainter& painter, int index) const {
    const Look& look = Look::current();
    const bool current = index == currentIndex();
    const QRect tab = tabRect(index);
    painter.setFont(lookFont(13, current ? QFont::Medium : QFont::Normal));
    painter.setPen(current || index == hovered_ ? look.text : look.muted);
    painter.drawText(tab, Qt::AlignCenter, tabText(index));
    if (!current) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.accent);
    painter.drawRoundedRect(QRectF(tab.left() + 8, height() - 2, tab.width() - 16, 2), 1, 1);
    if (!hasFocus()) return;
    painter.setPen(QPen(look.focusHalo, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(tab).adjusted(5, 6, -5, -7), 4, 4);
}

void TabStrip::mouseMoveEvent(QMouseEvent* event) {
    hovered_ = tabAt(event->pos());
    update();
    QTabBar::mouseMoveEvent(event);
}

void TabStrip::leaveEvent(QEvent* event) {
    hovered_ = -1;
    update();
    QTabBar::leaveEvent(event);
}

TabBand::TabBand(TabStrip::Kind kind, QWidget* parent)
    : QWidget(parent), strip_(new TabStrip(kind, this)), kind_(kind) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(inset, 0, inset, 0);
    row->addWidget(strip_);
}

void TabBand::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintBand(painter, rect(), kind_);
}

}  // namespace marvello
