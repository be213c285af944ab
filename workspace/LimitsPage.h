#pragma once

#include <QWidget>

#include "catalogue/clsLimits.h"

namespace marvello {

class GraphLegend;
class ctlGraph;

/// The envelope of a compressor with the duty point, and its legend.
class LimitsPage : public QWidget {
    Q_OBJECT

  public:
    explicit LimitsPage(QWidget* parent = nullptr);

    /// The titles of the axes and of the legend.
    void setTexts(const QString& x, const QString& y, const QString& legend);
    void clear();
    void setLimits(const clsLimits& limits, const clsPoint& point);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    ctlGraph* limitgraph_;
    GraphLegend* picGraphLbl_;
};

}  // namespace marvello
