#pragma once

#include <QImage>
#include <QWidget>
#include <cstddef>
#include <optional>
#include <vector>

#include "results/ComparisonTable.h"

namespace marvello {

class ComparisonFigures;
class ComparisonHead;
class Link;

/// The heads of the compared machines above their columns: photo, name, line and facts. A head that is
/// dragged sideways, or moved with Alt and an arrow, takes another place; Delete takes it out.
class ComparisonHeads : public QWidget {
    Q_OBJECT

  public:
    explicit ComparisonHeads(const ComparisonFigures& figures, QWidget* parent);

    void translate();
    /// Numbers and photos are in the order of the heads. A head that has the focus keeps it at its new place.
    void setHeads(const std::vector<ComparedHead>& heads, const std::vector<int>& numbers,
                  const std::vector<QImage>& photos);
    /// Places the heads above the columns of the figures.
    void layOut();
    /// The place of the head that has the focus; none elsewhere.
    std::optional<std::size_t> focusedPlace() const;
    /// Gives the focus to the head at a place, if there is one.
    void focusPlace(std::ptrdiff_t place);
    Link& addLink() const { return *add_; }
    /// The head at a place was let go of at an abscissa.
    void dropped(std::size_t place, int x);

    QSize sizeHint() const override;

  signals:
    // Machines are known by their numbers: those at their places may be others when a signal arrives.
    void takenOut(int number);
    /// A machine is to take the place of another one.
    void moved(int number, int intoPlaceOf);
    /// A machine is to go on by places to the right, or to the left if negative.
    void stepped(int number, int by);
    /// The menu of a machine was asked for, at a place of the screen.
    void menuRequested(int number, const QPoint& place);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// The place whose column is at an abscissa.
    std::size_t placeAt(int x) const;

    const ComparisonFigures& figures_;
    std::vector<ComparisonHead*> heads_;  ///< by places, more than are shown
    std::size_t shown_ = 0;
    Link* add_;
};

}  // namespace marvello
