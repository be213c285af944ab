#include "workspace/DrawingObject.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintDevice>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

#include "reports/PaintedDrawing.h"

namespace marvello {

namespace {

constexpr int objectType = QTextFormat::UserObject + 1;
constexpr int placeProperty = QTextFormat::UserProperty + 1;

}  // namespace

DrawingObject::DrawingObject(QTextDocument& document) : QObject(&document) {
    document.documentLayout()->registerHandler(objectType, this);
}

void DrawingObject::insert(QTextCursor& cursor, const Drawing& drawing) {
    QTextCharFormat format;
    format.setObjectType(objectType);
    format.setProperty(placeProperty, static_cast<int>(drawings_.size()));
    drawings_.push_back(drawing);
    cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
}

const Drawing& DrawingObject::drawingOf(const QTextFormat& format) const {
    return drawings_.at(static_cast<std::size_t>(format.property(placeProperty).toInt()));
}

QSizeF DrawingObject::intrinsicSize(QTextDocument* document, int, const QTextFormat& format) {
    constexpr double logicalDpi = 96;
    const QPaintDevice* const device = document->documentLayout()->paintDevice();
    const double scale = device ? device->logicalDpiY() / logicalDpi : 1;
    const Drawing& drawing = drawingOf(format);
    return QSizeF(drawing.width, drawing.height) * scale;
}

void DrawingObject::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int,
                               const QTextFormat& format) {
    const Drawing& drawing = drawingOf(format);
    painter->save();
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / drawing.width, rect.height() / drawing.height);
    paintDrawing(*painter, drawing);
    painter->restore();
}

}  // namespace marvello
