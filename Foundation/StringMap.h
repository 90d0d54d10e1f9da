#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace tavrine::foundation {

/// Hashes texts so that a map with `std::string` keys answers `find` for a `std::string_view` without a copy.
struct StringHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept { return std::hash<std::string_view>{}(text); }
};

template <class Value>
using StringMap = std::unordered_map<std::string, Value, StringHash, std::equal_to<>>;

using StringSet = std::unordered_set<std::string, StringHash, std::equal_to<>>;

}  // namespace tavrine::foundation
