#include "Foundation/TimeZone.h"

#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <system_error>
#include <utility>

#include "Foundation/Environment.h"
#include "Foundation/Locale.h"
#include "Foundation/StringMap.h"
#include "Foundation/ZoneRules.h"

namespace tavrine::foundation {

namespace {

/// "Europe/Paris" of "/usr/share/zoneinfo/Europe/Paris".
std::optional<std::string> identifierInPath(std::string_view path) {
  constexpr std::string_view directory = "zoneinfo/";
  const std::size_t found = path.find(directory);
  if (found == std::string_view::npos || found + directory.size() == path.size()) return std::nullopt;
  return std::string(path.substr(found + directory.size()));
}

constexpr std::int64_t kLargestFixedOffset = 18 * 3600;

/// Seconds of "GMT+03:00", "GMT-3", "UTC+0530", "GMT"; absent for what has another form.
std::optional<std::int32_t> fixedOffsetIn(std::string_view identifier) {
  if (!identifier.starts_with("GMT") && !identifier.starts_with("UTC")) return std::nullopt;
  identifier.remove_prefix(3);
  if (identifier.empty()) return 0;
  if (identifier.front() != '+' && identifier.front() != '-') return std::nullopt;
  const bool isNegative = identifier.front() == '-';
  identifier.remove_prefix(1);

  std::array<char, 6> digits{};
  std::size_t count = 0;
  std::size_t digitsInPart = 0;
  bool hasColons = false;
  for (const char c : identifier) {
    if (c == ':' && digitsInPart > 0) {
      if (hasColons && digitsInPart != 2) return std::nullopt;
      if (digitsInPart == 1 && count == 1) {
        digits[1] = digits[0];
        digits[0] = '0';
        count = 2;
      }
      hasColons = true;
      digitsInPart = 0;
    } else if (c >= '0' && c <= '9' && count < digits.size()) {
      digits[count++] = c;
      ++digitsInPart;
    } else {
      return std::nullopt;
    }
  }
  if (hasColons && digitsInPart != 2) return std::nullopt;
  if (count % 2 != 0) {
    // "GMT+3", "GMT+530"
    for (std::size_t i = count; i > 0; --i) digits[i] = digits[i - 1];
    digits[0] = '0';
    ++count;
  }
  std::int32_t seconds = 0;
  std::int32_t unit = 3600;
  for (std::size_t i = 0; i < count; i += 2) {
    const std::int32_t value = (digits[i] - '0') * 10 + (digits[i + 1] - '0');
    if (i > 0 && value > 59) return std::nullopt;
    seconds += value * unit;
    unit /= 60;
  }
  if (count == 0 || seconds > kLargestFixedOffset) return std::nullopt;
  return isNegative ? -seconds : seconds;
}

std::string fixedIdentifier(std::int64_t seconds) {
  if (seconds == 0) return "GMT";
  std::string result = seconds < 0 ? "GMT-" : "GMT+";
  std::int64_t rest = std::abs(seconds);
  for (const std::int64_t unit : {3600, 60, 1}) {
    if (unit == 1 && rest == 0) break;
    if (unit != 3600) result += ':';
    const std::int64_t value = rest / unit;
    result += static_cast<char>('0' + value / 10);
    result += static_cast<char>('0' + value % 10);
    rest %= unit;
  }
  return result;
}

std::optional<ZoneRules> rulesOf(std::string_view identifier) {
  if (const auto offset = fixedOffsetIn(identifier)) return ZoneRules::fixed(*offset, fixedIdentifier(*offset));
  if (auto rules = ZoneRules::fromSystemZoneFile(identifier)) return rules;
  // ICU knows more names, but takes some for zones that nobody means by them: "BST" for Bangladesh.
  static const bool hasZoneFiles = ZoneRules::fromSystemZoneFile("Europe/London").has_value();
  return hasZoneFiles ? std::nullopt : ZoneRules::fromIcu(identifier);
}

/// The whole second that holds the moment; moments beyond all calendars are held at their ends.
std::int64_t wholeSecondsOf(Date date) {
  constexpr double mostSeconds = 1e15;
  const double seconds = date.timeIntervalSince1970();
  if (!(seconds > -mostSeconds)) return static_cast<std::int64_t>(-mostSeconds);
  if (seconds > mostSeconds) return static_cast<std::int64_t>(mostSeconds);
  return static_cast<std::int64_t>(std::floor(seconds));
}

/// The formatters that write the names of zones, one for a locale and style. They aren't for two threads at once.
icu::SimpleDateFormat* nameFormatterFor(TimeZone::NameStyle style, const Locale& locale) {
  constexpr std::array patterns = {u"zzzz", u"z", u"vvvv"};
  constexpr std::size_t mostKept = 64;
  thread_local std::map<std::pair<std::string, TimeZone::NameStyle>, std::unique_ptr<icu::SimpleDateFormat>> kept;
  if (kept.size() >= mostKept) kept.clear();
  auto& formatter = kept[{locale.identifier(), style}];
  if (formatter == nullptr) {
    UErrorCode status = U_ZERO_ERROR;
    formatter = std::make_unique<icu::SimpleDateFormat>(patterns[static_cast<std::size_t>(style)],
                                                        icu::Locale(locale.identifier().c_str()), status);
    if (U_FAILURE(status)) formatter = nullptr;
  }
  return formatter.get();
}

}  // namespace

struct TimeZone::Data {
  explicit Data(std::string_view itsIdentifier) : identifier(itsIdentifier) {}

