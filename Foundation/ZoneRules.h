#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/PosixZoneRule.h"
#include "Foundation/TimeZone.h"

namespace tavrine::foundation {

/// How the clocks of a zone were and will be set: a table of changes, and a rule for what follows it.
class ZoneRules {
 public:
  /// One offset for all time.
  [[nodiscard]] static ZoneRules fixed(std::int32_t secondsFromGMT, std::string abbreviation);
  /// Of the bytes of a zone file in the TZif format, version 1 and later. Absent where they are none.
  [[nodiscard]] static std::optional<ZoneRules> fromZoneFile(std::string_view bytes);
  /// Of the zone file of the machine with that identifier, if there is one.
  [[nodiscard]] static std::optional<ZoneRules> fromSystemZoneFile(std::string_view identifier);
  /// From the data that ICU carries, which may be older than the machine's.
  [[nodiscard]] static std::optional<ZoneRules> fromIcu(std::string_view identifier);

  /// The period that holds a moment, given in seconds since 1970.
  [[nodiscard]] ZonePeriod periodAt(std::int64_t secondsSince1970) const;

 private:
  struct Clocks {
    std::int32_t secondsFromGMT = 0;
    bool isDaylightSavingTime = false;
    std::uint32_t nameStart = 0;
    std::uint32_t nameLength = 0;
  };
  class FileReader;

  [[nodiscard]] ZonePeriod periodOf(std::size_t changesBefore) const;
  /// Writes the changes of the near future out of the rule into the table, where they are found faster.
  void extendByTail();
  std::uint8_t addClocks(std::int32_t secondsFromGMT, bool isDaylightSavingTime, std::string_view name);

  /// In ascending order; the clocks that each change sets have the same index.
  std::vector<std::int64_t> changes_;
  std::vector<std::uint8_t> clocksAfter_;
  /// What the clocks show; those before the first change come first.
  std::vector<Clocks> clocks_;
  std::string names_;
  std::optional<PosixZoneRule> tail_;
};

}  // namespace tavrine::foundation
