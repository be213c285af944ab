#include "demo/pictures/Marks.h"

#include <QPainter>
#include <utility>

#include "controls/Look.h"

namespace marvello::pictures {

namespace {

void drawEmblem(QPainter& painter, QRectF square, QColor colour) {
    painter.save();
    painter.translate(square.topLeft());
    painter.scale(square.width(), square.height());
    painter.fillPath(emblem(), colour);
    painter.restore();
}

void prepare(QPainter& painter, QColor colour) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(colour);
}

QFont spaced(int size) {
    QFont font = lookFont(size, QFont::Medium);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.14 * size);
    return font;
}

}  // namespace

QPainterPath emblem() {
    QPainterPath path;
    path.addRect(1.5, 1.5, 3.4, 13);
    path.moveTo(6, 8);
    for (const auto& [x, y] : {std::pair{11.0, 1.5}, {15.1, 1.5}, {10.2, 8.0}, {15.1, 14.5}, {11.0, 14.5}})
        path.lineTo(x, y);
    path.closeSubpath();
    return QTransform::fromScale(1 / 16.0, 1 / 16.0).map(path);
}

QImage wordMark() {
    const QColor colour(0xF2F5F6);
    QImage image(560, 96, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    prepare(painter, colour);
    drawEmblem(painter, {4, 8, 80, 80}, colour);
    painter.setFont(spaced(72));
    painter.drawText(QRectF(104, 0, 452, 96), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("KESTROM"));
    return image;
}

QImage namePlate(const std::string& serie) {
    QImage image(420, 260, QImage::Format_ARGB32);
    image.fill(QColor(0xDDE1E3));
    QPainter painter(&image);
    prepare(painter, QColor(0x20292E));
    painter.fillRect(0, 0, 420, 74, QColor(0x0E6A80));
    drawEmblem(painter, {22, 15, 44, 44}, Qt::white);
    painter.setPen(Qt::white);
    painter.setFont(spaced(38));
    painter.drawText(QRectF(84, 0, 330, 74), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("KESTROM"));
    painter.setPen(QColor(0x20292E));
    painter.setFont(lookFont(54, QFont::Medium));
    painter.drawText(QRectF(22, 82, 390, 66), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::fromStdString(serie));
    for (int i = 0; i < 4; ++i) {
        painter.fillRect(22, 162 + 24 * i, 110, 9, QColor(0x8A949A));
        painter.fillRect(160, 162 + 24 * i, 150 + (i * 37) % 70, 9, QColor(0x3C464C));
    }
    return image;
}

QImage converterDisplay() {
    QImage image(300, 180, QImage::Format_ARGB32);
    image.fill(QColor(0x0A1418));
    QPainter painter(&image);
    prepare(painter, QColor(0x9FE3F0));
    painter.setFont(lookFont(92, QFont::Medium));
    painter.drawText(QRectF(16, 10, 190, 112), Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("50.0"));
    painter.setFont(lookFont(44));
    painter.drawText(QRectF(212, 34, 80, 80), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Hz"));
    painter.fillRect(24, 136, 250, 14, QColor(0x24424B));
    painter.fillRect(24, 136, 170, 14, QColor(0x58B9CE));
    return image;
}

}  // namespace marvello::pictures
