#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The powers of ten by which numbers are scaled ("5k") and abbreviated ("1.5M").
enum class SIThreshold : std::uint8_t {
  pentillion,
  septillion,
  sextillion,
  quintillion,
  quadrillion,
  trillion,
  billion,
  million,
  hundredThousand,
  thousand,
};

/// "trillion", ...
std::string_view toString(SIThreshold threshold);

/// The power of ten in digits, "1000" for `thousand`: the form in which preferences are stored.
std::string_view rawValueOf(SIThreshold threshold);

/// The threshold with these digits, if there is one.
std::optional<SIThreshold> siThresholdFromRawValue(std::string_view digits);

/// The power of ten as a number.
const Decimal& valueOf(SIThreshold threshold);

/// The threshold that a prefix behind a number stands for. Case counts: "M" is a million, "m" nothing. Binary prefixes
/// such as "Ki" give powers of ten too.
std::optional<SIThreshold> thresholdForSIPrefix(std::string_view prefix);

/// The number in multiples of the threshold: 1.5 for 1500 and `thousand`. Absent below one whole multiple.
std::optional<Decimal> numberForFormatting(SIThreshold threshold, const Decimal& number);

}  // namespace tavrine
