#include "controls/Container.h"

#include <QPainter>

#include "controls/Look.h"

namespace marvello {

Container::Container(QWidget* parent) : QWidget(parent), captionFont_(lookFont(14, QFont::Medium)) {
    connect(this, &Container::appearanceChanged, this, &Container::Refresh);
}

void Container::SetCaptionText(const QString& text) {
    captionText_ = text;
    Refresh();
}

void Container::SetCaptionForeColor(const QColor& colour) {
    captionForeColor_ = colour;
    emit appearanceChanged();
}

void Container::SetBordersColor(const QColor& colour) {
    borderLeftColor_ = borderTopColor_ = borderRightColor_ = borderBottomColor_ = colour;
    Refresh();
}

QList<QWidget*> Container::Controls() const {
    return findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
}

void Container::Refresh() {
    emit resized();
    update();
}

void Container::resizeEvent(QResizeEvent*) { emit resized(); }

void Container::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    PaintPic(painter);
}

void Container::PaintPic(QPainter& painter) const {
    const Look& look = Look::current();
    const auto orElse = [](const QColor& chosen, const QColor& token) {
        return chosen.isValid() ? chosen : token;
    };
    painter.fillRect(rect(), orElse(backColor_, look.surface));
    if (captionVisible_) {
        const QRect title(0, 0, width(), titleHeight);
        painter.fillRect(QRect(0, titleHeight - 1, width(), 1), look.line);
        painter.setFont(captionFont_);
        painter.setPen(isEnabled() ? orElse(captionForeColor_, look.text) : look.disabled);
        const auto horizontal = captionAlignment_ == 1   ? Qt::AlignRight
                                : captionAlignment_ == 2 ? Qt::AlignHCenter
                                                         : Qt::AlignLeft;
        painter.drawText(title.adjusted(16, 0, -16, -1), static_cast<int>(horizontal | Qt::AlignVCenter),
                         captionText_.trimmed());
    }
    if (!borderVisible_) return;
    const int right = width() - 1;
    const int bottom = height() - 1;
    const auto side = [&](const QColor& colour, int x1, int y1, int x2, int y2) {
        painter.setPen(orElse(colour, look.line));
        painter.drawLine(x1, y1, x2, y2);
    };
    side(borderLeftColor_, 0, 0, 0, bottom);
    side(borderTopColor_, 0, 0, right, 0);
    side(borderRightColor_, right, 0, right, bottom);
    side(borderBottomColor_, 0, bottom, right, bottom);
}

}  // namespace marvello
