#include "Foundation/Locale.h"

#include <unicode/calendar.h>
#include <unicode/dcfmtsym.h>
#include <unicode/dtptngen.h>
#include <unicode/locid.h>
#include <unicode/ucurr.h>
#include <unicode/ulocdata.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <mutex>

#include "Foundation/Environment.h"
#include "Foundation/NumberSymbols.h"
#include "Foundation/StringMap.h"
#include "Foundation/Text.h"

namespace tavrine::foundation {

namespace {

constexpr std::string_view kDefaultIdentifier = "en_US";

bool isAsciiAlphanumeric(std::string_view text) {
  return std::ranges::all_of(
      text, [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

std::string normalized(std::string_view identifier) {
  if (identifier.empty() || identifier == "C" || identifier == "POSIX") return std::string(kDefaultIdentifier);
  std::string result = sanitizedUtf8(identifier);
  std::replace(result.begin(), result.begin() + static_cast<std::ptrdiff_t>(std::min(result.find('@'), result.size())),
               '-', '_');
  // Its numbers have no grouping, and nobody writes by it.
  if (result.starts_with("en_US_POSIX")) return std::string(kDefaultIdentifier);
  return result;
}

struct Subtags {
  std::string_view language;
  std::string_view script;
  std::string_view region;
};

/// Reads language, script and region off the front of an identifier. Views into it.
Subtags subtagsOf(std::string_view identifier) {
  identifier = identifier.substr(0, identifier.find_first_of(".@"));
  Subtags tags;
  for (const std::string_view part : split(identifier, '_')) {
    if (part.data() == identifier.data()) {
      tags.language = part;
    } else if (part.size() == 4 && tags.script.empty() && tags.region.empty()) {
      tags.script = part;
    } else if ((part.size() == 2 || part.size() == 3) && tags.region.empty()) {
      tags.region = part;
    } else {
      break;
    }
  }
  return tags;
}

std::string utf8From(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

icu::UnicodeString icuTextFrom(std::string_view text) {
  const auto size = std::min<std::size_t>(text.size(), std::numeric_limits<std::int32_t>::max());
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<std::int32_t>(size)));
}

/// What only the locale data knows. Read on first demand, as most lines need none of it.
struct Attributes {
  std::string percentSymbol = "%";
  std::optional<std::string> currencyCode;
  std::optional<std::string> currencySymbol;
  MeasurementSystem measurementSystem = MeasurementSystem::metric;
  WeekCustoms weekCustoms;
};

void readCurrency(const char* identifier, Attributes& attributes) {
  UErrorCode status = U_ZERO_ERROR;
  std::array<UChar, 4> code{};
  const std::int32_t length = ucurr_forLocale(identifier, code.data(), static_cast<std::int32_t>(code.size()), &status);
  if (U_FAILURE(status) || length != 3) return;
  attributes.currencyCode = utf8From(icu::UnicodeString(code.data(), length));
  std::int32_t symbolLength = 0;
  const UChar* symbol = ucurr_getName(code.data(), identifier, UCURR_SYMBOL_NAME, nullptr, &symbolLength, &status);
  if (U_SUCCESS(status)) attributes.currencySymbol = utf8From(icu::UnicodeString(symbol, symbolLength));
}

MeasurementSystem readMeasurementSystem(const char* identifier) {
  UErrorCode status = U_ZERO_ERROR;
  switch (ulocdata_getMeasurementSystem(identifier, &status)) {
    case UMS_US:
      return MeasurementSystem::us;
    case UMS_UK:
      return MeasurementSystem::uk;
    default:
      return MeasurementSystem::metric;
  }
}

WeekCustoms readWeekCustoms(const icu::Locale& locale) {
  WeekCustoms customs;
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::Calendar> calendar(
      icu::Calendar::createInstance(icu::TimeZone::getGMT()->clone(), locale, status));
  if (U_FAILURE(status) || calendar == nullptr) return customs;
  customs.firstWeekday = static_cast<std::uint8_t>(calendar->getFirstDayOfWeek(status));
  customs.minimumDaysInFirstWeek = calendar->getMinimalDaysInFirstWeek();
  customs.weekendDays = 0;
  for (int weekday = UCAL_SUNDAY; weekday <= UCAL_SATURDAY; ++weekday) {
    const auto type = calendar->getDayOfWeekType(static_cast<UCalendarDaysOfWeek>(weekday), status);
    if (type == UCAL_WEEKEND) customs.weekendDays = static_cast<std::uint8_t>(customs.weekendDays | 1u << weekday);
  }
  return U_SUCCESS(status) ? customs : WeekCustoms{};
}

Attributes readAttributes(const std::string& identifier) {
  Attributes attributes;
  readCurrency(identifier.c_str(), attributes);
  attributes.measurementSystem = readMeasurementSystem(identifier.c_str());
  attributes.weekCustoms = readWeekCustoms(icu::Locale(identifier.c_str()));
  UErrorCode status = U_ZERO_ERROR;
  const icu::DecimalFormatSymbols symbols(icu::Locale(identifier.c_str()), status);
  if (U_SUCCESS(status)) {
    attributes.percentSymbol = utf8From(symbols.getConstSymbol(icu::DecimalFormatSymbols::kPercentSymbol));
  }
  return attributes;
}

/// The date patterns of one locale. The generator takes long to make and isn't for two threads at once.
class DatePatterns {
 public:
  std::optional<std::string> patternFor(const std::string& identifier, std::string_view dateTemplate) {
    const std::lock_guard lock(mutex_);
    if (const auto known = patterns_.find(dateTemplate); known != patterns_.end()) return known->second;
    if (patterns_.size() >= kMostPatterns) patterns_.clear();
    return patterns_[std::string(dateTemplate)] = generate(identifier, dateTemplate);
  }

 private:
  static constexpr std::size_t kMostPatterns = 128;

  std::optional<std::string> generate(const std::string& identifier, std::string_view dateTemplate) {
    UErrorCode status = U_ZERO_ERROR;
    if (!generator_) {
      // A locale whose own calendar is another one still wants patterns for Gregorian dates.
      icu::Locale locale(identifier.c_str());
      locale.setKeywordValue("calendar", "gregorian", status);
      generator_.reset(icu::DateTimePatternGenerator::createInstance(locale, status));
    }
    if (U_FAILURE(status) || !generator_) return std::nullopt;
    const icu::UnicodeString pattern = generator_->getBestPattern(icuTextFrom(dateTemplate), status);
    if (U_FAILURE(status) || pattern.isEmpty()) return std::nullopt;
    return utf8From(pattern);
  }

  std::mutex mutex_;
  std::unique_ptr<icu::DateTimePatternGenerator> generator_;
  StringMap<std::optional<std::string>> patterns_;
};

}  // namespace

struct Locale::Data {
  explicit Data(std::string normalizedIdentifier)
      : identifier(std::move(normalizedIdentifier)), subtags(subtagsOf(identifier)) {}
  Data(const Data&) = delete;
  Data& operator=(const Data&) = delete;

  const Attributes& attributes() const {
    std::call_once(attributesRead, [this] { readOnce = readAttributes(identifier); });
    return readOnce;
  }
  const NumberSymbols& symbols() const {
    std::call_once(symbolsFound, [this] { foundSymbols = &NumberSymbols::forLocale(identifier); });
    return *foundSymbols;
  }

  const std::string identifier;
  const Subtags subtags;
  mutable DatePatterns patterns;

  /// One object an identifier, so that copies made far apart share what was read and compare by pointer. Identifiers
  /// come out of documents too, so beyond a number that no honest use reaches they are no longer kept.
  static std::shared_ptr<const Data> shared(std::string_view identifier) {
    constexpr std::size_t mostKept = 1024;
    struct Kept {
      std::mutex mutex;
      StringMap<std::shared_ptr<const Data>> byIdentifier;
    };
    static Kept* const kept = new Kept;  // outlives whatever still formats while the process ends
    std::string key = normalized(identifier);
    const std::lock_guard lock(kept->mutex);
    if (const auto known = kept->byIdentifier.find(key); known != kept->byIdentifier.end()) return known->second;
    auto data = std::make_shared<const Data>(key);
    if (kept->byIdentifier.size() < mostKept) kept->byIdentifier.emplace(std::move(key), data);
    return data;
  }

 private:
  mutable std::once_flag attributesRead;
  mutable Attributes readOnce;
  mutable std::once_flag symbolsFound;
  mutable const NumberSymbols* foundSymbols = nullptr;
};

Locale::Locale(std::string_view identifier) : data_(Data::shared(identifier)) {}

Locale::Locale() : Locale(kDefaultIdentifier) {}

Locale Locale::current() { return Environment::current().locale(); }

Locale Locale::fromSystem() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value != nullptr && *value != '\0') return fromPosixName(value);
  }
  return Locale();
}

