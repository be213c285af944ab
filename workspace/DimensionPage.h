#pragma once

#include <QWidget>

#include "controls/Metafile.h"
#include "controls/Zoom.h"

namespace marvello {

/// The dimension drawing of a model, as large as fits. The wheel with Ctrl and the keys plus and minus zoom,
/// a drag, the wheel and the arrow keys move; a double click and the key 0 fit it in again.
class DimensionPage : public QWidget {
    Q_OBJECT

  public:
    explicit DimensionPage(QWidget* parent = nullptr);

    void clear();
    /// Without a drawing `emptyText` is all that the page says.
    void setDrawing(const Metafile& drawing, const QString& emptyText);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    QRectF room() const;
    void zoomed();

    Metafile drawing_;
    QString emptyText_;
    Zoom zoom_;
    QPointF dragged_;  // where the mouse was last in a drag
};

}  // namespace marvello
