#pragma once

#include <QString>
#include <vector>

#include "controls/ResultsView.h"

namespace marvello {

/// The order of the rows within the groups of a results list: that of the catalogue, or by the values of one
/// column.
class ListOrder {
  public:
    /// A click on the heading of a column: sorts by it, then the other way round, then not at all.
    void clicked(const QString& column);

    /// The key of the column; empty in the order of the catalogue.
    const QString& column() const { return column_; }
    bool isDescending() const { return isDescending_; }

    /// Sorts the rows of a group whose list has these columns. Numbers sort as numbers, names by the numbers
    /// in them; rows without a value come last both ways, and equal ones keep their order.
    void sort(std::vector<ResultsView::Row>& rows, const QStringList& columns) const;

  private:
    QString column_;
    bool isDescending_ = false;
};

}  // namespace marvello