Locale Locale::fromPosixName(std::string_view name) {
  const std::string identifier = normalized(name.substr(0, name.find_first_of(".@")));
  const Subtags tags = subtagsOf(identifier);
  const bool isLanguage =
      (tags.language.size() == 2 || tags.language.size() == 3) && isAsciiAlphanumeric(tags.language);
  if (!isLanguage) return Locale();
  std::string cut(tags.language);
  for (const std::string_view tag : {tags.script, tags.region}) {
    if (!tag.empty() && isAsciiAlphanumeric(tag)) cut.append("_").append(tag);
  }
  return Locale(cut);
}

const std::string& Locale::identifier() const noexcept { return data_->identifier; }

std::string_view Locale::language() const noexcept { return data_->subtags.language; }

std::string_view Locale::script() const noexcept { return data_->subtags.script; }

std::string_view Locale::region() const noexcept { return data_->subtags.region; }

const std::string& Locale::decimalSeparator() const { return data_->symbols().decimalSeparator; }

std::optional<std::string> Locale::groupingSeparator() const {
  const std::string& separator = data_->symbols().groupingSeparator;
  if (separator.empty()) return std::nullopt;
  return separator;
}

const std::string& Locale::percentSymbol() const { return data_->attributes().percentSymbol; }

const std::optional<std::string>& Locale::currencyCode() const { return data_->attributes().currencyCode; }

