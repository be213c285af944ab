#include "controls/WrapBar.h"

#include <QPainter>
#include <algorithm>

#include "controls/Hairline.h"
#include "controls/Look.h"

namespace marvello {

namespace {

constexpr int side = 12;
constexpr int gap = 6;
constexpr int rowGap = 8;
constexpr int separatorHeight = 20;

}  // namespace

WrapBar::WrapBar(QWidget* parent) : QWidget(parent) { setFixedHeight(lineHeight); }

void WrapBar::add(QWidget* control, int ring) {
    control->setParent(this);
    entries_ += Entry{control, ring, false};
}

QList<QWidget*> WrapBar::controls() const {
    QList<QWidget*> controls;
    for (const Entry& entry : entries_)
        if (!entry.isSeparator) controls += entry.control;
    return controls;
}

void WrapBar::addSeparator() {
    auto* line = new Hairline(this);
    line->setFixedSize(1 + 2 * gap, separatorHeight);
    entries_ += Entry{line, 0, true};
}

/// Of a control that begins at `left`: what it asks for, unless no line has that much.
int WrapBar::widthOf(const QWidget& control, int ring, int left) const {
    const int wanted = control.sizeHint().width();
    const int line = width() - 2 * side + 2 * ring;
    if (wanted <= line) return wanted;
    const int minimum = control.minimumSizeHint().width();
    const int rest = line - (left - side);
    return rest >= minimum ? rest : std::max(minimum, line);
}

void WrapBar::layOut() {
    int left = side;
    int middle = lineHeight / 2;
    int rowHeight = 0;
    for (qsizetype i = 0; i < entries_.size(); ++i) {
        const auto& [control, ring, isSeparator] = entries_[i];
        if (control->isHidden() && !isSeparator) continue;
        QSize size = isSeparator ? control->size() : control->sizeHint();
        if (!isSeparator) size.setWidth(widthOf(*control, ring, left));
        const int width = size.width() - 2 * ring;
        if (!isSeparator && left > side && left + width > this->width() - side) {
            // No separator at the end of a line.
            if (i > 0 && entries_[i - 1].isSeparator) entries_[i - 1].control->hide();
            left = side;
            middle += rowHeight + rowGap;
        } else if (isSeparator) {
            control->show();
        }
        if (!isSeparator) rowHeight = std::max(rowHeight, size.height() - 2 * ring);
        control->setGeometry(left - ring, middle - size.height() / 2, size.width(), size.height());
        left += width + gap;
    }
    end_ = left - gap;
    setFixedHeight(middle + lineHeight - lineHeight / 2);
}

QRect WrapBar::freeRoom() const {
    return {end_, height() - lineHeight, std::max(0, width() - side - end_), lineHeight - 1};
}

void WrapBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Look::current().surface);
    painter.fillRect(QRect(0, height() - 1, width(), 1), Look::current().line);
}

void WrapBar::resizeEvent(QResizeEvent*) { layOut(); }

}  // namespace marvello
