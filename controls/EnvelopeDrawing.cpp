#include "controls/EnvelopeDrawing.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "controls/Look.h"
#include "controls/MapPainting.h"

namespace marvello {

namespace {

constexpr double margin = 10;  // units of the scale around the corners
constexpr int labelSize = 11;
constexpr int titleSize = 12;
constexpr double haloWidth = 4;
constexpr double titleMargin = 3;
constexpr double maxGridLines = 500;  // a grid finer than this is none

QColor fromCatalogue(int bgr) { return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF); }

/// A corner on the grid of ten: the last digit of its text is taken away. So -35 becomes -40 and 35
/// becomes 30.
double onGridOfTen(double value) {
    constexpr int digits = 15;  // as many as the text of a number shows
    const QString text = QString::number(value, 'g', digits);
    return value - text.back().digitValue();
}

/// The first multiple of `gap` from `from` on. Corners in whole tens are multiples; those of converted limits
/// are not, and their labels are round numbers all the same.
double firstStep(double from, double gap) { return std::ceil(from / gap - 1e-9) * gap; }

/// A text with a halo in the colour of the plot, so that no line strikes through it.
void drawText(QPainter& painter, const QPointF& baseline, const QFont& font, const QString& text,
              const QColor& colour, const QColor& plot) {
    QPainterPath path;
    path.addText(baseline, font, text);
    painter.strokePath(path, QPen(plot, haloWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setFont(font);
    painter.setPen(colour);
    painter.drawText(baseline, text);
}

QFont captionFont() { return lookFont(labelSize, QFont::Medium); }

QString labelOf(double value) {
    QString text = QString::number(std::abs(value) < 1e-9 ? 0 : value, 'g', 6);
    return text.replace(u'-', QChar(0x2212));
}

/// The longest nearly level segment of the upper side, from left to right; the caption of a line goes
/// there.
std::optional<QLineF> captionSegment(const QPolygonF& line) {
    constexpr double maxSlope = 0.4;
    const double middle = line.boundingRect().center().y();
    std::optional<QLineF> best;
    for (qsizetype i = 1; i < line.size(); ++i) {
        QLineF segment(line[i - 1], line[i]);
        if (segment.dx() < 0) segment.setPoints(segment.p2(), segment.p1());
        if (std::abs(segment.dy()) > maxSlope * segment.dx() || segment.center().y() > middle) continue;
        if (!best || segment.dx() > best->dx()) best = segment;
    }
    return best;
}

}  // namespace

GraphColours GraphColours::onScreen() {
    const Look& look = Look::current();
    if (look.isDark) return {look.surface, "#2E383E", "#8F4A4A", look.muted, look.text, "#7FA8FF", true};
    GraphColours colours = onPaper();
    colours.labels = "#6E6E6E";
    colours.text = look.text;
    return colours;
}

GraphColours GraphColours::onPaper() {
    return {Qt::white, "#E0E0E0", "#FF8080", "#808080", "#182126", "#0000FF", false};
}

QColor GraphColours::line(const clsLimit& limit) const {
    const QColor own = fromCatalogue(limit.Color);
    return adapts ? Look::current().adapted(own) : own;
}

QPen penOf(const clsLimit& limit, const QColor& colour) {
    const double width = std::max(limit.DrawWidth, 1);
    QPen pen(colour, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    if (limit.DrawStyle == 1) pen.setDashPattern({4.5, 2.5});
    if (limit.DrawStyle == 2) pen.setDashPattern({1, 2});
    if (limit.DrawStyle == 4) pen.setDashPattern({4.5, 2, 1, 2, 1, 2});
    return pen;
}

void EnvelopeDrawing::fitScale() {
    corners_ = {-20, 30, -10, 20};
    const clsLimit* outer = limits.GetLimitType(limitType::over);
    if (!outer) outer = limits.GetLimitType(limitType::application);
    if (outer && outer->Points.Count() > 0) {
        const clsPoint first = outer->Points.Item(1);
        corners_ = {first.x, first.Y, first.x, first.Y};
        for (const clsPoint& at : outer->Points) {
            corners_.left = std::min(corners_.left, at.x);
            corners_.top = std::max(corners_.top, at.Y);
            corners_.right = std::max(corners_.right, at.x);
            corners_.bottom = std::min(corners_.bottom, at.Y);
        }
        for (double* corner : {&corners_.left, &corners_.top, &corners_.right, &corners_.bottom})
            *corner = onGridOfTen(*corner);
    }
    scale_ = {corners_.left - margin, corners_.top + margin, corners_.right + margin,
              corners_.bottom - margin};
}

std::vector<const clsLimit*> EnvelopeDrawing::drawingOrder() const {
    std::vector<const clsLimit*> order;
    for (const auto& limit : limits)
        if (limit->LimitType != limitType::over && limit->LimitType != limitType::smallMotor &&
            limit->LimitType != limitType::application)
            order.push_back(limit.get());
    for (const int type : {limitType::over, limitType::smallMotor, limitType::application})
        if (const clsLimit* limit = limits.GetLimitType(type)) order.push_back(limit);
    std::erase_if(order, [](const clsLimit* limit) { return !limit->Visible || limit->Points.Count() == 0; });
    return order;
}

QPointF EnvelopeDrawing::toPlace(const clsPoint& of, const QRectF& place) const {
    return {place.left() + (of.x - scale_.left) / (scale_.right - scale_.left) * place.width(),
            place.top() + (of.Y - scale_.top) / (scale_.bottom - scale_.top) * place.height()};
}

clsPoint EnvelopeDrawing::fromPlace(const QPointF& of, const QRectF& place) const {
    return {scale_.left + (of.x() - place.left()) / place.width() * (scale_.right - scale_.left),
            scale_.top + (of.y() - place.top()) / place.height() * (scale_.bottom - scale_.top)};
}

QPolygonF EnvelopeDrawing::lineOf(const clsLimit& limit, const QRectF& place) const {
    QPolygonF line;
    for (const clsPoint& at : limit.Points) line += toPlace(at, place);
    return line;
}

bool EnvelopeDrawing::isDrawable(const QRectF& place) const {
    return !place.isEmpty() && scale_.right != scale_.left && scale_.top != scale_.bottom;
}

void EnvelopeDrawing::paint(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    paintGround(painter, place, colours);
    paintPoint(painter, place, colours);
}

void EnvelopeDrawing::paintGround(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    if (!isDrawable(place)) return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.fillRect(place, colours.plot);
    paintGrid(painter, place, colours);
    paintLabels(painter, place, colours);
    if (map) paintMap(painter, *map, placing(place), colours);
    paintLimits(painter, place, colours, drawingOrder());
    paintCaptions(painter, place, colours);
    paintTitles(painter, place, colours);
    painter.restore();
}

QTransform EnvelopeDrawing::placing(const QRectF& place) const {
    const QPointF origin = toPlace({0, 0}, place);
    const QPointF unit = toPlace({1, 1}, place) - origin;
    return {unit.x(), 0, 0, unit.y(), origin.x(), origin.y()};
}

void EnvelopeDrawing::paintLines(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    if (!isDrawable(place)) return;
    paintGrid(painter, place, colours);
    std::vector<const clsLimit*> order;
    for (const auto& limit : limits)
        if (limit->Visible && limit->Points.Count() > 0) order.push_back(limit.get());
    paintLimits(painter, place, colours, order);
}

void EnvelopeDrawing::paintLimits(QPainter& painter, const QRectF& place, const GraphColours& colours,
                                  const std::vector<const clsLimit*>& order) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    const auto draw = [&](const clsLimit& limit, const QPen& pen) {
        painter.setPen(pen);
        const QPolygonF line = lineOf(limit, place);
        if (line.isClosed())
            painter.drawPolygon(line);  // joins the last line to the first
        else
            painter.drawPolyline(line);
    };
    for (const clsLimit* limit : order) {
        if (limit->LimitType == limitType::over) {
            // An under-stroke of width 2, whatever the line's own, lets it stand out against the grid.
            QPen under = penOf(*limit, colours.plot);
            under.setWidthF(2);
            draw(*limit, under);
        }
        draw(*limit, penOf(*limit, colours.line(*limit)));
    }
}

void EnvelopeDrawing::paintHits(QPainter& painter, const QRectF& place) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(place, Qt::black);
    if (!isDrawable(place)) return;
    const auto order = drawingOrder();
    if (map) paintMapHits(painter, *map, placing(place), static_cast<unsigned>(order.size()) + 2);
    QRgb number = 1;
    for (const clsLimit* limit : order) {
        constexpr double wider = 4;
        painter.setPen(QPen(QColor::fromRgb(number++), limit->DrawWidth + wider));
        painter.drawPolyline(lineOf(*limit, place));
    }
    if (!point) return;
    constexpr double ring = 7;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(number));
    painter.drawEllipse(toPlace(*point, place), ring, ring);
}

