#pragma once

#include <QWidget>

#include "catalogue/clsLimits.h"

class QPainter;

namespace marvello {

/// The legend of an envelope: a line sample and the description of each visible limit, the application limit
/// first, then the over limit, then by type, and the operating point.
class GraphLegend : public QWidget {
    Q_OBJECT

  public:
    explicit GraphLegend(QWidget* parent = nullptr);

    /// The title, and what the operating point is called.
    void setTexts(const QString& title, const QString& point);
    void setLimits(const clsLimits& limits, bool hasPoint);

    /// The limits that a legend names, in its order.
    static std::vector<const clsLimit*> entries(const clsLimits& limits);
    /// Draws a sample of a limit's line, `width` long from `left` on.
    static void paintSample(QPainter& painter, const clsLimit& limit, const QColor& colour,
                            const QPointF& left, double width);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString title_;
    QString pointText_;
    clsLimits limits_;
    bool hasPoint_ = false;
};

}  // namespace marvello
