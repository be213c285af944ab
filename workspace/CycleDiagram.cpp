#include "workspace/CycleDiagram.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/CoreText.h"
#include "controls/EnvelopeDrawing.h"
#include "controls/Look.h"
#include "controls/NumberText.h"
#include "reports/PaintedDrawing.h"
#include "results/CycleTexts.h"

namespace marvello {

namespace {

QLabel* readingLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(QStringLiteral("lblState"));
    label->setFont(lookFont(12));
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setStyleSheet(QStringLiteral("background: %1; color: %2; border-radius: 4px; padding: 4px 9px;")
                             .arg(Look::current().text.name(), Look::current().surface.name()));
    label->hide();
    return label;
}

DrawnPoint placeOf(const QPointF& point) { return {point.x(), point.y()}; }

/// A part of a range from one share of it to another, both moved so that they stay inside.
std::pair<double, double> inside(double low, double high) {
    if (high - low >= 1) return {0, 1};
    const double off = std::max(0.0, -low) - std::max(0.0, high - 1);
    return {low + off, high + off};
}

}  // namespace

CycleColours CycleDiagram::onScreen() {
    const Look& look = Look::current();
    return {.ground = drawnColour(look.surface),
            .text = drawnColour(look.text),
            .muted = drawnColour(look.muted),
            .grid = drawnColour(GraphColours::onScreen().grid),
            .lines = drawnColour(look.controlLine, CycleColours().lines.opacity),
            .accent = drawnColour(look.accent)};
}

CycleDiagram::CycleDiagram(QWidget* parent) : QWidget(parent), reading_(readingLabel(this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void CycleDiagram::setContent(Content content) {
    // A cycle of the same refrigerant goes on at the part that is looked at.
    const bool isSamePlane = content_.diagram && content.diagram && content_.title == content.title &&
                             content_.diagram->range == content.diagram->range;
    content_ = std::move(content);
    chosen_.reset();
    reading_->hide();
    setAccessibleName(content_.title);
    if (content_.diagram && !isSamePlane) shown_ = content_.diagram->range;
    redraw();
}

void CycleDiagram::choose(std::optional<std::size_t> state) {
    if (chosen_ == state) return;
    chosen_ = state;
    if (chosen_ && content_.cycle)
        setAccessibleDescription(
            QString::number(*chosen_ + 1) + u' ' +
            fromCore(nameOfState(content_.cycle->states[*chosen_].point, content_.cycle->economizer)));
    redraw();
}

void CycleDiagram::redraw() {
    picture_ = QPixmap();
    update();
}

PhPlane CycleDiagram::plane() const { return {shown_, double(width()), double(height())}; }

Drawing CycleDiagram::drawing(const CycleColours& colours, std::optional<std::size_t> chosen) const {
    return cycleDrawing(*content_.cycle, *content_.diagram,
                        {.width = double(width()),
                         .height = double(height()),
                         .shown = shown_,
                         .units = content_.units,
                         .marks = marksOf(QLocale()),
                         .colours = colours,
                         .chosen = chosen,
                         .title = toCore(content_.title)});
}

Drawing CycleDiagram::onPaper() const { return drawing(CycleColours(), {}); }

void CycleDiagram::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!content_.cycle) {
        painter.fillRect(rect(), Look::current().surface);
        return;
    }
    if (picture_.isNull()) {
        picture_ = QPixmap(size() * devicePixelRatioF());
        picture_.setDevicePixelRatio(devicePixelRatioF());
        QPainter drawn(&picture_);
        paintDrawing(drawn, drawing(onScreen(), chosen_));
    }
    painter.drawPixmap(0, 0, picture_);
    if (!hasFocus()) return;
    painter.setPen(QPen(Look::current().accent, 1));
    painter.drawRect(rect().adjusted(1, 1, -2, -2));
}

void CycleDiagram::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    redraw();
}

/// Shares of the whole, in enthalpy and in the logarithm of the pressure: a part stays inside of it.
void CycleDiagram::showPart(const PhRange& range) {
    const PhRange& whole = content_.diagram->range;
    const double wide = whole.highH - whole.lowH;
    const double high = std::log(whole.highP / whole.lowP);
    const auto [left, right] = inside((range.lowH - whole.lowH) / wide, (range.highH - whole.lowH) / wide);
    const auto [bottom, top] =
        inside(std::log(range.lowP / whole.lowP) / high, std::log(range.highP / whole.lowP) / high);
    const bool isAll = right - left == 1 && top - bottom == 1;
    shown_ = isAll ? whole
                   : PhRange{whole.lowH + left * wide, whole.lowH + right * wide,
                             whole.lowP * std::exp(bottom * high), whole.lowP * std::exp(top * high)};
    reading_->hide();
    setCursor(isWhole() ? Qt::ArrowCursor : Qt::OpenHandCursor);
    redraw();
}

