#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A set of positions, such as line indexes, kept sorted.
class IndexSet {
 public:
  IndexSet() = default;
  IndexSet(std::initializer_list<std::size_t> indexes) : indexes_(indexes) {
    std::sort(indexes_.begin(), indexes_.end());
    indexes_.erase(std::unique(indexes_.begin(), indexes_.end()), indexes_.end());
  }

  /// Constant time for an index above all others, which is how sets are mostly filled.
  void insert(std::size_t index) {
    if (indexes_.empty() || indexes_.back() < index) {
      indexes_.push_back(index);
      return;
    }
    const auto place = std::lower_bound(indexes_.begin(), indexes_.end(), index);
    if (*place != index) indexes_.insert(place, index);
  }
  [[nodiscard]] bool contains(std::size_t index) const {
    return std::binary_search(indexes_.begin(), indexes_.end(), index);
  }
  [[nodiscard]] std::size_t count() const { return indexes_.size(); }
  [[nodiscard]] bool isEmpty() const { return indexes_.empty(); }

  [[nodiscard]] auto begin() const { return indexes_.begin(); }
  [[nodiscard]] auto end() const { return indexes_.end(); }

  [[nodiscard]] std::size_t hash() const { return hashOfRange(indexes_); }
  friend bool operator==(const IndexSet&, const IndexSet&) = default;

 private:
  std::vector<std::size_t> indexes_;
};

}  // namespace tavrine
