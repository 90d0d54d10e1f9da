#include "Foundation/ZoneRules.h"

#include <unicode/basictz.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/tzrule.h>
#include <unicode/tztrans.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>
#include <utility>

namespace tavrine::foundation {

namespace {

constexpr std::int64_t kBeginningOfTime = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kEndOfTime = std::numeric_limits<std::int64_t>::max();

/// A name that can't lead out of the directory of zones.
bool isPlainIdentifier(std::string_view identifier) {
  if (identifier.empty() || identifier.size() > 64 || identifier.front() == '/') return false;
  return std::ranges::all_of(identifier, [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '+' ||
           c == '-' || c == '/';
  });
}

}  // namespace

/// Takes a zone file apart: a header with six counts, the data with times of 32 bits, and from version 2 on a second
/// header, the same data with 64 bits, and the rule for later times between two line ends. All numbers are big-endian.
class ZoneRules::FileReader {
 public:
  explicit FileReader(std::string_view bytes) : rest_(bytes) {}

  std::optional<ZoneRules> read() {
    auto header = readHeader();
    if (!header) return std::nullopt;
    std::size_t timeSize = 4;
    if (header->version >= '2') {
      if (!skip(header->dataSize(timeSize))) return std::nullopt;
      header = readHeader();
      if (!header) return std::nullopt;
      timeSize = 8;
    }
    ZoneRules rules;
    if (rest_.size() < header->dataSize(timeSize) || !readData(*header, timeSize, rules)) return std::nullopt;
    if (timeSize == 8) readTail(rules);
    return rules;
  }

 private:
  struct Header {
    char version = 0;
    std::uint32_t utcIndicators = 0;
    std::uint32_t standardIndicators = 0;
    std::uint32_t leapSeconds = 0;
    std::uint32_t changes = 0;
    std::uint32_t clocks = 0;
    std::uint32_t nameBytes = 0;

    [[nodiscard]] std::size_t dataSize(std::size_t timeSize) const {
      return changes * (timeSize + 1) + clocks * std::size_t{6} + nameBytes + leapSeconds * (timeSize + 4) +
             standardIndicators + utcIndicators;
    }
  };

  bool skip(std::size_t size) {
    if (rest_.size() < size) return false;
    rest_.remove_prefix(size);
    return true;
  }

  std::uint64_t readNumber(std::size_t size) {
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < size; ++i) value = value << 8 | static_cast<unsigned char>(rest_[i]);
    rest_.remove_prefix(size);
    return value;
  }

  std::optional<Header> readHeader() {
    constexpr std::string_view magic = "TZif";
    constexpr std::size_t unusedBytes = 15;
    constexpr std::size_t headerSize = 44;
    // No zone has changed its clocks so often.
    constexpr std::uint32_t mostRows = 100'000;
    if (rest_.size() < headerSize || !rest_.starts_with(magic)) return std::nullopt;
    Header header;
    header.version = rest_[magic.size()];
    rest_.remove_prefix(magic.size() + 1 + unusedBytes);
    for (std::uint32_t* const count : {&header.utcIndicators, &header.standardIndicators, &header.leapSeconds,
                                       &header.changes, &header.clocks, &header.nameBytes}) {
      *count = static_cast<std::uint32_t>(readNumber(4));
      if (*count > mostRows) return std::nullopt;
    }
    return header;
  }

  bool readData(const Header& header, std::size_t timeSize, ZoneRules& rules) {
    if (header.clocks == 0 || header.clocks > 256) return false;
    for (std::uint32_t i = 0; i < header.changes; ++i) {
      const std::uint64_t bits = readNumber(timeSize);
      rules.changes_.push_back(timeSize == 8 ? static_cast<std::int64_t>(bits) : static_cast<std::int32_t>(bits));
    }
    if (!std::ranges::is_sorted(rules.changes_)) return false;
    for (std::uint32_t i = 0; i < header.changes; ++i) {
      rules.clocksAfter_.push_back(static_cast<std::uint8_t>(readNumber(1)));
      if (rules.clocksAfter_.back() >= header.clocks) return false;
    }
    for (std::uint32_t i = 0; i < header.clocks; ++i) {
      Clocks clocks;
      clocks.secondsFromGMT = static_cast<std::int32_t>(readNumber(4));
      clocks.isDaylightSavingTime = readNumber(1) != 0;
      clocks.nameStart = static_cast<std::uint32_t>(readNumber(1));
      constexpr std::int32_t longestOffset = 26 * 3600;
      if (clocks.secondsFromGMT < -longestOffset || clocks.secondsFromGMT > longestOffset) return false;
      if (clocks.nameStart >= header.nameBytes) return false;
      rules.clocks_.push_back(clocks);
    }
    rules.names_ = rest_.substr(0, header.nameBytes);
    for (Clocks& clocks : rules.clocks_) {
      const std::size_t end = std::min(rules.names_.find('\0', clocks.nameStart), rules.names_.size());
      clocks.nameLength = static_cast<std::uint32_t>(end) - clocks.nameStart;
    }
    return skip(header.dataSize(timeSize) - header.changes * (timeSize + 1) - header.clocks * std::size_t{6});
  }

  void readTail(ZoneRules& rules) {
    if (rest_.empty() || rest_.front() != '\n') return;
    const std::size_t end = rest_.find('\n', 1);
    if (end == std::string_view::npos) return;
    rules.tail_ = PosixZoneRule::parse(rest_.substr(1, end - 1));
    rules.extendByTail();
  }

  std::string_view rest_;
};

ZoneRules ZoneRules::fixed(std::int32_t secondsFromGMT, std::string abbreviation) {
  ZoneRules rules;
  rules.addClocks(secondsFromGMT, false, abbreviation);
  return rules;
}