void CycleDiagram::zoom(double steps, const DrawnPoint& fixed) {
    constexpr double perStep = 1.25;
    constexpr double most = 32;
    const PhRange& whole = content_.diagram->range;
    const double now = (whole.highH - whole.lowH) / (shown_.highH - shown_.lowH);
    const double factor = std::clamp(now * std::pow(perStep, steps), 1.0, most) / now;
    const PhPoint at = plane().pointAt(fixed);
    const auto nearer = [factor](double end, double middle) { return middle + (end - middle) / factor; };
    const auto nearerLog = [&](double end, double middle) {
        return std::exp(nearer(std::log(end), std::log(middle)));
    };
    showPart({nearer(shown_.lowH, at.h), nearer(shown_.highH, at.h), nearerLog(shown_.lowP, at.p),
              nearerLog(shown_.highP, at.p)});
}

void CycleDiagram::moveBy(const QPointF& distance) {
    const PhPlane now = plane();
    const PhPoint low = now.pointAt({now.left() - distance.x(), now.bottom() - distance.y()});
    const PhPoint high = now.pointAt({now.right() - distance.x(), now.top() - distance.y()});
    showPart({low.h, high.h, low.p, high.p});
}

void CycleDiagram::wheelEvent(QWheelEvent* event) {
    constexpr double turn = 120;
    if (!content_.cycle || event->angleDelta().y() == 0) return event->ignore();
    zoom(event->angleDelta().y() / turn, placeOf(event->position()));
}

void CycleDiagram::mousePressEvent(QMouseEvent* event) {
    reading_->hide();  // not below a menu, and not where a part is moved
    if (!content_.cycle || event->button() != Qt::LeftButton) return;
    if (const auto state = stateAt(*content_.cycle, plane(), placeOf(event->position())))
        emit stateChosen(*state);
    else if (!isWhole())
        dragged_ = event->position();
}

void CycleDiagram::mouseMoveEvent(QMouseEvent* event) {
    if (!content_.cycle) return;
    if (dragged_) {
        moveBy(event->position() - *dragged_);
        dragged_ = event->position();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    read(event->position());
}

void CycleDiagram::mouseReleaseEvent(QMouseEvent*) {
    if (!dragged_) return;
    dragged_.reset();
    setCursor(Qt::OpenHandCursor);
}

void CycleDiagram::mouseDoubleClickEvent(QMouseEvent*) {
    if (content_.cycle) showPart(content_.diagram->range);
}

void CycleDiagram::read(const QPointF& place) {
    const PhPlane now = plane();
    if (!now.contains(placeOf(place)) || !content_.reading) return reading_->hide();
    const auto state = stateAt(*content_.cycle, now, placeOf(place));
    PhPoint point = now.pointAt(placeOf(place));
    QString text;
    if (state) {
        const CycleState& at = content_.cycle->states[*state];
        point = {at.state.h, at.state.p};
        text = QString::number(*state + 1) + u' ' +
               fromCore(nameOfState(at.point, content_.cycle->economizer)) + u'\n';
    }
    reading_->setText(text + content_.reading(point));
    reading_->adjustSize();
    constexpr int away = 14;
    QPoint corner = place.toPoint() + QPoint(away, away);
    if (corner.x() + reading_->width() > width()) corner.rx() -= reading_->width() + 2 * away;
    if (corner.y() + reading_->height() > height()) corner.ry() -= reading_->height() + 2 * away;
    reading_->move(corner);
    reading_->show();
}

void CycleDiagram::leaveEvent(QEvent* event) {
    reading_->hide();
    QWidget::leaveEvent(event);
}

void CycleDiagram::step(int by) {
    const int count = static_cast<int>(content_.cycle->states.size());
    const int from = chosen_ ? static_cast<int>(*chosen_) : (by > 0 ? -1 : count);
    emit stateChosen(static_cast<std::size_t>((from + by + count) % count));
}

void CycleDiagram::keyPressEvent(QKeyEvent* event) {
    if (!content_.cycle) return QWidget::keyPressEvent(event);
    const PhPlane now = plane();
    DrawnPoint middle{(now.left() + now.right()) / 2, (now.top() + now.bottom()) / 2};
    if (chosen_) {
        const FluidState& state = content_.cycle->states[*chosen_].state;
        const DrawnPoint place = now.placeOf({state.h, state.p});
        if (now.contains(place)) middle = place;
    }
    switch (event->key()) {
        case Qt::Key_Up:
        case Qt::Key_Left:
            return step(-1);
        case Qt::Key_Down:
        case Qt::Key_Right:
            return step(1);
        case Qt::Key_Plus:
            return zoom(1, middle);
        case Qt::Key_Minus:
            return zoom(-1, middle);
        case Qt::Key_0:
        case Qt::Key_Home:
            return showPart(content_.diagram->range);
        default:
            QWidget::keyPressEvent(event);
    }
}

void CycleDiagram::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void CycleDiagram::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

}  // namespace marvello
