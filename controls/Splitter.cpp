#include "controls/Splitter.h"

#include <QAbstractItemView>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <algorithm>
#include <cmath>

#include "controls/Look.h"

namespace marvello {

namespace {

/// Puts a half in its place. A list overlaps the bar and the edges by its border, so that no seam is seen.
void putInPlace(QWidget& child, const QRect& half) {
    constexpr int border = 1;
    const bool isList = qobject_cast<QAbstractItemView*>(&child) != nullptr;
    child.setGeometry(isList ? half.adjusted(-border, -border, border, border) : half);
}

}  // namespace

Splitter::Splitter(QWidget* parent)
    : QWidget(parent), dragBar_(new QWidget(this)), Timer1_(new QTimer(this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    dragBar_->setAttribute(Qt::WA_TransparentForMouseEvents);
    dragBar_->setAutoFillBackground(true);
    dragBar_->hide();
    constexpr int interval = 100;  // milliseconds
    Timer1_->setInterval(interval);
    connect(Timer1_, &QTimer::timeout, this, [this] {
        if (dragging_ && !window()->frameGeometry().contains(QCursor::pos())) endDrag(true);
    });
}

void Splitter::SetOrientation(int orientation) {
    orientation_ = orientation;
    place();
}

void Splitter::SetSplitterSize(int size) {
    splitterSize_ = size;
    moveTo(splitterPos_);
}

void Splitter::SetSplitterPos(int position) {
    splitterPos_ = position;
    moveTo(position);
}

void Splitter::SetRatioFromTop(float ratio) {
    ratioFromTop_ = ratio;
    moveTo(static_cast<int>(std::nearbyint(ratio * static_cast<float>(total()))));
}

void Splitter::SetChild1(const QString& name) {
    child1_ = name;
    place();
}

void Splitter::SetChild2(const QString& name) {
    child2_ = name;
    place();
}

void Splitter::SetMaxSize(int size) {
    maxSize_ = size;
    moveTo(splitterPos_);
}

void Splitter::SetMinSize1(int size) {
    minSize1_ = size;
    moveTo(splitterPos_);
}

void Splitter::SetMinSize2(int size) {
    minSize2_ = size;
    moveTo(splitterPos_);
}

float Splitter::CurrRatioFromTop() const {
    return total() > 0 ? static_cast<float>(current_) / static_cast<float>(total()) : 0.0F;
}

int Splitter::total() const { return orientation_ == 0 ? width() : height(); }

QRect Splitter::half(int from, int to) const {
    const int length = std::max(0, to - from);
    return orientation_ == 0 ? QRect(from, 0, length, height()) : QRect(0, from, width(), length);
}

QRect Splitter::barRect() const { return half(current_, current_ + splitterSize_); }

QWidget* Splitter::taken(const QString& name) {
    if (name.isEmpty()) return nullptr;
    const auto named = [&name, this](QObject* among) -> QWidget* {
        if (!among) return nullptr;
        for (QWidget* child : among->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
            if (child != this && child->objectName().compare(name, Qt::CaseInsensitive) == 0) return child;
        return nullptr;
    };
    if (QWidget* own = named(this)) return own;
    QWidget* sibling = named(parent());
    if (sibling) {
        const bool hidden = sibling->isHidden();
        sibling->setParent(this);
        sibling->setVisible(!hidden);
    }
    return sibling;
}

int Splitter::clamped(int position) const {
    const int last = total() - splitterSize_;
    int result = std::min(position, last);
    if (maxSize_ > 0)
        result = maxSizeAppliesTo_ == 0 ? std::min(result, maxSize_) : std::max(result, last - maxSize_);
    result = std::min(std::max({result, minSize1_, minSizeAux_}), last - minSize2_);
    return std::max(result, minSize1_);
}

void Splitter::moveTo(int position) {
    current_ = clamped(position);
    place();
}

void Splitter::place() {
    if (QWidget* first = taken(child1_)) putInPlace(*first, half(0, current_));
    if (QWidget* second = taken(child2_)) putInPlace(*second, half(current_ + splitterSize_, total()));
    update();
}

void Splitter::resizeEvent(QResizeEvent*) {
    if (maintain_ == 1)
        SetRatioFromTop(ratioFromTop_);
    else
        moveTo(splitterPos_);
}

void Splitter::showEvent(QShowEvent*) { place(); }

void Splitter::paintEvent(QPaintEvent*) {
    const Look& look = Look::current();
    const QRect bar = barRect();
    QPainter painter(this);
    painter.fillRect(rect(), look.surface);
    painter.fillRect(bar, splitterBackColor_.isValid() ? splitterBackColor_ : look.window);
    painter.setPen(look.line);
    if (orientation_ == 0) {
        painter.drawLine(bar.topLeft(), bar.bottomLeft());
        painter.drawLine(bar.topRight(), bar.bottomRight());
    } else {
        painter.drawLine(bar.topLeft(), bar.topRight());
        painter.drawLine(bar.bottomLeft(), bar.bottomRight());
    }
    if (!hovered_ && !dragging_) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.controlLine);
    const QPointF centre = QRectF(bar).center();
    for (const int step : {-7, 0, 7})
        painter.drawEllipse(centre + (orientation_ == 0 ? QPointF(0, step) : QPointF(step, 0)), 1.2, 1.2);
}

void Splitter::enterEvent(QEnterEvent*) {
    hovered_ = true;
    if (allowResize_) setCursor(orientation_ == 0 ? Qt::SplitHCursor : Qt::SplitVCursor);
    update();
}

void Splitter::leaveEvent(QEvent*) {
    hovered_ = false;
    update();
}

void Splitter::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !allowResize_ || !barRect().contains(event->pos())) return;
    dragging_ = true;
    dragStart_ = current_;
    grabOffset_ = along(event->pos()) - current_;
    grabKeyboard();
    Timer1_->start();
    if (!liveUpdate_) {
        QPalette palette = dragBar_->palette();
        palette.setColor(QPalette::Window, splitterDragColor_);
        dragBar_->setPalette(palette);
        dragBar_->setGeometry(barRect());
        dragBar_->raise();
        dragBar_->show();
    }
    update();
}

void Splitter::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && allowResize_ && barRect().contains(event->pos()))
        emit doubleClicked();
}

void Splitter::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    if (clipCursor_ && !rect().contains(event->pos()))
        QCursor::setPos(mapToGlobal(QPoint(std::clamp(event->pos().x(), 0, width() - 1),
                                           std::clamp(event->pos().y(), 0, height() - 1))));
    current_ = clamped(along(event->pos()) - grabOffset_);
    if (liveUpdate_)
        place();
    else
        dragBar_->setGeometry(barRect());
}

void Splitter::mouseReleaseEvent(QMouseEvent*) {
    if (dragging_) endDrag(true);
}

void Splitter::keyPressEvent(QKeyEvent* event) {
    if (dragging_ && event->key() == Qt::Key_Escape)
        endDrag(false);
    else
        QWidget::keyPressEvent(event);
}

void Splitter::endDrag(bool keep) {
    dragging_ = false;
    Timer1_->stop();
    dragBar_->hide();
    releaseKeyboard();
    if (!keep) current_ = dragStart_;
    splitterPos_ = current_;
    ratioFromTop_ = CurrRatioFromTop();
    place();
    emit moved();
}

}  // namespace marvello
