#pragma once

#include <QWidget>
#include <vector>

#include "catalogue/clsLimits.h"
#include "controls/LimitDistances.h"

class QScrollArea;

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
    /// Says below the legend how far the point is from the lines that were set.
    void setDistances(const QString& title, std::vector<LimitDistances::Row> rows);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void showParts();

    ctlGraph* limitgraph_;
    QWidget* between_;
    bool isFilled_ = false;
    QScrollArea* side_;
    GraphLegend* picGraphLbl_;
    LimitDistances* distances_;
};

}  // namespace marvello
