#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "Foundation/StringMap.h"
#include "Foundation/Text.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// The zones that people mean by letters such as "PST", "CEST", "AEDT". They are a table of our own, since the
/// abbreviations of the zone files are neither unique nor complete.
class TimeZoneAbbreviations {
 public:
  /// Identifiers of zones by abbreviations in lower case.
  explicit TimeZoneAbbreviations(StringMap<std::string> identifiers) : identifiers_(std::move(identifiers)) {}

  /// In any case; absent for an abbreviation that isn't in the table, or that stands there for an unknown zone.
  [[nodiscard]] std::optional<TimeZone> zoneFor(std::string_view abbreviation) const {
    const auto found = identifiers_.find(lowercased(abbreviation));
    if (found == identifiers_.end()) return std::nullopt;
    return TimeZone::withIdentifier(found->second);
  }

 private:
  StringMap<std::string> identifiers_;
};

}  // namespace tavrine::foundation
