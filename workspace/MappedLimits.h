#pragma once

#include <QObject>
#include <memory>
#include <optional>

#include "catalogue/PreparedCatalogue.h"
#include "engine/Calculator.h"
#include "inputs/SelectionInputs.h"
#include "workspace/MapSearch.h"
#include "workspace/UsedPoint.h"

class QTimer;

namespace marvello {

class LimitsPage;
class clsCompressor;

/// Fills the page of the limits: the envelope of a compressor, the map of the quantity that the user chose,
/// and what the compressor comes to at the operating point. The point can be moved; values and distances
/// follow it.
class MappedLimits : public QObject {
    Q_OBJECT

  public:
    MappedLimits(LimitsPage& page, const SelectionInputs& inputs);

    /// Lets the user move the point and print; pointUsed() says where to.
    void setFollowed();
    void translate();
    void clear();
    /// Without conditions there are neither values nor a map.
    void show(const clsCompressor& compressor, const std::shared_ptr<const clsProjectConditions>& conditions);
    /// The quantity of the map by its name in files; empty for the limits alone.
    QString quantity() const;
    /// The same as a figure; none for the limits alone.
    std::optional<Figure> figure() const;
    void setQuantity(const QString& name);

  signals:
    /// The operating point is to be this one; in the units of the inputs.
    void pointUsed(const marvello::UsedPoint& point);
    /// A file was written; `note` says what it holds and where it is.
    void exported(const QString& note);

    void printWanted();

  private:
    void followQuantity();
    void takeMap(const std::shared_ptr<const PerformanceMap>& map, bool isLast);
    void showMap();
    void showSentence();
    void readOutPoint();
    /// At a point of the graph that is not that of the conditions.
    void readOutMoved(double x, double y);
    void readOut(const clsProjectConditions& conditions, double x, double y);
    void openMenu(const QPoint& place);
    void copyPicture() const;
    void exportMap();

    LimitsPage& page_;
    const SelectionInputs& inputs_;
    MapSearch* search_;
    QTimer* patience_;  ///< until it is said that a map is calculated

    std::shared_ptr<const PreparedCatalogue> catalogue_;
    const PreparedCompressor* compressor_ = nullptr;  ///< of the page; null without one
    std::shared_ptr<const clsProjectConditions> conditions_;
    bool isFollowed_ = false;
    bool isPossible_ = false;
    bool isMapless_ = false;  ///< the quantity has no values
    QString about_;           ///< compressor and conditions
    Calculator calculator_;   ///< of the point

    MapSearch::Question question_;               ///< of the map
    std::shared_ptr<const PerformanceMap> map_;  ///< null before it is there
    bool isWhole_ = false;                       ///< the finest
};

}  // namespace marvello