std::uint8_t ZoneRules::addClocks(std::int32_t secondsFromGMT, bool isDaylightSavingTime, std::string_view name) {
  clocks_.push_back({secondsFromGMT, isDaylightSavingTime, static_cast<std::uint32_t>(names_.size()),
                     static_cast<std::uint32_t>(name.size())});
  names_ += name;
  return static_cast<std::uint8_t>(clocks_.size() - 1);
}

void ZoneRules::extendByTail() {
  constexpr std::int64_t startOf2100 = 4'102'444'800;
  if (!tail_ || changes_.empty() || clocks_.size() > 250) return;
  std::array<std::optional<std::uint8_t>, 2> clocksOfTail;
  for (std::int64_t moment = tail_->periodAt(changes_.back()).end; moment < startOf2100;) {
    const ZonePeriod period = tail_->periodAt(moment);
    auto& clocks = clocksOfTail[period.isDaylightSavingTime ? 1 : 0];
    if (!clocks) clocks = addClocks(period.secondsFromGMT, period.isDaylightSavingTime, period.abbreviation);
    changes_.push_back(moment);
    clocksAfter_.push_back(*clocks);
    if (period.end <= moment) return;
    moment = period.end;
  }
}

std::optional<ZoneRules> ZoneRules::fromZoneFile(std::string_view bytes) { return FileReader(bytes).read(); }

std::optional<ZoneRules> ZoneRules::fromSystemZoneFile(std::string_view identifier) {
  if (!isPlainIdentifier(identifier)) return std::nullopt;
  constexpr std::array directories = {"/usr/share/zoneinfo/", "/usr/lib/zoneinfo/", "/usr/share/lib/zoneinfo/",
                                      "/etc/zoneinfo/"};
  for (const char* const directory : directories) {
    const std::string path = directory + std::string(identifier);
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) continue;
    std::ifstream file(path, std::ios::binary);
    constexpr std::size_t longestFile = 1 << 20;
    std::string bytes;
    for (std::istreambuf_iterator<char> next(file), end; next != end && bytes.size() < longestFile; ++next) {
      bytes.push_back(*next);
    }
    if (auto rules = fromZoneFile(bytes)) return rules;
  }
  return std::nullopt;
}

std::optional<ZoneRules> ZoneRules::fromIcu(std::string_view identifier) {
  const auto id = icu::UnicodeString::fromUTF8(
      icu::StringPiece(identifier.data(), static_cast<std::int32_t>(std::min<std::size_t>(identifier.size(), 64))));
  UErrorCode status = U_ZERO_ERROR;
  UBool isListed = false;
  icu::UnicodeString canonical;
  icu::TimeZone::getCanonicalID(id, canonical, isListed, status);
  if (U_FAILURE(status) || !isListed) return std::nullopt;
  const std::unique_ptr<icu::TimeZone> zone(icu::TimeZone::createTimeZone(id));
  const auto* const rules = dynamic_cast<const icu::BasicTimeZone*>(zone.get());
  if (rules == nullptr) return std::nullopt;

  ZoneRules result;
  const auto add = [&](const icu::TimeZoneRule& rule) {
    const bool isDaylight = rule.getDSTSavings() != 0;
    const std::int32_t offset = (rule.getRawOffset() + rule.getDSTSavings()) / 1000;
    for (std::size_t i = 0; i < result.clocks_.size(); ++i) {
      const Clocks& known = result.clocks_[i];
      if (known.secondsFromGMT == offset && known.isDaylightSavingTime == isDaylight) {
        return static_cast<std::uint8_t>(i);
      }
    }
    icu::UnicodeString name;
    zone->getDisplayName(isDaylight, icu::TimeZone::SHORT, icu::Locale::getEnglish(), name);
    std::string text;
    return result.addClocks(offset, isDaylight, name.toUTF8String(text));
  };

  // Its rules have no end; a table to the year 2500 holds what anybody plans for.
  constexpr UDate end = 16'725'225'600'000.0;
  icu::TimeZoneTransition change;
  UDate moment = -1e13;
  while (result.clocks_.size() < 250 && rules->getNextTransition(moment, false, change) && change.getTime() < end) {
    if (result.clocks_.empty()) add(*change.getFrom());
    moment = change.getTime();
    result.clocksAfter_.push_back(add(*change.getTo()));
    result.changes_.push_back(static_cast<std::int64_t>(moment / 1000));
  }
  if (result.clocks_.empty()) {
    icu::UnicodeString name;
    std::string text;
    zone->getDisplayName(false, icu::TimeZone::SHORT, icu::Locale::getEnglish(), name);
    result.addClocks(zone->getRawOffset() / 1000, false, name.toUTF8String(text));
  }
  return result;
}

ZonePeriod ZoneRules::periodOf(std::size_t changesBefore) const {
  const Clocks& clocks = clocks_[changesBefore == 0 ? 0 : clocksAfter_[changesBefore - 1]];
  return {changesBefore == 0 ? kBeginningOfTime : changes_[changesBefore - 1],
          changesBefore == changes_.size() ? kEndOfTime : changes_[changesBefore], clocks.secondsFromGMT,
          clocks.isDaylightSavingTime, std::string_view(names_).substr(clocks.nameStart, clocks.nameLength)};
}

ZonePeriod ZoneRules::periodAt(std::int64_t secondsSince1970) const {
  const auto next = std::ranges::upper_bound(changes_, secondsSince1970);
  if (next != changes_.end() || !tail_) return periodOf(static_cast<std::size_t>(next - changes_.begin()));
  ZonePeriod period = tail_->periodAt(secondsSince1970);
  // The rule knows nothing of the time before the table ends.
  if (!changes_.empty()) period.start = std::max(period.start, changes_.back());
  return period;
}

}  // namespace tavrine::foundation