const std::optional<std::string>& Locale::currencySymbol() const { return data_->attributes().currencySymbol; }

MeasurementSystem Locale::measurementSystem() const { return data_->attributes().measurementSystem; }

const WeekCustoms& Locale::weekCustoms() const { return data_->attributes().weekCustoms; }

std::optional<std::string> Locale::dateFormatFromTemplate(std::string_view dateTemplate) const {
  return data_->patterns.patternFor(data_->identifier, dateTemplate);
}

std::optional<std::string> Locale::currencyCodeForPrefix(std::string_view prefix) const {
  if (prefix == "$") return currencyCodeForDollarSymbol();
  if (prefix == "¥") return currencyCodeForYenSymbol();
  if (prefix == "£") return "GBP";
  if (prefix == "€") return "EUR";
  if (prefix == "₽") return "RUB";
  if (prefix == "R$") return "BRL";
  if (prefix == "₿") return "BTC";
  return std::nullopt;
}

std::string Locale::currencyCodeForDollarSymbol() const {
  return currencySymbol() == "$" && currencyCode() ? uppercased(*currencyCode()) : "USD";
}

std::string Locale::currencyCodeForYenSymbol() const {
  return currencySymbol() == "¥" && currencyCode() ? uppercased(*currencyCode()) : "JPY";
}

bool Locale::isNumericallyEquivalentTo(const Locale& other) const {
  const NumberSymbols& mine = data_->symbols();
  const NumberSymbols& others = other.data_->symbols();
  const auto hasBoth = [](const NumberSymbols& symbols) {
    return !symbols.groupingSeparator.empty() && !symbols.decimalSeparator.empty();
  };
  return hasBoth(mine) && hasBoth(others) && mine.groupingSeparator == others.groupingSeparator &&
         mine.decimalSeparator == others.decimalSeparator;
}

std::size_t Locale::hash() const noexcept { return std::hash<std::string>{}(identifier()); }

}  // namespace tavrine::foundation