void EnvelopeDrawing::paintGrid(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    painter.setRenderHint(QPainter::Antialiasing, false);
    const auto vertical = [&](double x) {
        const double at = toPlace({x, 0}, place).x();
        painter.drawLine(QPointF(at, place.top()), QPointF(at, place.bottom()));
    };
    const auto horizontal = [&](double y) {
        const double at = toPlace({0, y}, place).y();
        painter.drawLine(QPointF(place.left(), at), QPointF(place.right(), at));
    };
    const double across = std::max(scale_.right - scale_.left, scale_.top - scale_.bottom);
    if (gridVisible && gridGap > across / maxGridLines) {
        painter.setPen(QPen(colours.grid, 0));
        for (double x = firstStep(scale_.left, gridGap); x <= scale_.right; x += gridGap) vertical(x);
        for (double y = firstStep(scale_.bottom, gridGap); y <= scale_.top; y += gridGap) horizontal(y);
    }
    if (!axisVisible) return;
    painter.setPen(QPen(colours.axis, 0));
    vertical(0);
    horizontal(0);
}

double EnvelopeDrawing::labelBaseline(const QRectF& place) const {
    return std::min(toPlace({0, corners_.bottom - 8}, place).y() + 4, place.bottom() - 6);
}

/// Every label, or every second, fourth ... where they would touch.
double EnvelopeDrawing::gapOfLabels(double pixelsPerUnit, double width) const {
    double gap = gridGap;
    while (gap * pixelsPerUnit < width && gap < 1000) gap *= 2;
    return gap;
}

