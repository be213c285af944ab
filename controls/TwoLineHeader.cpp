#include "controls/TwoLineHeader.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int sidePadding = 10;

QFont nameFont() { return lookFont(12, QFont::Medium); }
QFont unitFont() { return lookFont(11); }

}  // namespace

TwoLineHeader::TwoLineHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setFixedHeight(headerHeight);
    setSectionsMovable(false);
    setHighlightSections(false);
    setMinimumSectionSize(40);
}

std::pair<QString, QString> TwoLineHeader::lines(const QString& text) {
    const qsizetype mark = text.lastIndexOf(u'(');
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

QSize TwoLineHeader::sectionSizeFromContents(int section) const {
    return {widthOf(model()->headerData(section, Qt::Horizontal).toString()), headerHeight};
}

bool TwoLineHeader::hasUnits() const {
    for (int section = 0; section < count(); ++section)
        if (!lines(model()->headerData(section, Qt::Horizontal).toString()).second.isEmpty()) return true;
    return false;
}

void TwoLineHeader::paintEvent(QPaintEvent* event) {
    QHeaderView::paintEvent(event);
    const QRect whole = viewport()->rect();
    const QRect rest(length() - offset(), 0, whole.width() - length() + offset(), whole.height());
    if (rest.width() <= 0) return;
    QPainter painter(viewport());
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
    } else {
        const QRect inner = rect.adjusted(4, 5, -sidePadding, -5);
        const int unitHeight = hasUnits() ? inner.height() / 2 : 0;
        painter->drawText(inner.adjusted(0, 0, 0, -unitHeight), Qt::AlignRight | Qt::AlignVCenter, name);
        painter->setPen(look.muted);
        painter->setFont(unitFont());
        painter->drawText(inner.adjusted(0, inner.height() / 2, 0, 0), Qt::AlignRight | Qt::AlignVCenter,
                          unit);
    }
    painter->restore();
}

}  // namespace marvello