  const std::string identifier;

  const ZoneRules& rules() const {
    std::call_once(rulesRead, [this] {
      rulesOrGmt = rulesOf(identifier);
      isKnown_ = rulesOrGmt.has_value();
      if (!isKnown_) rulesOrGmt = ZoneRules::fixed(0, "GMT");
    });
    return *rulesOrGmt;
  }
  bool isKnown() const {
    static_cast<void>(rules());
    return isKnown_;
  }

  /// One object an identifier, so that rules are read once. Identifiers come out of documents and typed offsets too, so
  /// unknown ones are kept for a text that asks for them only as long as there is room.
  static std::shared_ptr<const Data> shared(std::string_view identifier) {
    constexpr std::size_t mostKept = 4096;
    struct Kept {
      std::mutex mutex;
      StringMap<std::shared_ptr<const Data>> byIdentifier;
    };
    static Kept* const kept = new Kept;  // outlives whatever still formats while the process ends
    const std::lock_guard lock(kept->mutex);
    if (const auto found = kept->byIdentifier.find(identifier); found != kept->byIdentifier.end()) return found->second;
    auto data = std::make_shared<const Data>(identifier);
    if (kept->byIdentifier.size() < mostKept) kept->byIdentifier.emplace(std::string(identifier), data);
    return data;
  }

 private:
  mutable std::once_flag rulesRead;
  mutable std::optional<ZoneRules> rulesOrGmt;
  mutable bool isKnown_ = false;
};

TimeZone::TimeZone(std::shared_ptr<const Data> data) noexcept : data_(std::move(data)) {}

TimeZone::TimeZone(std::string_view identifier) : TimeZone(Data::shared(identifier)) {}

TimeZone TimeZone::current() { return Environment::current().timeZone(); }

TimeZone TimeZone::gmt() {
  static const TimeZone* const zone = new TimeZone("GMT");
  return *zone;
}

std::optional<TimeZone> TimeZone::withIdentifier(std::string_view identifier) {
  constexpr std::size_t longestIdentifier = 64;
  if (identifier.size() > longestIdentifier) return std::nullopt;
  auto data = Data::shared(identifier);
  if (!data->isKnown()) return std::nullopt;
  return TimeZone(std::move(data));
}

std::optional<TimeZone> TimeZone::withSecondsFromGMT(std::int64_t seconds) {
  if (seconds < -kLargestFixedOffset || seconds > kLargestFixedOffset) return std::nullopt;
  return TimeZone(fixedIdentifier(seconds));
}

const std::string& TimeZone::identifier() const noexcept { return data_->identifier; }

ZonePeriod TimeZone::periodAt(std::int64_t secondsSince1970) const { return data_->rules().periodAt(secondsSince1970); }

std::int32_t TimeZone::secondsFromGMT(Date date) const { return periodAt(wholeSecondsOf(date)).secondsFromGMT; }

bool TimeZone::isDaylightSavingTime(Date date) const { return periodAt(wholeSecondsOf(date)).isDaylightSavingTime; }

std::string_view TimeZone::abbreviation(Date date) const { return periodAt(wholeSecondsOf(date)).abbreviation; }

std::string TimeZone::localizedName(NameStyle style, Date date, const Locale& locale) const {
  icu::SimpleDateFormat* const formatter = nameFormatterFor(style, locale);
  if (formatter == nullptr) return identifier();
  // ICU knows "GMT+03:00", but none of its other spellings.
  const bool isFixed = identifier().size() > 3 && fixedOffsetIn(identifier()).has_value();
  const auto id = icu::UnicodeString::fromUTF8(isFixed ? fixedIdentifier(secondsFromGMT(date)) : identifier());
  formatter->adoptTimeZone(icu::TimeZone::createTimeZone(id));
  icu::UnicodeString name;
  formatter->format(static_cast<UDate>(wholeSecondsOf(date)) * 1000, name);
  std::string result;
  return name.toUTF8String(result);
}

std::string systemTimeZoneIdentifier() {
  if (const char* const variable = std::getenv("TZ"); variable != nullptr) {
    std::string_view value = variable;
    if (value.starts_with(':')) value.remove_prefix(1);
    if (!value.empty() && !value.starts_with('/')) return std::string(value);
    if (const auto identifier = identifierInPath(value)) return *identifier;
    return "GMT";
  }
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink("/etc/localtime", error);
  if (!error) {
    if (const auto identifier = identifierInPath(target.native())) return *identifier;
  }
  return "GMT";
}

}  // namespace tavrine::foundation
