#include "controls/LimitDistances.h"

#include <QPainter>
#include <utility>

#include "controls/EnvelopeDrawing.h"
#include "controls/GraphLegend.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int margin = 16;
constexpr int titleHeight = 36;
constexpr int lineHeight = 18;
constexpr int rowHeight = 2 * lineHeight + 4;
constexpr int sampleWidth = 20;
constexpr int gap = 8;

}  // namespace

LimitDistances::LimitDistances(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void LimitDistances::setRows(const QString& title, std::vector<Row> rows, const clsLimits& limits) {
    title_ = title;
    rows_ = std::move(rows);
    limits_ = limits;
    QStringList spoken{title_};
    for (const Row& row : rows_)
        spoken += row.name + QStringLiteral(": ") + row.distance + QStringLiteral(", ") + row.direction;
    setAccessibleName(spoken.join(u'\n'));
    setVisible(!rows_.empty());
    updateGeometry();
    update();
}

QSize LimitDistances::sizeHint() const {
    return {0, titleHeight + rowHeight * static_cast<int>(rows_.size())};
}

void LimitDistances::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    const GraphColours colours = GraphColours::onScreen();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int right = width() - margin;
    painter.fillRect(QRect(margin, 4, right - margin, 1), look.line);
    painter.setFont(lookFont(12, QFont::Medium));
    painter.setPen(look.text);
    painter.drawText(QRect(margin, 4, right - margin, titleHeight - 4), Qt::AlignVCenter, title_);
    painter.setFont(lookFont(12));
    int top = titleHeight;
    for (const Row& row : rows_) {
        if (const clsLimit* limit = limits_.GetLimitType(row.limitType))
            GraphLegend::paintSample(painter, *limit, colours.line(*limit),
                                     QPointF(margin, top + lineHeight / 2.0), sampleWidth);
        const QRect line(margin + sampleWidth + gap, top, right - margin - sampleWidth - gap, lineHeight);
        const QRect below = line.translated(0, lineHeight - 2);
        const QFontMetrics letters = painter.fontMetrics();
        const int distance = letters.horizontalAdvance(row.distance) + gap;
        const bool fits = letters.horizontalAdvance(row.name) + distance <= line.width();
        painter.setPen(look.text);
        painter.drawText(fits ? line : below, Qt::AlignRight | Qt::AlignVCenter, row.distance);
        painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter,
                         letters.elidedText(row.name, Qt::ElideRight, line.width()));
        painter.setPen(look.muted);
        painter.drawText(
            below, Qt::AlignLeft | Qt::AlignVCenter,
            letters.elidedText(row.direction, Qt::ElideRight, line.width() - (fits ? 0 : distance)));
        top += rowHeight;
    }
}

}  // namespace marvello