double EnvelopeDrawing::labelWidth() const {
    const QFontMetricsF metrics(lookFont(labelSize));
    return std::max(metrics.horizontalAdvance(labelOf(corners_.top)),
                    metrics.horizontalAdvance(labelOf(corners_.bottom)));
}

double EnvelopeDrawing::labelRight(const QRectF& place) const {
    const QFontMetricsF title(lookFont(titleSize));
    const double besideTitle = place.left() + titleMargin + title.height() + labelWidth();
    return std::max(toPlace({corners_.left, 0}, place).x() - 8, besideTitle);
}

void EnvelopeDrawing::paintLabels(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    if (gridGap <= (scale_.right - scale_.left) / maxGridLines) return;
    painter.setRenderHint(QPainter::Antialiasing);
    const QFont font = lookFont(labelSize);
    const QFontMetricsF metrics(font);
    const double baseline = labelBaseline(place);
    const double unit = place.width() / (scale_.right - scale_.left);
    const double widest = std::max(metrics.horizontalAdvance(labelOf(corners_.left)),
                                   metrics.horizontalAdvance(labelOf(corners_.right)));
    const double gapX = gapOfLabels(unit, widest + 8);
    for (double x = firstStep(corners_.left, gapX); x <= corners_.right; x += gapX) {
        const QString text = labelOf(x);
        drawText(painter, {toPlace({x, 0}, place).x() - metrics.horizontalAdvance(text) / 2, baseline}, font,
                 text, colours.labels, colours.plot);
    }
    const double right = labelRight(place);
    const double gapY = gapOfLabels(place.height() / (scale_.top - scale_.bottom), metrics.height());
    for (double y = firstStep(corners_.bottom, gapY); y <= corners_.top; y += gapY) {
        const QString text = labelOf(y);
        drawText(painter,
                 {right - metrics.horizontalAdvance(text), toPlace({0, y}, place).y() + labelSize * 0.36},
                 font, text, colours.labels, colours.plot);
    }
}

bool EnvelopeDrawing::touchesOther(const QRectF& caption, const clsLimit& own, const QRectF& place) const {
    const QPolygonF frame(caption);
    for (const clsLimit* limit : drawingOrder()) {
        if (limit == &own) continue;
        const QPolygonF line = lineOf(*limit, place);
        for (qsizetype i = 1; i < line.size(); ++i) {
            const QLineF segment(line[i - 1], line[i]);
            if (caption.contains(segment.p1())) return true;
            for (qsizetype side = 1; side < frame.size(); ++side)
                if (segment.intersects(QLineF(frame[side - 1], frame[side]), nullptr) ==
                    QLineF::BoundedIntersection)
                    return true;
        }
    }
    return false;
}

