#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

class NumberDetector;

/// Which parts a cluster of letters and digits has, in which order.
enum class NumericClusterType : std::uint8_t {
  numberFirst,         ///< "5km"
  wordFirst,           ///< "x2"
  bookendedByNumbers,  ///< "2x3"
  bookendedByLetters,  ///< "h2m"
};

/// A part of a cluster.
struct NumericClusterComponent {
  /// A view into the cluster's text.
  std::string_view text;
  /// In UTF-16 units from the start of the cluster.
  NSRange range;

  friend bool operator==(const NumericClusterComponent&, const NumericClusterComponent&) = default;
};

/// A cluster of letters and digits, split where one kind gives way to the other: "x2" into "x" and 2. Refers to the
/// text that it was made of.
struct NumericClusterComponents {
  std::optional<NumericClusterComponent> leadingComponent;
  std::optional<NumericClusterComponent> trailingComponent;
  /// The middle part; in a cluster of two parts, the word.
  NumericClusterComponent sandwichComponent;
  /// The values of the parts that are numbers.
  std::optional<Decimal> leadingDecimal;
  std::optional<Decimal> sandwichDecimal;
  std::optional<Decimal> trailingDecimal;
  NumericClusterType type = NumericClusterType::wordFirst;

  /// Absent for a text without digits, with more parts than a type has, or with a number that is none. The detector
  /// reads the numbers. Linear in the text.
  [[nodiscard]] static std::optional<NumericClusterComponents> make(std::string_view text,
                                                                    const NumberDetector& numberDetector);

  /// The parts of the text that a variable may be the name of, the likeliest first: "a2" in "5a2", then "5a", then "a".
  [[nodiscard]] std::vector<NumericClusterComponent> potentialVariableNames() const;

 private:
  /// All of the text that was split.
  std::string_view text_;
};

}  // namespace tavrine
