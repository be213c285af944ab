#pragma once

#include <QByteArray>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <memory>

#include "controls/EnvelopeDrawing.h"

class QLabel;

namespace marvello {

/// The envelope of a compressor in the plane of evaporating (x) against condensing temperature (y), with the
/// operating point and, under the limits, a map of a quantity. A label at the mouse says what is under it and
/// where. The point can be moved: with the mouse or, with the focus, with the arrow keys. Colours that are
/// not set follow the look.
class ctlGraph : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor BackColor MEMBER backColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(double ScaleLeft READ ScaleLeft WRITE SetScaleLeft)
    Q_PROPERTY(double ScaleTop READ ScaleTop WRITE SetScaleTop)
    Q_PROPERTY(double ScaleWidth READ ScaleWidth WRITE SetScaleWidth)
    Q_PROPERTY(double ScaleHeight READ ScaleHeight WRITE SetScaleHeight)
    Q_PROPERTY(bool AxisVisible READ AxisVisible WRITE SetAxisVisible)
    Q_PROPERTY(QColor AxisColor MEMBER axisColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(bool GridVisible READ GridVisible WRITE SetGridVisible)
    Q_PROPERTY(double GridGap READ GridGap WRITE SetGridGap)
    Q_PROPERTY(QColor GridColor MEMBER gridColor_ NOTIFY appearanceChanged)
    Q_PROPERTY(QString TextX READ TextX WRITE SetTextX)
    Q_PROPERTY(QString TextY READ TextY WRITE SetTextY)
    Q_PROPERTY(int Count READ Count)
    Q_PROPERTY(QImage PictureImage READ PictureImage)

  public:
    explicit ctlGraph(QWidget* parent = nullptr);

    /// Takes the limits to draw and works out the corners.
    void SetLimits(const clsLimits& limits);
    const clsLimits& limits() const { return drawing_.limits; }
    int Count() const { return drawing_.limits.Count(); }
    /// Ends a move of the former one.
    void SetPoint(const std::optional<clsPoint>& point);
    const std::optional<clsPoint>& Point() const { return drawing_.point; }
    /// Draws a map from now on; none with null.
    void setMap(const std::shared_ptr<const EnvelopeMap>& map);

    /// Lets the user move the point, in steps of a tenth: pointMoved() follows each step, and pointTaken()
    /// the last, by a release of the mouse or Enter. Esc, or the focus going elsewhere, puts the point back.
    void setMovable(bool isMovable);
    bool isMoved() const { return drawing_.origin.has_value(); }
    /// What the label at a moved point says.
    void setMovedText(const QString& text);
    void putBack();

    /// Sets the scale, from the upper left to the lower right corner.
    void ScaleGraph(double x1, double y1, double x2, double y2);
    /// Draws everything anew.
    void DrawLimit();
    /// Empties picture, limits and point.
    void Clear();

    /// The envelope as it goes on paper, 300 pixels an inch.
    QImage PictureImage() const;
    /// The same as an SVG file.
    QByteArray pictureSvg() const;
    const EnvelopeDrawing& drawing() const { return drawing_; }

    double ScaleLeft() const { return drawing_.scale().left; }
    double ScaleTop() const { return drawing_.scale().top; }
    double ScaleWidth() const { return drawing_.scale().right - drawing_.scale().left; }
    /// Negative, since y rises upwards.
    double ScaleHeight() const { return drawing_.scale().bottom - drawing_.scale().top; }
    void SetScaleLeft(double left);
    void SetScaleTop(double top);
    void SetScaleWidth(double width);
    void SetScaleHeight(double height);
    bool AxisVisible() const { return drawing_.axisVisible; }
    void SetAxisVisible(bool visible);
    bool GridVisible() const { return drawing_.gridVisible; }
    void SetGridVisible(bool visible);
    double GridGap() const { return drawing_.gridGap; }
    void SetGridGap(double gap);
    QString TextX() const { return drawing_.textX; }
    void SetTextX(const QString& text);
    QString TextY() const { return drawing_.textY; }
    void SetTextY(const QString& text);
    /// What the operating point is called at the mouse.
    void SetPointText(const QString& text) { drawing_.pointText = text; }

    QSize sizeHint() const override { return {560, 360}; }

  signals:
    void appearanceChanged();
    void pointMoved(double x, double y);
    void pointTaken(double x, double y);
    void pointPutBack();

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    GraphColours colours() const;
    /// The name of what is at a place, such as "Application limit: "; empty where there is none.
    QString nameAt(const QPoint& place);
    /// Paints the ground anew the next time.
    void renew();
    void showHover(const QPointF& place);
    void placeLabel(const QPoint& place);
    bool isOnPoint(const QPointF& place) const;
    void moveTo(const clsPoint& point);
    void take();

    EnvelopeDrawing drawing_;
    QPixmap ground_;  ///< all but the point, made when it is asked for
    QColor backColor_;
    QColor axisColor_;
    QColor gridColor_;
    QImage hits_;  ///< made when it is asked for
    QLabel* lblXY_;
    bool isMovable_ = false;
    bool isHeld_ = false;  ///< the point, by the mouse
    QPointF pressed_;      ///< where the mouse took it
    QPointF grip_;         ///< from there to the point
};

}  // namespace marvello
