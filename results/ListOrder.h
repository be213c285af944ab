#pragma once

#include <string>
#include <string_view>

namespace marvello {

struct ResultTable;

/// The column that holds the names of the compressors.
inline const std::string nameColumn = "compressor";

/// Whether `a` comes before `b` without regard to case, with "TK-A-90" before "TK-A-120".
bool comesBefore(std::string_view a, std::string_view b);

/// The order of the rows within the groups of a results list: that of the catalogue, or by the values of one
/// column.
class ListOrder {
  public:
    /// Sorts by a column at the first click on its heading, the other way round at the second, and not at all
    /// at the third.
    void clicked(const std::string& column);

    /// The key of the column; empty in the order of the catalogue.
    const std::string& column() const { return column_; }
    bool isDescending() const { return isDescending_; }

    /// Sorts the rows of each group. Numbers sort as numbers, texts by the numbers in them; rows without a
    /// value come last both ways, and equal ones keep their order.
    void sort(ResultTable& table) const;

  private:
    std::string column_;
    bool isDescending_ = false;
};

}  // namespace marvello
