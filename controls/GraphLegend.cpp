#include "controls/GraphLegend.h"

#include <QPainter>
#include <algorithm>

#include "controls/EnvelopeDrawing.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int legendWidth = 190;
constexpr int left = 16;
constexpr int rowHeight = 24;
constexpr int titleHeight = 36;
constexpr int sampleWidth = 28;

/// The application limit comes before the over limit, which has the smallest number.
int rankOf(const clsLimit& limit) {
    return limit.LimitType == limitType::application ? limitType::over - 1 : limit.LimitType;
}

}  // namespace

GraphLegend::GraphLegend(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void GraphLegend::setTexts(const QString& title, const QString& point) {
    title_ = title;
    pointText_ = point;
    update();
}

void GraphLegend::setLimits(const clsLimits& limits, bool hasPoint) {
    limits_ = limits;
    hasPoint_ = hasPoint;
    updateGeometry();
    update();
}

std::vector<const clsLimit*> GraphLegend::entries(const clsLimits& limits) {
    std::vector<const clsLimit*> named;
    for (const auto& limit : limits)
        if (limit->Visible && !limit->Description.empty()) named.push_back(limit.get());
    std::ranges::stable_sort(named, {}, [](const clsLimit* limit) { return rankOf(*limit); });
    return named;
}

void GraphLegend::paintSample(QPainter& painter, const clsLimit& limit, const QColor& colour,
                              const QPointF& left, double width) {
    painter.setPen(penOf(limit, colour));
    painter.drawLine(left, left + QPointF(width, 0));
}

QSize GraphLegend::sizeHint() const {
    const auto rows = static_cast<int>(entries(limits_).size()) + (hasPoint_ ? 1 : 0);
    return {legendWidth, titleHeight + rowHeight * rows};
}

void GraphLegend::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    const GraphColours colours = GraphColours::onScreen();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(lookFont(12, QFont::Medium));
    painter.setPen(look.text);
    painter.drawText(QRect(left, 0, width() - left, titleHeight), Qt::AlignVCenter, title_);
    painter.setFont(lookFont(12));
    int top = titleHeight;
    const auto row = [&](const QString& text) {
        painter.setPen(look.text);
        const QRect place(left + sampleWidth + 10, top, width() - left - sampleWidth - 14, rowHeight);
        painter.drawText(place, Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
        top += rowHeight;
    };
    for (const clsLimit* limit : entries(limits_)) {
        paintSample(painter, *limit, colours.line(*limit), QPointF(left, top + rowHeight / 2.0), sampleWidth);
        row(QString::fromStdString(limit->Description));
    }
    if (!hasPoint_) return;
    const QPointF at(left + sampleWidth / 2.0, top + rowHeight / 2.0);
    painter.setPen(QPen(colours.point, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, 6, 6);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.point);
    painter.drawEllipse(at, 2.8, 2.8);
    row(pointText_);
}

}  // namespace marvello
