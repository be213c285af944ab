#include "workspace/ChartPane.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <utility>

#include "controls/CoreText.h"
#include "controls/EnvelopeDrawing.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "controls/ReadOut.h"
#include "reports/PaintedDrawing.h"
#include "results/ChartReading.h"

namespace marvello {

ChartColours ChartPane::onScreen() {
    const Look& look = Look::current();
    return {.ground = drawnColour(look.surface),
            .text = drawnColour(look.text),
            .muted = drawnColour(look.muted),
            .grid = drawnColour(GraphColours::onScreen().grid),
            .accent = drawnColour(look.accent),
            .tint = drawnColour(look.accentTint),
            .point = drawnColour(GraphColours::onScreen().point)};
}

ChartPane::ChartPane(QWidget* parent) : QWidget(parent), readOut_(new ReadOut(this)) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    readOut_->setAttribute(Qt::WA_TransparentForMouseEvents);
    readOut_->hide();
}

void ChartPane::setChart(Chart chart) {
    const Chart before = std::exchange(chart_, std::move(chart));
    const std::vector<double> placesBefore = std::exchange(places_, readPlaces(chart_));
    setAccessibleName(fromCore(chart_.title));
    picture_ = QPixmap();
    // Another chart is read where the one before was, in another system of units as well.
    std::optional<std::size_t> goesOn;
    if (read_ && !places_.empty() && before.across.name == chart_.across.name) {
        if (before.across.unit == chart_.across.unit)
            goesOn = nearestTo(placesBefore[*read_]);
        else if (placesBefore.size() == places_.size())
            goesOn = read_;
    }
    read(goesOn);
}

Drawing ChartPane::drawing(const QSizeF& size, const ChartColours& colours) const {
    return chartDrawing(
        chart_,
        {.width = size.width(), .height = size.height(), .marks = marksOf(QLocale()), .colours = colours});
}

Drawing ChartPane::onPaper(const QSizeF& size) const { return drawing(size, ChartColours()); }

ChartPlane ChartPane::plane() const { return {chart_, double(width()), double(height())}; }

std::size_t ChartPane::nearestTo(double across) const {
    const auto behind = std::ranges::lower_bound(places_, across);
    if (behind == places_.begin()) return 0;
    const auto at = static_cast<std::size_t>(behind - places_.begin());
    return behind == places_.end() || across - places_[at - 1] < *behind - across ? at - 1 : at;
}

std::size_t ChartPane::middle() const {
    return nearestTo(chart_.marked.value_or(std::midpoint(places_.front(), places_.back())));
}

void ChartPane::read(std::optional<std::size_t> place) {
    read_ = place;
    dots_.clear();
    readOut_->setVisible(place.has_value());
    QString said;
    if (place) {
        const ChartPlane drawn = plane();
        const ChartReading reading = readChart(chart_, places_[*place], marksOf(QLocale()));
        std::vector<ReadOut::Row> rows;
        said = fromCore(reading.at);
        for (const ChartReading::Value& value : reading.values) {
            rows.push_back({fromCore(value.name), fromCore(value.text)});
            said += QStringLiteral("; ") + rows.back().caption + u' ' + rows.back().value;
            for (const DrawnPoint& point : value.points)
                dots_.push_back(drawn.placeOf(point, value.isOnSecond));
        }
        readOut_->setTitle(fromCore(reading.at));
        readOut_->setValues(std::move(rows));
        placeReadOut(drawn.placeOf({reading.across, 0}).x);
    }
    if (said != accessibleDescription()) {
        setAccessibleDescription(said);
        QAccessibleEvent changed(this, QAccessible::DescriptionChanged);
        QAccessible::updateAccessibility(&changed);
    }
    update();
}

void ChartPane::mousePressEvent(QMouseEvent* event) {
    const ChartPlane drawn = plane();
    const auto category = drawn.categoryAt(event->position().x());
    const bool isLeft = event->button() == Qt::LeftButton;
    if (isLeft && category && event->position().y() >= drawn.top()) emit categoryClicked(*category);
    QWidget::mousePressEvent(event);
}

/// Next to the line, at the side where there is room, and in the half without the values.
void ChartPane::placeReadOut(double x) {
    constexpr int gap = 10;
    const int wide = std::min(readOut_->fittingWidth(), width());
    const int line = static_cast<int>(x);
    const int right = line + gap;
    const int left = right + wide <= width() ? right : std::max(0, line - gap - wide);
    const int high = readOut_->heightForWidth(wide);
    const ChartPlane drawn = plane();
    const double half = (drawn.top() + drawn.bottom()) / 2;
    const auto above = std::ranges::count_if(dots_, [half](const DrawnPoint& dot) { return dot.y < half; });
    const bool isAtTop = 2 * above < std::ssize(dots_);
    const double top = isAtTop ? drawn.top() + gap : drawn.bottom() - gap - high;
    readOut_->setGeometry(left, std::max(static_cast<int>(top), 1), wide, high);
}

void ChartPane::paintEvent(QPaintEvent*) {
    if (picture_.isNull()) {
        picture_ = QPixmap(size() * devicePixelRatioF());
        picture_.setDevicePixelRatio(devicePixelRatioF());
        QPainter drawn(&picture_);
        paintDrawing(drawn, drawing(size(), onScreen()));
    }
    const Look& look = Look::current();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (read_) {
        const ChartPlane drawn = plane();
        const double x = std::floor(drawn.placeOf({places_[*read_], 0}).x) + 0.5;
        painter.setPen(QPen(look.controlLine, 1));
        painter.drawLine(QPointF(x, drawn.top()), QPointF(x, drawn.bottom()));
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(look.surface, 1));
        painter.setBrush(look.text);
        constexpr double radius = 3.5;
        for (const DrawnPoint& dot : dots_) painter.drawEllipse(QPointF(dot.x, dot.y), radius, radius);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QPen(look.controlLine, 1));
        painter.setBrush(look.surface);
        painter.drawRect(readOut_->geometry().adjusted(-1, -1, 0, 0));
    }
    if (!hasFocus()) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(look.accent, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(rect().adjusted(3, 3, -3, -3), 4, 4);
}

void ChartPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    picture_ = QPixmap();
    read(read_);
}

void ChartPane::mouseMoveEvent(QMouseEvent* event) {
    const ChartPlane drawn = plane();
    const double x = event->position().x();
    if (places_.empty() || x < drawn.left() || x > drawn.right()) return read(std::nullopt);
    const double share = (x - drawn.left()) / (drawn.right() - drawn.left());
    read(nearestTo(std::lerp(drawn.across().low, drawn.across().high, share)));
}

void ChartPane::leaveEvent(QEvent*) {
    if (!hasFocus()) read(std::nullopt);
}

void ChartPane::keyPressEvent(QKeyEvent* event) {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const auto step = [this](int by) {
        const auto last = std::ssize(places_) - 1;
        const auto at =
            read_ ? static_cast<std::ptrdiff_t>(*read_) + by : static_cast<std::ptrdiff_t>(middle());
        read(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at, 0, last)));
    };
    if (!isPlain || places_.empty()) return QWidget::keyPressEvent(event);
    switch (event->key()) {
        case Qt::Key_Left:
            return step(-1);
        case Qt::Key_Right:
            return step(1);
        case Qt::Key_Home:
            return read(0);
        case Qt::Key_End:
            return read(places_.size() - 1);
        case Qt::Key_Escape:
            if (read_) return read(std::nullopt);
            break;
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}

void ChartPane::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ChartPane::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    if (!underMouse()) read(std::nullopt);
    update();
}

}  // namespace marvello
