#include "reports/PaintedDrawing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPainter>
#include <QPainterPath>
#include <memory>

#include "controls/CoreText.h"
#include "controls/Look.h"
#include "results/Svg.h"

namespace marvello {

namespace {

QColor colourOf(const DrawnColour& colour) {
    QColor result(colour.red, colour.green, colour.blue);
    result.setAlphaF(static_cast<float>(colour.opacity));
    return result;
}

/// Qt counts dashes in widths of the pen.
QPen penOf(const DrawnStroke& stroke) {
    QPen pen(colourOf(stroke.colour), stroke.width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    QList<qreal> dashes;
    for (const double dash : stroke.dashes) dashes += dash / stroke.width;
    if (!dashes.isEmpty()) pen.setDashPattern(dashes);
    return pen;
}

QPolygonF polygonOf(const std::vector<DrawnPoint>& points) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const DrawnPoint& point : points) polygon += QPointF(point.x, point.y);
    return polygon;
}

void paint(QPainter& painter, const DrawnArea& area) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(area.fill));
    painter.drawPolygon(polygonOf(area.points));
}

void paint(QPainter& painter, const DrawnLine& line) {
    painter.setPen(penOf(line.stroke));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(polygonOf(line.points));
}

void paint(QPainter& painter, const DrawnRing& ring) {
    painter.setPen(penOf(ring.stroke));
    painter.setBrush(colourOf(ring.fill));
    painter.drawEllipse(QPointF(ring.centre.x, ring.centre.y), ring.radius, ring.radius);
}

void paint(QPainter& painter, const DrawnText& text) {
    const QFont font = lookFont(static_cast<int>(text.size), text.isMedium ? QFont::Medium : QFont::Normal);
    const QString words = fromCore(text.text);
    const double width = QFontMetricsF(font).horizontalAdvance(words);
    const double before = text.anchor == DrawnText::Anchor::start    ? 0
                          : text.anchor == DrawnText::Anchor::middle ? width / 2
                                                                     : width;
    painter.save();
    painter.translate(text.at.x, text.at.y);
    painter.rotate(text.angle);
    const QPointF baseline(-before, 0);
    if (text.halo.opacity > 0) {
        QPainterPath path;
        path.addText(baseline, font, words);
        painter.strokePath(path,
                           QPen(colourOf(text.halo), haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.setFont(font);
    painter.setPen(colourOf(text.colour));
    painter.drawText(baseline, words);
    painter.restore();
}

}  // namespace

DrawnColour drawnColour(const QColor& colour, double opacity) {
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue()), opacity};
}

void paintDrawing(QPainter& painter, const Drawing& drawing) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRectF(0, 0, drawing.width, drawing.height), colourOf(drawing.ground));
    for (const Drawing::Shape& shape : drawing.shapes)
        std::visit([&](const auto& each) { paint(painter, each); }, shape);
    painter.restore();
}

QImage imageOf(const Drawing& drawing, double pixels) {
    QImage image((QSizeF(drawing.width, drawing.height) * pixels).toSize(), QImage::Format_RGB32);
    if (image.isNull()) return image;
    image.setDevicePixelRatio(pixels);
    QPainter painter(&image);
    paintDrawing(painter, drawing);
    return image;
}

void copyDrawing(const Drawing& drawing) {
    constexpr double pixels = 300.0 / 96.0;
    auto data = std::make_unique<QMimeData>();
    data->setImageData(imageOf(drawing, pixels));
    data->setData(QStringLiteral("image/svg+xml"), QByteArray::fromStdString(svgOf(drawing)));
    QGuiApplication::clipboard()->setMimeData(data.release());  // the clipboard takes ownership
}

}  // namespace marvello
