#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// On which side of a number a currency sign stands, and whether a space is between.
enum class UnitSymbolReplacementPosition : std::uint8_t { before, beforeWithSpace, after, afterWithSpace };

/// A sign that stands for a currency code: "US$" for "USD".
struct UnitSymbolReplacement {
  /// The signs of the world's currencies, wherever one is.
  static const std::vector<UnitSymbolReplacement>& standardSymbols();

  /// The signs as they are printed in the locale, sorted by sign: "$" and "¥" are what they mean there, and the
  /// locale's own currency has the locale's sign.
  static std::vector<UnitSymbolReplacement> standardCustomSymbolsFor(const Locale& locale);

  /// The signs that can be typed in the locale: the printed ones and the standard ones, so that "US$5" and "$5" are the
  /// same in the United States. Of two rows with the same sign the later one holds.
  static std::vector<UnitSymbolReplacement> typedSymbolsFor(const Locale& locale);

  std::string originalSymbol;
  std::string replacementSymbol;
  UnitSymbolReplacementPosition position = UnitSymbolReplacementPosition::before;

  [[nodiscard]] std::size_t hash() const { return hashOf(originalSymbol, replacementSymbol, position); }
  friend bool operator==(const UnitSymbolReplacement&, const UnitSymbolReplacement&) = default;
};

/// The raw name, as stored in documents: "beforeWithSpace".
std::string_view toString(UnitSymbolReplacementPosition position);

/// The words for a user: "Before (with space)".
std::string_view descriptionOf(UnitSymbolReplacementPosition position);

/// The position with this raw name, if there is one.
std::optional<UnitSymbolReplacementPosition> unitSymbolReplacementPositionNamed(std::string_view name);

}  // namespace tavrine