std::vector<EnvelopeDrawing::Caption> EnvelopeDrawing::captions(const QRectF& place) const {
    constexpr double lineDistance = 6;
    constexpr double cornerDistance = 8;
    constexpr double apart = 4;
    const QFontMetricsF metrics(captionFont());
    std::vector<Caption> result;
    for (const clsLimit* limit : drawingOrder()) {
        const QString text = QString::fromStdString(limit->Caption).trimmed();
        if (text.isEmpty()) continue;
        const auto segment = captionSegment(lineOf(*limit, place));
        if (!segment) continue;
        const QSizeF size(metrics.horizontalAdvance(text), metrics.capHeight());
        // The line may rise to the right: the caption keeps clear of it over its whole width.
        const auto lineAt = [&](double x) {
            return segment->dx() > 0 ? segment->pointAt((x - segment->x1()) / segment->dx()).y()
                                     : segment->y1();
        };
        const auto placed = [&](double right) {
            const auto [high, low] = std::minmax({lineAt(right), lineAt(right - size.width())});
            const QRectF above({right - size.width(), high - lineDistance - size.height()}, size);
            if (!touchesOther(above.adjusted(-2, -2, 2, 2), *limit, place)) return above;
            const QRectF below({right - size.width(), low + lineDistance}, size);
            return touchesOther(below.adjusted(-2, -2, 2, 2), *limit, place) ? above : below;
        };
        const auto isTaken = [&](const QRectF& room) {
            return std::ranges::any_of(result, [&](const Caption& other) {
                return other.room.adjusted(-apart, -apart, apart, apart).intersects(room);
            });
        };
        const QRectF first = placed(segment->p2().x() - cornerDistance);
        QRectF room = first;
        while (isTaken(room) && room.left() > segment->x1() + size.width())
            room = placed(room.right() - size.width() - cornerDistance);
        // No room along the line: the nearest one over or under the caption that is in the way.
        const double step = size.height() + apart + 1;
        for (int rows = 1; isTaken(room) && rows * step < place.height(); ++rows)
            for (const int side : {-1, 1})
                if (const QRectF beside = first.translated(0, side * rows * step);
                    isTaken(room) && !isTaken(beside))
                    room = beside;
        result.push_back({limit, text, room});
    }
    return result;
}

void EnvelopeDrawing::paintCaptions(QPainter& painter, const QRectF& place,
                                    const GraphColours& colours) const {
    for (const Caption& caption : captions(place))
        drawText(painter, caption.room.bottomLeft(), captionFont(), caption.text,
                 colours.line(*caption.limit), colours.plot);
}

void EnvelopeDrawing::paintTitles(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    const QFont font = lookFont(titleSize);
    const QFontMetricsF metrics(font);
    // Above the labels, also where five units are few pixels.
    const double baseline = std::min(toPlace({0, corners_.bottom - 5}, place).y() + 4,
                                     labelBaseline(place) - metrics.height() + 1);
    drawText(painter, {place.center().x() - metrics.horizontalAdvance(textX) / 2, baseline}, font, textX,
             colours.text, colours.plot);
    constexpr double gap = 14;
    const double x =
        std::max(place.left() + metrics.ascent() + titleMargin, labelRight(place) - labelWidth() - gap);
    painter.save();
    painter.translate(x, place.top() + 10 + metrics.horizontalAdvance(textY));
    painter.rotate(-90);
    drawText(painter, {0, 0}, font, textY, colours.text, colours.plot);
    painter.restore();
}

/// Of a point that is being moved: where it was, and the way from there.
void EnvelopeDrawing::paintOrigin(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    const QPointF from = toPlace(*origin, place);
    const QLineF way(from, toPlace(*point, place));
    constexpr double ring = 6;
    QPen dots(colours.point, 1.5, Qt::CustomDashLine, Qt::FlatCap);
    dots.setDashPattern({1.5, 1.5});
    painter.setPen(dots);
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(from, ring, ring);
    if (way.length() <= ring) return;
    dots.setWidthF(1);
    dots.setDashPattern({2, 2});
    painter.setPen(dots);
    painter.drawLine(way.pointAt(ring / way.length()), way.p2());
}

void EnvelopeDrawing::paintPoint(QPainter& painter, const QRectF& place, const GraphColours& colours) const {
    if (!point || !isDrawable(place)) return;
    painter.save();
    painter.setClipRect(place, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF at = toPlace(*point, place);
    QColor guide = colours.point;
    guide.setAlphaF(0.55F);
    QPen dashes(guide, 1, Qt::CustomDashLine, Qt::FlatCap);
    dashes.setDashPattern({3, 3});
    painter.setPen(dashes);
    painter.setBrush(Qt::NoBrush);
    const QPointF corner = toPlace({corners_.left, corners_.bottom}, place);
    painter.drawPolyline(QPolygonF({QPointF(at.x(), corner.y()), at, QPointF(corner.x(), at.y())}));
    if (origin) paintOrigin(painter, place, colours);
    painter.setPen(QPen(colours.point, 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(at, 7, 7);
    painter.setPen(QPen(colours.plot, 1));
    painter.setBrush(colours.point);
    painter.drawEllipse(at, 3.2, 3.2);
    painter.restore();
}

}  // namespace marvello
