#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Foundation/HashedWord.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The short names of time zones: "PST", "CEST".
class TimeZoneAbbreviationDetector {
 public:
  static constexpr std::size_t kShortestCode = 3;
  static constexpr std::size_t kLongestCode = 4;

  [[nodiscard]] static bool mayBeCode(const HashedWord& word) {
    return word.text.size() >= kShortestCode && word.text.size() <= kLongestCode;
  }
  /// The zone that a code of 3 or 4 letters means, in upper or lower case. Many codes name the winter or the summer
  /// time of a place and are said all year: the behaviour tells for which of them the zone of the place is taken, and
  /// for which the offset that the code strictly says.
  [[nodiscard]] static std::optional<TimeZone> timezoneFor(const HashedWord& word,
                                                           TimezoneCodeCorrectionBehavior correctionBehaviour);

  /// A fixed zone so many hours ahead of GMT: "5.5", "-3". Absent for a text that is no number and beyond 18 hours.
  [[nodiscard]] static std::optional<TimeZone> timezoneWithGMTOffsetString(std::string_view gmtOffset);
};

/// The four zones of the United States by the names that people there use.
class USNamedTimezoneAbbreviations {
 public:
  /// "pt", "pacific time", in lower case.
  [[nodiscard]] static std::optional<Place> timezoneFor(std::string_view lowercasedFragment);
  /// Whether a name of two words begins with this one, in lower case.
  [[nodiscard]] static bool beginsName(std::string_view lowercasedWord);
};

}  // namespace tavrine
