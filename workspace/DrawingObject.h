#pragma once

#include <QObject>
#include <QTextObjectInterface>
#include <vector>

#include "results/Drawing.h"

class QTextCursor;

namespace marvello {

/// Drawings as letters of a text document: printed, they stay lines.
class DrawingObject : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

  public:
    /// For a document, which owns it.
    explicit DrawingObject(QTextDocument& document);

    /// Writes a drawing at a cursor of the document.
    void insert(QTextCursor& cursor, const Drawing& drawing);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

  private:
    const Drawing& drawingOf(const QTextFormat& format) const;

    std::vector<Drawing> drawings_;
};

}  // namespace marvello
