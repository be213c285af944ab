#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/clsVariables.h"

namespace marvello {

/// One column of a results list.
struct clsOutput {
    std::string UmDescription;  ///< The unit to show.
    std::string Key;
    std::string Name;
    std::string Description;
    int Visibility = 0;
    VariableValue value;
};

/// The columns of a results list by key, case ignored, in order.
class clsOutputs {
  public:
    /// An entry under `Name` is removed first; then the new one is added under `Key`. Throws
    /// std::invalid_argument when the key is still taken.
    void add(const std::string& Key, const std::string& Name, const std::string& Description,
             const std::string& UmDescription, VariableValue value, int Visibility);

    /// By key or by position from 1. Throws std::out_of_range.
    clsOutput& Item(std::string_view key);
    const clsOutput& Item(int position) const;
    bool Exist(std::string_view key) const;
    void Remove(std::string_view key);
    /// By position from 1. Throws std::out_of_range.
    void Remove(int position);
    void Clear() { outputs_.clear(); }
    int Count() const { return static_cast<int>(outputs_.size()); }

    auto begin() const { return outputs_.begin(); }
    auto end() const { return outputs_.end(); }

  private:
    std::vector<clsOutput> outputs_;
};

}  // namespace marvello
