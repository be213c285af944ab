#include "controls/MapLegend.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <limits>

#include "controls/Look.h"
#include "controls/MapRamp.h"

namespace marvello {

namespace {

constexpr int margin = 16;
constexpr int titleHeight = 36;
constexpr int bandHeight = 16;
constexpr int labelHeight = 20;
constexpr int below = 8;

}  // namespace

MapLegend::MapLegend(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    hide();
}

void MapLegend::setMap(const std::shared_ptr<const EnvelopeMap>& map) {
    map_ = map;
    setVisible(map_ != nullptr);
    if (!map_) return;
    QStringList levels;
    for (const EnvelopeMap::Line& line : map_->lines) levels += line.level;
    setAccessibleName(map_->textOf(levels.join(QStringLiteral(", "))));
    update();
}

QSize MapLegend::sizeHint() const { return {0, titleHeight + bandHeight + labelHeight + below}; }

void MapLegend::paintEvent(QPaintEvent*) {
    if (!map_) return;
    const Look& look = Look::current();
    QPainter painter(this);
    const QRect room(margin, titleHeight, width() - 2 * margin, bandHeight);
    painter.fillRect(QRect(margin, 4, room.width(), 1), look.line);
    painter.setFont(lookFont(12, QFont::Medium));
    painter.setPen(look.text);
    const QString title = map_->unit.isEmpty() ? map_->name : map_->name + u' ' + map_->unit;
    painter.drawText(QRect(margin, 4, room.width(), titleHeight - 4), Qt::AlignVCenter, title);
    const auto bands = static_cast<int>(map_->bands.size());
    const auto edge = [&](int band) { return room.left() + room.width() * band / bands; };
    for (int band = 0; band < bands; ++band)
        painter.fillRect(QRect(edge(band), room.top(), edge(band + 1) - edge(band), bandHeight),
                         mapColour(band, bands, look.isDark));
    painter.setPen(look.line);
    painter.drawRect(room.adjusted(0, 0, -1, -1));
    painter.setFont(lookFont(11));
    painter.setPen(look.muted);
    const QFontMetricsF letters(painter.font());
    double free = -std::numeric_limits<double>::infinity();
    for (int line = 0; line + 1 < bands; ++line) {
        const QString level = map_->lines[static_cast<std::size_t>(line)].level;
        const double half = letters.horizontalAdvance(level) / 2;
        const int at = edge(line + 1);
        if (at - half < free) continue;
        painter.drawText(QPointF(at - half, room.bottom() + labelHeight - 6), level);
        constexpr double apart = 5;
        free = at + half + apart;
    }
}

}  // namespace marvello
