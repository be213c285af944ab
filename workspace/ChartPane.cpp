#include "workspace/ChartPane.h"

#include <QLocale>
#include <QPainter>
#include <utility>

#include "controls/CoreText.h"
#include "controls/EnvelopeDrawing.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "reports/PaintedDrawing.h"

namespace marvello {

ChartColours ChartPane::onScreen() {
    const Look& look = Look::current();
    return {.ground = drawnColour(look.surface),
            .text = drawnColour(look.text),
            .muted = drawnColour(look.muted),
            .grid = drawnColour(GraphColours::onScreen().grid),
            .accent = drawnColour(look.accent),
            .point = drawnColour(GraphColours::onScreen().point)};
}

ChartPane::ChartPane(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ChartPane::setChart(Chart chart) {
    chart_ = std::move(chart);
    setAccessibleName(fromCore(chart_.title));
    picture_ = QPixmap();
    update();
}

Drawing ChartPane::drawing(const QSizeF& size, const ChartColours& colours) const {
    return chartDrawing(
        chart_,
        {.width = size.width(), .height = size.height(), .marks = marksOf(QLocale()), .colours = colours});
}

Drawing ChartPane::onPaper(const QSizeF& size) const { return drawing(size, ChartColours()); }

void ChartPane::paintEvent(QPaintEvent*) {
    if (picture_.isNull()) {
        picture_ = QPixmap(size() * devicePixelRatioF());
        picture_.setDevicePixelRatio(devicePixelRatioF());
        QPainter drawn(&picture_);
        paintDrawing(drawn, drawing(size(), onScreen()));
    }
    QPainter(this).drawPixmap(0, 0, picture_);
}

void ChartPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    picture_ = QPixmap();
}

}  // namespace marvello
