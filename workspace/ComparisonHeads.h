#pragma once

#include <QImage>
#include <QWidget>
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
    /// The photos in the order of the heads.
    void setHeads(const std::vector<ComparedHead>& heads, const std::vector<QImage>& photos);
    /// Places the heads above the columns of the figures.
    void layOut();
    void focusHead(int machine);
    Link& addLink() const { return *add_; }
    /// A head was let go of at a place across.
    void dropped(int machine, int x);

    QSize sizeHint() const override;

  signals:
    void takenOut(int machine);
    /// `machine` is to be at place `to`.
    void moved(int machine, int to);
    /// The menu of a machine was asked for, at a place of the screen.
    void menuRequested(int machine, const QPoint& place);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// The machine whose column is at a place across.
    int machineAt(int x) const;

    const ComparisonFigures& figures_;
    std::vector<ComparisonHead*> heads_;  ///< as many as were needed so far
    int shown_ = 0;
    Link* add_;
};

}  // namespace marvello
