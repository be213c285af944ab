#include "controls/Splitter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "controls/Look.h"

namespace marvello {

Splitter::Splitter(QWidget* parent) : QWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
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
    const int most = total() - splitterSize_;
    int result = std::min(position, most);
    if (maxSize_ > 0)
        result = maxSizeAppliesTo_ == 0 ? std::min(result, maxSize_) : std::max(result, most - maxSize_);
    result = std::min(std::max({result, minSize1_, minSizeAux_}), most - minSize2_);
    return std::max(result, minSize1_);
}

void Splitter::moveTo(int position) {
    current_ = clamped(position);
    place();
}

void Splitter::place() {
    if (QWidget* first = taken(child1_)) first->setGeometry(half(0, current_));
    if (QWidget* second = taken(child2_)) second->setGeometry(half(current_ + splitterSize_, total()));
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
    const QColor& chosen = dragging_ && !liveUpdate_ ? splitterDragColor_ : splitterBackColor_;
    painter.fillRect(rect(), look.surface);
    painter.fillRect(bar, chosen.isValid() ? chosen : look.window);
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
    update();
}

void Splitter::mouseMoveEvent(QMouseEvent* event) {
    if (!dragging_) return;
    current_ = clamped(along(event->pos()) - grabOffset_);
    if (liveUpdate_)
        place();
    else
        update();
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
    releaseKeyboard();
    if (!keep) current_ = dragStart_;
    splitterPos_ = current_;
    ratioFromTop_ = CurrRatioFromTop();
    place();
    emit moved();
}

}  // namespace marvello
