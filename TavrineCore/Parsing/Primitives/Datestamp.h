#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Foundation/Date.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/DatestampType.h"
#include "TavrineCore/Parsing/Primitives/SpecialDay.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A moment that remembers how it was written: "today", "5 March", "3pm in Paris".
struct Datestamp {
  using DatestampType = tavrine::DatestampType;

  Date date;
  DatestampType type = DatestampType::unspecified;
  /// The zone that the moment is shown in.
  TimeZone timezone;
  /// Whether the line named the zone.
  bool hasExplicitTimeZone = false;
  /// Whether the text could have meant another date: "3/4".
  bool isAmbiguous = false;
  /// Set for a named holiday.
  std::optional<SpecialDay::SpecialDayType> specialDayType = std::nullopt;
  /// The format that the line asked for, as a template of date fields.
  std::optional<std::string> dateFormatTemplate = std::nullopt;

  [[nodiscard]] std::size_t hash() const {
    return hashOf(date, type, timezone, hasExplicitTimeZone, isAmbiguous, specialDayType, dateFormatTemplate);
  }
  friend bool operator==(const Datestamp&, const Datestamp&) = default;
};

}  // namespace tavrine
