#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Foundation/Date.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// What a stretch of days is.
enum class DatespanType : std::uint8_t { season, quarter, dateInterval };

/// Which season or quarter it is.
enum class DatespanSubtype : std::uint8_t {
  summer,
  autumn,
  winter,
  spring,
  firstQuarter,
  secondQuarter,
  thirdQuarter,
  fourthQuarter,
  notSpecified,
};

/// Two moments with a name such as a quarter or a season. The end may lie before the start: a line can be written so.
struct Datespan {
  Date startDate;
  Date endDate;
  DatespanType type = DatespanType::dateInterval;
  DatespanSubtype subtype = DatespanSubtype::notSpecified;

  [[nodiscard]] std::size_t hash() const { return hashOf(startDate, endDate, type, subtype); }
  friend bool operator==(const Datespan&, const Datespan&) = default;
};

std::string_view toString(DatespanType type);
std::string_view toString(DatespanSubtype subtype);

}  // namespace tavrine
