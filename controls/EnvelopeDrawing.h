#pragma once

#include <QColor>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QTransform>
#include <memory>
#include <optional>
#include <vector>

#include "catalogue/clsLimits.h"
#include "controls/EnvelopeMap.h"

class QPainter;

namespace marvello {

/// The colours of a drawn envelope.
struct GraphColours {
    QColor plot;
    QColor grid;
    QColor axis;
    QColor labels;
    QColor text;
    QColor point;
    bool adapts;  ///< moves the lines' own colours so that they stand out on a dark ground

    /// Those of the look.
    static GraphColours onScreen();
    /// White paper and the catalogue's own colours.
    static GraphColours onPaper();

    QColor line(const clsLimit& limit) const;
};

/// The part of the plane of evaporating against condensing temperature that is drawn.
struct GraphScale {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// Draws the envelope of a compressor: grid, axes, limits and the operating point. It knows no widget, so
/// that screen, picture and paper show the same. Lengths are logical pixels: a painter for paper is scaled to
/// them.
class EnvelopeDrawing {
  public:
    clsLimits limits;
    std::optional<clsPoint> point;
    std::optional<clsPoint> origin;          ///< where a point that is being moved was before
    std::shared_ptr<const EnvelopeMap> map;  ///< under the limits; null without one
    QString textX;
    QString textY;
    QString pointText;  ///< the name of the point at the mouse
    bool gridVisible = true;
    bool axisVisible = true;
    double gridGap = 5;

    /// Takes corners and scale from the over limit, without one from the application limit, rounded to tens,
    /// with ten degrees around. Without either there is a default.
    void fitScale();
    void setScale(const GraphScale& scale) { scale_ = scale; }
    const GraphScale& scale() const { return scale_; }
    /// The rounded corners: smallest x and largest y, largest x and smallest y.
    const GraphScale& corners() const { return corners_; }

    /// The limits in the order of drawing: the outermost and the innermost that count come last.
    std::vector<const clsLimit*> drawingOrder() const;

    void paint(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    /// Paints all but the point, which changes more often.
    void paintGround(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    void paintPoint(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    /// Paints grid, axes and limits alone, the limits in the order of their collection.
    void paintLines(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    /// Paints the number of each limit (from 1, in the order of drawing), of the point (one more) and of each
    /// isoline (from the next one on) as a colour, somewhat wider than they look, for finding what lies under
    /// the mouse.
    void paintHits(QPainter& painter, const QRectF& place) const;

    /// A caption next to the line of its limit.
    struct Caption {
        const clsLimit* limit;
        QString text;
        QRectF room;
    };
    /// Returns where the captions are in `place`. None is on top of another one.
    std::vector<Caption> captions(const QRectF& place) const;

    /// The place of a point of the plane in `place`, and back.
    QPointF toPlace(const clsPoint& of, const QRectF& place) const;
    clsPoint fromPlace(const QPointF& of, const QRectF& place) const;

  private:
    bool isDrawable(const QRectF& place) const;
    void paintGrid(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    void paintLimits(QPainter& painter, const QRectF& place, const GraphColours& colours,
                     const std::vector<const clsLimit*>& order) const;
    void paintLabels(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    void paintCaptions(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    void paintTitles(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    void paintOrigin(QPainter& painter, const QRectF& place, const GraphColours& colours) const;
    QTransform placing(const QRectF& place) const;
    QPolygonF lineOf(const clsLimit& limit, const QRectF& place) const;
    bool touchesOther(const QRectF& caption, const clsLimit& own, const QRectF& place) const;
    double labelBaseline(const QRectF& place) const;
    double labelWidth() const;
    /// Where the labels of y end: left of the corners, but next to the title where the picture is narrow.
    double labelRight(const QRectF& place) const;
    double gapOfLabels(double pixelsPerUnit, double width) const;

    GraphScale corners_{-20, 30, -10, 20};
    GraphScale scale_{-30, 40, 0, 10};
};

/// The pen of a limit: its width in logical pixels, dashes with flat ends, round joins.
QPen penOf(const clsLimit& limit, const QColor& colour);

}  // namespace marvello
