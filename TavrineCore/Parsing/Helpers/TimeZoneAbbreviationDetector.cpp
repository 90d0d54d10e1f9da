#include "TavrineCore/Parsing/Helpers/TimeZoneAbbreviationDetector.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

#include "Foundation/StringMap.h"
#include "Foundation/Text.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"

namespace tavrine {

namespace {

constexpr auto kSummerTimezoneAbbreviations =
    std::to_array<std::string_view>({"acdt", "adt", "aedt", "akdt", "awdt", "brst", "bst", "cdt", "cest", "clst", "edt",
                                     "eest", "mdt", "msd", "ndt", "nzdt", "pdt", "west"});

struct ActiveZone {
  std::string_view code;
  std::string_view identifier;
};

// The place whose clocks are meant by a code, in the order of the codes.
constexpr auto kActiveZones = std::to_array<ActiveZone>({
    {"acdt", "Australia/Adelaide"}, {"acst", "Australia/Adelaide"},  {"adt", "America/Halifax"},
    {"aedt", "Australia/Sydney"},   {"aest", "Australia/Sydney"},    {"akdt", "America/Juneau"},
    {"akst", "America/Juneau"},     {"art", "America/Buenos_Aires"}, {"ast", "America/Halifax"},
    {"awst", "Australia/Perth"},    {"bdt", "Asia/Dhaka"},           {"brst", "America/Sao_Paulo"},
    {"brt", "America/Sao_Paulo"},   {"bst", "Europe/London"},        {"cat", "Africa/Harare"},
    {"cdt", "America/Chicago"},     {"cest", "Europe/Paris"},        {"cet", "Europe/Paris"},
    {"clst", "America/Santiago"},   {"clt", "America/Santiago"},     {"cot", "America/Bogota"},
    {"cst", "America/Chicago"},     {"eat", "Africa/Addis_Ababa"},   {"edt", "America/New_York"},
    {"eest", "Europe/Athens"},      {"eet", "Europe/Athens"},        {"est", "America/New_York"},
    {"gst", "Asia/Dubai"},          {"hkt", "Asia/Hong_Kong"},       {"hst", "Pacific/Honolulu"},
    {"ict", "Asia/Bangkok"},        {"irst", "Asia/Tehran"},         {"ist", "Asia/Kolkata"},
    {"jst", "Asia/Tokyo"},          {"kst", "Asia/Seoul"},           {"mdt", "America/Denver"},
    {"msd", "Europe/Moscow"},       {"msk", "Europe/Moscow"},        {"mst", "America/Denver"},
    {"ndt", "America/St_Johns"},    {"nst", "America/St_Johns"},     {"nzdt", "Pacific/Auckland"},
    {"nzst", "Pacific/Auckland"},   {"pdt", "America/Los_Angeles"},  {"pet", "America/Lima"},
    {"pht", "Asia/Manila"},         {"pkt", "Asia/Karachi"},         {"pst", "America/Los_Angeles"},
    {"sgt", "Asia/Singapore"},      {"trt", "Europe/Istanbul"},      {"wat", "Africa/Lagos"},
    {"west", "Europe/Lisbon"},      {"wet", "Europe/Lisbon"},        {"wit", "Asia/Jayapura"},
});
static_assert(std::is_sorted(kActiveZones.begin(), kActiveZones.end(),
                             [](const ActiveZone& left, const ActiveZone& right) { return left.code < right.code; }));

std::optional<TimeZone> activeZoneFor(std::string_view lowercasedCode) {
  const auto found = std::lower_bound(kActiveZones.begin(), kActiveZones.end(), lowercasedCode,
                                      [](const ActiveZone& zone, std::string_view code) { return zone.code < code; });
  if (found == kActiveZones.end() || found->code != lowercasedCode) return std::nullopt;
  return TimeZone::withIdentifier(found->identifier);
}

bool isSummerCode(std::string_view lowercasedCode) {
  return std::find(kSummerTimezoneAbbreviations.begin(), kSummerTimezoneAbbreviations.end(), lowercasedCode) !=
         kSummerTimezoneAbbreviations.end();
}

/// Hours by lower-case abbreviation; the same in every language.
const StringMap<std::string>& timezoneCache() {
  static const StringMap<std::string> cache = StaticResouces::timeZoneAbbreviations();
  return cache;
}

struct NamedZone {
  std::string_view shortForm;
  std::string_view firstWord;
  std::string_view identifier;
  std::string_view name;
};

constexpr auto kNamedZones = std::to_array<NamedZone>({
    {"pt", "pacific", "America/Los_Angeles", "Pacific Time"},
    {"mt", "mountain", "America/Denver", "Mountain Time"},
    {"ct", "central", "America/Chicago", "Central Time"},
    {"et", "eastern", "America/New_York", "Eastern Time"},
});

}  // namespace

std::optional<TimeZone> TimeZoneAbbreviationDetector::timezoneFor(const HashedWord& word,
                                                                  TimezoneCodeCorrectionBehavior correctionBehaviour) {
  // No code has letters beyond ASCII, so bytes are characters.
  const std::string_view code = word.text;
  if (!mayBeCode(word)) return std::nullopt;
  static const WordFilter codes = WordFilter::ofKeys(timezoneCache());
  if (!codes.mayContain(word)) return std::nullopt;
  const std::string key = lowercased(code);
  const auto offset = timezoneCache().find(key);
  if (offset == timezoneCache().end()) return std::nullopt;
  const std::optional<TimeZone> fixed = timezoneWithGMTOffsetString(offset->second);
  if (!fixed) return std::nullopt;

  switch (correctionBehaviour) {
    case TimezoneCodeCorrectionBehavior::never:
      return fixed;
    case TimezoneCodeCorrectionBehavior::onlyNonSummerCodes:
      if (isSummerCode(key)) return fixed;
      break;
    case TimezoneCodeCorrectionBehavior::automatic:
      break;
  }
  const std::optional<TimeZone> active = activeZoneFor(key);
  return active ? active : fixed;
}

std::optional<TimeZone> TimeZoneAbbreviationDetector::timezoneWithGMTOffsetString(std::string_view gmtOffset) {
  constexpr double kSecondsPerHour = 3600;
  constexpr double kMaximumHours = 18;
  if (gmtOffset.starts_with('+')) gmtOffset.remove_prefix(1);
  double hours = 0;
  const auto [end, error] = std::from_chars(gmtOffset.data(), gmtOffset.data() + gmtOffset.size(), hours);
  if (error != std::errc() || end != gmtOffset.data() + gmtOffset.size()) return std::nullopt;
  if (!std::isfinite(hours) || std::abs(hours) > kMaximumHours) return std::nullopt;
  return TimeZone::withSecondsFromGMT(std::llround(hours * kSecondsPerHour));
}

std::optional<Place> USNamedTimezoneAbbreviations::timezoneFor(std::string_view lowercasedFragment) {
  for (const NamedZone& zone : kNamedZones) {
    if (lowercasedFragment != zone.shortForm && !equalsIgnoringCase(lowercasedFragment, zone.name)) continue;
    const std::optional<TimeZone> timeZone = TimeZone::withIdentifier(zone.identifier);
    if (!timeZone) return std::nullopt;
    return Place{
        .name = std::string(zone.name), .aliases = {}, .timeZone = *timeZone, .type = Place::TimeZoneAbbreviation{}};
  }
  return std::nullopt;
}

bool USNamedTimezoneAbbreviations::beginsName(std::string_view lowercasedWord) {
  return std::any_of(kNamedZones.begin(), kNamedZones.end(),
                     [lowercasedWord](const NamedZone& zone) { return zone.firstWord == lowercasedWord; });
}

}  // namespace tavrine
