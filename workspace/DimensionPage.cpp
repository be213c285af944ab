#include "workspace/DimensionPage.h"

#include <QPainter>

#include "controls/Look.h"

namespace marvello {

DimensionPage::DimensionPage(QWidget* parent) : QWidget(parent) {}

void DimensionPage::clear() { setDrawing(Metafile(), QString()); }

void DimensionPage::setDrawing(const Metafile& drawing, const QString& emptyText) {
    drawing_ = drawing;
    emptyText_ = emptyText;
    setAccessibleDescription(drawing.isNull() ? emptyText : drawing.texts().join(QStringLiteral(", ")));
    update();
}

void DimensionPage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (drawing_.isNull()) {
        painter.setPen(Look::current().muted);
        painter.setFont(lookFont());
        painter.drawText(rect(), Qt::AlignCenter, emptyText_);
        return;
    }
    constexpr int margin = 16;
    // Drawings are black on paper, in the dark look as well.
    painter.fillRect(rect(), Qt::white);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing_.draw(painter, QRectF(rect()).adjusted(margin, margin, -margin, -margin));
}

}  // namespace marvello
