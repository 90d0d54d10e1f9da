#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>

#include "Foundation/Hashing.h"

namespace tavrine::foundation {

/// A stretch of a text, in UTF-16 code units from the start of the raw line: "20%" in "$10 + 20%" is {6, 3}.
struct NSRange {
  std::uint32_t location = 0;
  std::uint32_t length = 0;

  /// The empty range at the start of a text.
  static const NSRange zero;

  /// The first position behind the range. Saturates, since a range read from an archive may hold anything.
  [[nodiscard]] constexpr std::uint32_t upperBound() const noexcept {
    const std::uint32_t room = std::numeric_limits<std::uint32_t>::max() - location;
    return location + std::min(length, room);
  }
  [[nodiscard]] constexpr bool isEmpty() const noexcept { return length == 0; }

  /// Whether the unit at `position` lies in the range.
  [[nodiscard]] constexpr bool contains(std::uint32_t position) const noexcept {
    return position >= location && position < upperBound();
  }
  /// Whether all of `other` lies in the range.
  [[nodiscard]] constexpr bool contains(NSRange other) const noexcept {
    return other.location >= location && other.upperBound() <= upperBound();
  }
  /// Whether the two share at least one unit. An empty range shares none.
  [[nodiscard]] constexpr bool intersects(NSRange other) const noexcept {
    return std::max(location, other.location) < std::min(upperBound(), other.upperBound());
  }
  /// The smallest range that covers both.
  [[nodiscard]] constexpr NSRange unionWith(NSRange other) const noexcept {
    const std::uint32_t start = std::min(location, other.location);
    return {start, std::max(upperBound(), other.upperBound()) - start};
  }

  friend constexpr bool operator==(const NSRange&, const NSRange&) noexcept = default;
};

inline constexpr NSRange NSRange::zero{};

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::NSRange> {
  std::size_t operator()(const tavrine::foundation::NSRange& range) const noexcept {
    return tavrine::foundation::hashCombine(range.location, range.length);
  }
};
