#pragma once

#include <QWidget>

#include "catalogue/clsLimits.h"

namespace marvello {

class GraphLegend;
class ctlGraph;

/// The envelope of a compressor with the operating point, and its legend.
class LimitsPage : public QWidget {
    Q_OBJECT

  public:
    explicit LimitsPage(QWidget* parent = nullptr);

    /// The titles of the axes and of the legend, and what the operating point is called.
    void setTexts(const QString& x, const QString& y, const QString& legend, const QString& point);
    void clear();
    void setLimits(const clsLimits& limits, const clsPoint& point);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showParts();

    ctlGraph* limitgraph_;
    QWidget* between_;
    bool isFilled_ = false;
    GraphLegend* picGraphLbl_;
};

}  // namespace marvello
