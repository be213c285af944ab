#include "controls/MetafilePlayer.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/Look.h"

namespace marvello {

namespace {

/// No drawing has lines longer than so many diagonals of it in all; their dashes count more.
constexpr double maxLength = 20000;
constexpr std::size_t maxStates = 256;
constexpr std::size_t maxObjects = 65536;

QColor colourOf(const MetafileParameters& record, std::size_t index) { return QColor(record.colour(index)); }

Qt::BrushStyle brushStyle(int style, int hatch) {
    static constexpr Qt::BrushStyle hatches[]{Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                              Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    if (style == 0) return Qt::SolidPattern;
    return style == 2 && hatch < 6 ? hatches[hatch] : Qt::NoBrush;
}

/// Lengths of line and gap by pen style.
QList<qreal> dashes(int style) {
    switch (style) {
        case 1:
            return {9, 4};
        case 2:
            return {2, 3};
        case 3:
            return {18, 4, 3, 4};
        case 4:
            return {18, 4, 3, 4, 3, 4};
        default:
            return {};
    }
}

}  // namespace

MetafilePlayer::MetafilePlayer(QPainter& painter, const QRectF& target, const QRectF& window)
    : painter_(painter),
      target_(target),
      reach_(std::hypot(target.width(), target.height())),
      budget_(maxLength * reach_) {
    state_.origin = window.topLeft();
    state_.extent = window.size();
}

void MetafilePlayer::play(const MetafileParameters& record) {
    if (const auto text = record.drawnText())
        playText(*text);
    else if (!playState(record) && !playObject(record) && !playLines(record))
        playShape(record);
}

bool MetafilePlayer::playState(const MetafileParameters& record) {
    switch (record.function()) {
        case MetafileFunction::saveState:
            if (saved_.size() < maxStates) saved_.push_back(state_);
            return true;
        case MetafileFunction::restoreState:
            restore(record.word(0));
            return true;
        case MetafileFunction::setWindowOrigin:
            state_.origin = record.pointYx(0);
            return true;
        case MetafileFunction::setWindowExtent:
            if (record.word(0) != 0 && record.word(1) != 0)
                state_.extent = QSizeF(record.word(1), record.word(0));
            return true;
        case MetafileFunction::setBackgroundMode:
            state_.isOpaque = record.number(0) == 2;
            return true;
        case MetafileFunction::setBackgroundColour:
            state_.background = colourOf(record, 0);
            return true;
        case MetafileFunction::setTextColour:
            state_.textColour = colourOf(record, 0);
            return true;
        case MetafileFunction::setTextAlign:
            state_.align = record.number(0);
            return true;
        case MetafileFunction::setFillMode:
            state_.fill = record.number(0) == 2 ? Qt::WindingFill : Qt::OddEvenFill;
            return true;
        default:
            return false;
    }
}

bool MetafilePlayer::playObject(const MetafileParameters& record) {
    switch (record.function()) {
        case MetafileFunction::createPen:
            create(Pen{record.number(0), std::abs(record.word(1)), colourOf(record, 3)});
            return true;
        case MetafileFunction::createBrush:
            create(Brush{brushStyle(record.number(0), record.number(3)), colourOf(record, 1)});
            return true;
        case MetafileFunction::createFont:
            create(
                Font{record.word(0), record.word(2), record.word(4) > 500, (record.number(5) & 0xFF) != 0});
            return true;
        case MetafileFunction::createPalette:
        case MetafileFunction::createPatternBrush:
        case MetafileFunction::createDibPatternBrush:
        case MetafileFunction::createRegion:
            create(Unused{});
            return true;
        case MetafileFunction::selectObject:
            select(record.number(0));
            return true;
        case MetafileFunction::deleteObject: {
            const auto index = static_cast<std::size_t>(record.number(0));
            if (index < objects_.size() && !std::holds_alternative<std::monostate>(objects_[index])) {
                objects_[index] = std::monostate{};
                free_.push(static_cast<int>(index));
            }
            return true;
        }
        default:
            return false;
    }
}

bool MetafilePlayer::playLines(const MetafileParameters& record) {
    switch (record.function()) {
        case MetafileFunction::moveTo:
            state_.place = record.pointYx(0);
            return true;
        case MetafileFunction::lineTo: {
            QPainterPath path(mapped(state_.place));
            state_.place = record.pointYx(0);
            path.lineTo(mapped(state_.place));
            draw(path, false);
            return true;
        }
        case MetafileFunction::polyline:
        case MetafileFunction::polygon:
            if (const auto line = points(record, 1, record.number(0))) {
                const bool closed = record.function() == MetafileFunction::polygon;
                QPainterPath path;
                path.addPolygon(*line);
                if (closed) path.closeSubpath();
                draw(path, closed);
            }
            return true;
        case MetafileFunction::polyPolygon:
            playPolyPolygon(record);
            return true;
        default:
            return false;
    }
}

void MetafilePlayer::playPolyPolygon(const MetafileParameters& record) {
    const int count = record.number(0);
    auto next = 1 + static_cast<std::size_t>(count);
    if (!record.has(next)) return;
    QPainterPath path;
    for (int i = 0; i < count; ++i) {
        const int length = record.number(1 + static_cast<std::size_t>(i));
        const auto line = points(record, next, length);
        if (!line) return;
        path.addPolygon(*line);
        path.closeSubpath();
        next += 2 * static_cast<std::size_t>(length);
    }
    draw(path, true);
}

void MetafilePlayer::playShape(const MetafileParameters& record) {
    QPainterPath path;
    switch (record.function()) {
        case MetafileFunction::rectangle:
            if (!record.has(4)) return;
            path.addRect(bounds(record, 0));
            break;
        case MetafileFunction::ellipse:
            if (!record.has(4)) return;
            path.addEllipse(bounds(record, 0));
            break;
        case MetafileFunction::roundRectangle: {
            if (!record.has(6)) return;
            const QRectF box = bounds(record, 2);
            path.addRoundedRect(box, std::abs(record.word(1) / state_.extent.width()) * target_.width() / 2,
                                std::abs(record.word(0) / state_.extent.height()) * target_.height() / 2);
            break;
        }
        case MetafileFunction::arc:
        case MetafileFunction::pie:
        case MetafileFunction::chord:
            if (!record.has(8)) return;
            draw(curve(record), record.function() != MetafileFunction::arc);
            return;
        default:
            return;
    }
    draw(path, true);
}

void MetafilePlayer::playText(const MetafileParameters::Text& text) {
    constexpr int updatePlace = 1, right = 2, centre = 6, bottom = 8, baseline = 24;
    constexpr double drawn = 64;  // laid out at this size and scaled: the same at any scale
    QFont font = lookFont(static_cast<int>(drawn), state_.font.isBold ? QFont::Medium : QFont::Normal);
    font.setItalic(state_.font.isItalic);
    font.setHintingPreference(QFont::PreferNoHinting);
    const QFontMetricsF metrics(font);
    const double height = std::abs(state_.font.height) * std::abs(target_.height() / state_.extent.height());
    // A positive height is that of the line, a negative one that of the letters.
    double size = (state_.font.height > 0 ? drawn / metrics.height() : 1) * height;
    if (state_.font.height == 0) size = 12 * std::abs(target_.height() / state_.extent.height());
    size = std::min(size, target_.height());
    const QString shown = text.text.left(1000);
    if (size < 0.1 || !spend(20 * size * static_cast<double>(shown.size()))) return;
    const double width = metrics.horizontalAdvance(shown);
    double x = 0, y = metrics.ascent();
    if ((state_.align & centre) == centre)
        x = -width / 2;
    else if ((state_.align & right) != 0)
        x = -width;
    if ((state_.align & baseline) == baseline)
        y = 0;
    else if ((state_.align & bottom) != 0)
        y = -metrics.descent();
    const QPoint place = (state_.align & updatePlace) != 0 ? state_.place : text.place;
    painter_.save();
    painter_.translate(mapped(place));
    painter_.rotate(-state_.font.escapement / 10.0);
    painter_.scale(size / drawn, size / drawn);
    if (state_.isOpaque)
        painter_.fillRect(QRectF(x, y - metrics.ascent(), width, metrics.height()), state_.background);
    painter_.setFont(font);
    painter_.setPen(state_.textColour);
    painter_.drawText(QPointF(x, y), shown);
    painter_.restore();
}

/// A new object takes the lowest number that is free.
void MetafilePlayer::create(Object object) {
    if (!free_.empty()) {
        objects_[static_cast<std::size_t>(free_.top())] = object;
        free_.pop();
    } else if (objects_.size() < maxObjects) {
        objects_.push_back(object);
    }
}

void MetafilePlayer::select(int index) {
    if (static_cast<std::size_t>(index) >= objects_.size()) return;
    const Object& object = objects_[static_cast<std::size_t>(index)];
    if (const auto* pen = std::get_if<Pen>(&object)) state_.pen = *pen;
    if (const auto* brush = std::get_if<Brush>(&object)) state_.brush = *brush;
    if (const auto* font = std::get_if<Font>(&object)) state_.font = *font;
}

/// `which` is the number of a saved state, or counts back from the last one, -1.
void MetafilePlayer::restore(int which) {
    const int index = which < 0 ? static_cast<int>(saved_.size()) + which : which - 1;
    if (index < 0 || index >= static_cast<int>(saved_.size())) return;
    state_ = saved_[static_cast<std::size_t>(index)];
    saved_.resize(static_cast<std::size_t>(index));
}

QPointF MetafilePlayer::mapped(QPointF point) const {
    const double x = (point.x() - state_.origin.x()) / state_.extent.width() * target_.width();
    const double y = (point.y() - state_.origin.y()) / state_.extent.height() * target_.height();
    // Far outside nothing is seen, and lines there would only take time.
    return target_.topLeft() +
           QPointF(std::clamp(x, -4 * reach_, 5 * reach_), std::clamp(y, -4 * reach_, 5 * reach_));
}

double MetafilePlayer::scale() const { return std::abs(target_.width() / state_.extent.width()); }

QRectF MetafilePlayer::bounds(const MetafileParameters& record, std::size_t index) const {
    return QRectF(mapped(record.pointYx(index + 2)), mapped(record.pointYx(index))).normalized();
}

std::optional<QPolygonF> MetafilePlayer::points(const MetafileParameters& record, std::size_t index,
                                                int count) const {
    if (count < 2 || !record.has(index + 2 * static_cast<std::size_t>(count))) return {};
    QPolygonF all;
    all.reserve(count);
    for (int i = 0; i < count; ++i)
        all.append(mapped(record.pointXy(index + 2 * static_cast<std::size_t>(i))));
    return all;
}

/// The part of an ellipse from one ray to the other against the clock, as an arc, with its chord or as a pie.
QPainterPath MetafilePlayer::curve(const MetafileParameters& record) const {
    const QRectF box = bounds(record, 4);
    if (box.width() <= 0 || box.height() <= 0) return {};
    const auto angle = [&](QPointF point) {
        const QPointF way = mapped(point) - box.center();
        return std::atan2(-way.y() / box.height(), way.x() / box.width()) * 180 / M_PI;
    };
    const double from = angle(record.pointYx(2));
    double sweep = angle(record.pointYx(0)) - from;
    if (sweep <= 0) sweep += 360;
    QPainterPath path;
    if (record.function() == MetafileFunction::pie)
        path.moveTo(box.center());
    else
        path.arcMoveTo(box, from);
    path.arcTo(box, from, sweep);
    if (record.function() != MetafileFunction::arc) path.closeSubpath();
    return path;
}

QPen MetafilePlayer::pen(double length) const {
    constexpr int none = 5;
    if (state_.pen.style == none) return Qt::NoPen;
    // A line is never thinner than one seen well, nor wider than the picture.
    const double width = std::clamp(state_.pen.width * scale(), reach_ / 2000, reach_);
    QPen pen(state_.pen.colour, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    const double unit = std::max(width, reach_ / 1200) / width;
    QList<qreal> pattern = dashes(state_.pen.style);
    if (pattern.empty() || length > 20 * reach_) return pen;
    for (qreal& part : pattern) part *= unit;
    pen.setDashPattern(pattern);
    return pen;
}

void MetafilePlayer::draw(const QPainterPath& path, bool filled) {
    if (path.isEmpty()) return;
    double length = 0;
    for (int i = 1; i < path.elementCount(); ++i)
        length += QLineF(path.elementAt(i - 1), path.elementAt(i)).length();
    const bool dashed = !dashes(state_.pen.style).empty();
    if (!spend((dashed ? 10 : 1) * length + 0.002 * reach_)) return;
    QPainterPath ruled = path;
    ruled.setFillRule(state_.fill);
    painter_.setPen(pen(length));
    painter_.setBrush(filled ? QBrush(state_.brush.colour, state_.brush.style) : QBrush(Qt::NoBrush));
    painter_.drawPath(ruled);
}

bool MetafilePlayer::spend(double length) {
    budget_ -= length;
    return budget_ > 0;
}

void Metafile::draw(QPainter& painter, const QRectF& within) const {
    if (isNull() || within.width() < 1 || within.height() < 1) return;
    QRectF target(QPointF(), box_.size().scaled(within.size(), Qt::KeepAspectRatio));
    target.moveCenter(within.center());
    painter.save();
    painter.setClipRect(target, Qt::IntersectClip);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    MetafilePlayer player(painter, target, box_);
    for (const Record& record : records_) player.play(MetafileParameters(*this, record));
    painter.restore();
}

}  // namespace marvello
