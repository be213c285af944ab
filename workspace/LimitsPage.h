#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "catalogue/clsLimits.h"
#include "controls/EnvelopeMap.h"
#include "controls/LimitDistances.h"

class QScrollArea;

namespace marvello {

class GraphLegend;
class MapLegend;
class PageBar;
class ReadOut;
class SegmentedSelector;
class ctlGraph;

/// The envelope of a compressor with the operating point, below a bar with the choice of a map; at the side
/// what holds at the point, and the legends.
class LimitsPage : public QWidget {
    Q_OBJECT

  public:
    explicit LimitsPage(QWidget* parent = nullptr);

    ctlGraph& graph() const { return *limitgraph_; }
    PageBar& bar() const { return *bar_; }
    SegmentedSelector& selector() const { return *selector_; }
    ReadOut& readOut() const { return *readOut_; }

    /// The titles of the axes and of the legend, and what the operating point is called.
    void setTexts(const QString& x, const QString& y, const QString& legend, const QString& point);
    void clear();
    void setLimits(const clsLimits& limits, const clsPoint& point);
    /// Draws a map with its legend; none with null.
    void setMap(const std::shared_ptr<const EnvelopeMap>& map);
    bool hasMap() const;
    /// Says how far the point is from the lines that were set.
    void setDistances(const QString& title, std::vector<LimitDistances::Row> rows);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void makeSide();
    void showParts();

    PageBar* bar_;
    SegmentedSelector* selector_;
    ctlGraph* limitgraph_;
    QWidget* between_;
    bool isFilled_ = false;
    QScrollArea* side_;
    ReadOut* readOut_;
    MapLegend* mapLegend_;
    GraphLegend* picGraphLbl_;
    LimitDistances* distances_;
};

}  // namespace marvello
