#pragma once

#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>
#include <functional>
#include <optional>
#include <queue>
#include <variant>
#include <vector>

#include "controls/Metafile.h"
#include "controls/MetafileRecord.h"

class QPainter;

namespace marvello {

/// One drawing of a metafile: objects, state, and the way from the file's units to those of the painter.
class MetafilePlayer {
  public:
    MetafilePlayer(QPainter& painter, const QRectF& target, const QRectF& window);

    void play(const MetafileParameters& record);

  private:
    struct Pen {
        int style = 0;
        int width = 0;
        QColor colour = Qt::black;
    };
    struct Brush {
        Qt::BrushStyle style = Qt::NoBrush;
        QColor colour = Qt::white;
    };
    struct Font {
        int height = -12;
        int escapement = 0;  ///< tenths of a degree, against the clock
        bool isBold = false;
        bool isItalic = false;
    };
    struct Unused {};  ///< an object that is counted and not drawn with
    using Object = std::variant<std::monostate, Unused, Pen, Brush, Font>;

    struct State {
        QPointF origin;
        QSizeF extent;
        QPoint place;
        Pen pen;
        Brush brush{Qt::SolidPattern, Qt::white};
        Font font;
        QColor textColour = Qt::black;
        QColor background = Qt::white;
        bool isOpaque = true;
        int align = 0;
        Qt::FillRule fill = Qt::OddEvenFill;
    };

    bool playState(const MetafileParameters& record);
    bool playObject(const MetafileParameters& record);
    bool playLines(const MetafileParameters& record);
    void playShape(const MetafileParameters& record);
    void playPolyPolygon(const MetafileParameters& record);
    void playText(const MetafileParameters::Text& text);

    void create(Object object);
    void select(int index);
    void restore(int which);

    QPointF mapped(QPointF point) const;
    double scale() const;
    /// The rectangle of the four words bottom, right, top, left from `index` on.
    QRectF bounds(const MetafileParameters& record, std::size_t index) const;
    std::optional<QPolygonF> points(const MetafileParameters& record, std::size_t index, int count) const;
    QPainterPath curve(const MetafileParameters& record) const;
    QPen pen(double length) const;
    void draw(const QPainterPath& path, bool filled);
    /// Takes `length` units of the target from what the drawing may still use.
    bool spend(double length);

    QPainter& painter_;
    QRectF target_;
    double reach_;   ///< diagonal of the target
    double budget_;  ///< of lengths still to be drawn
    State state_;
    std::vector<State> saved_;
    std::vector<Object> objects_;
    std::priority_queue<int, std::vector<int>, std::greater<>> free_;
};

}  // namespace marvello
