#include "Foundation/DateFormatter.h"

#include <unicode/calendar.h>
#include <unicode/datefmt.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/reldatefmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>
#include <unicode/ures.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>

#include "Foundation/StringMap.h"
#include "Foundation/WallClock.h"

namespace tavrine::foundation {

namespace {

using Style = DateFormatter::Style;

// Longer than any date that somebody wants to see.
constexpr std::size_t kLongestTemplate = 64;
constexpr std::size_t kMostKept = 64;
constexpr int kMostRelativeDays = 2;
// What all languages have words for.
constexpr int kNearestDays = 1;

constexpr char16_t kNarrowNoBreakSpace = 0x202F;

std::string utf8From(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

icu::UnicodeString withPlainBlanks(icu::UnicodeString text) {
  return text.findAndReplace(icu::UnicodeString(kNarrowNoBreakSpace), icu::UnicodeString(u' '));
}

icu::Locale gregorianLocale(const Locale& locale) {
  icu::Locale result(locale.identifier().c_str());
  UErrorCode status = U_ZERO_ERROR;
  result.setKeywordValue("calendar", "gregorian", status);
  return result;
}

icu::DateFormat::EStyle icuStyle(Style style) {
  switch (style) {
    case Style::none:
      return icu::DateFormat::kNone;
    case Style::short_:
      return icu::DateFormat::kShort;
    case Style::medium:
      return icu::DateFormat::kMedium;
    case Style::long_:
      return icu::DateFormat::kLong;
    case Style::full:
      return icu::DateFormat::kFull;
  }
  return icu::DateFormat::kNone;
}

icu::UnicodeString stylePattern(const icu::Locale& locale, Style dateStyle, Style timeStyle) {
  icu::UnicodeString pattern;
  if (dateStyle == Style::none && timeStyle == Style::none) return pattern;
  const std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateTimeInstance(icuStyle(dateStyle), icuStyle(timeStyle), locale));
  if (const auto* simple = dynamic_cast<const icu::SimpleDateFormat*>(format.get())) simple->toPattern(pattern);
  return withPlainBlanks(std::move(pattern));
}

/// Whether a language begins its words for days with a capital where they stand alone.
bool capitalizesDayWords(const icu::Locale& locale) {
  // The data has nothing on German, whose readers expect one.
  if (std::string_view(locale.getLanguage()) == "de") return true;
  UErrorCode status = U_ZERO_ERROR;
  const icu::LocalUResourceBundlePointer words(ures_open(nullptr, locale.getName(), &status));
  const icu::LocalUResourceBundlePointer transforms(
      ures_getByKey(words.getAlias(), "contextTransforms", nullptr, &status));
  const icu::LocalUResourceBundlePointer relative(ures_getByKey(transforms.getAlias(), "relative", nullptr, &status));
  std::int32_t count = 0;
  // In a menu, and alone.
  const std::int32_t* const capitalizes = ures_getIntVector(relative.getAlias(), &count, &status);
  return U_SUCCESS(status) && count > 1 && capitalizes[1] != 0;
}

/// The word for a day so far from today; empty where the language has none.
icu::UnicodeString relativeDayWord(const icu::Locale& locale, int days) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::RelativeDateTimeFormatter formatter(locale, status);
  constexpr UDateDirection directions[] = {UDAT_DIRECTION_LAST_2, UDAT_DIRECTION_LAST, UDAT_DIRECTION_THIS,
                                           UDAT_DIRECTION_NEXT, UDAT_DIRECTION_NEXT_2};
  icu::UnicodeString word;
  if (U_FAILURE(status)) return word;
  formatter.format(directions[days + kMostRelativeDays], UDAT_ABSOLUTE_DAY, word, status);
  if (U_FAILURE(status)) return {};
  if (capitalizesDayWords(locale)) {
    const std::int32_t first = word.moveIndex32(0, 1);
    word.replace(0, first, icu::UnicodeString(word, 0, first).toUpper(locale));
  }
  return word;
}

icu::UnicodeString quoted(icu::UnicodeString text) {
  text.findAndReplace(u"'", u"''");
  return text.insert(0, u'\'').append(u'\'');
}

/// The pattern of date and time with the word in the place of the date: "'Today' 'at' h:mm a". Empty where the language
/// has no word for the day.
icu::UnicodeString relativePattern(const icu::Locale& locale, int days, Style dateStyle, Style timeStyle) {
  const icu::UnicodeString word = relativeDayWord(locale, days);
  if (word.isEmpty()) return {};
  if (timeStyle == Style::none) return quoted(word);
  icu::UnicodeString pattern = stylePattern(locale, dateStyle, timeStyle);
  const icu::UnicodeString date = stylePattern(locale, dateStyle, Style::none);
  const std::int32_t place = pattern.indexOf(date);
  if (place < 0) return {};
  // Between two quoted texts there is always a blank or comma: quotes that meet would read as an apostrophe.
  pattern.replace(place, date.length(), quoted(word));
  // A Russian preposition of one letter keeps to the word behind it.
  if (std::string_view(locale.getLanguage()) == "ru") pattern.findAndReplace(u" 'в' ", u" 'в'\u00A0");
  return pattern;
}

bool tellsZone(const icu::UnicodeString& pattern) {
  bool isQuoted = false;
  for (std::int32_t i = 0; i < pattern.length(); ++i) {
    if (pattern[i] == u'\'') isQuoted = !isQuoted;
    if (!isQuoted && icu::UnicodeString(u"zZOvVXx").indexOf(pattern[i]) >= 0) return true;
  }
  return false;
}

/// The pattern with the era beside the year: behind it, or before it where a word for "year" follows. Unchanged where
/// no year is told or the era is.
icu::UnicodeString withEra(icu::UnicodeString pattern) {
  bool isQuoted = false;
  std::int32_t year = -1;
  for (std::int32_t i = 0; i < pattern.length(); ++i) {
    if (pattern[i] == u'\'') isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (pattern[i] == u'G') return pattern;
    if (pattern[i] == u'y' && year < 0) year = i;
  }
  if (year < 0) return pattern;
  std::int32_t end = year;
  while (end < pattern.length() && pattern[end] == u'y') ++end;
  constexpr char16_t kLastAsciiCharacter = 0x7F;
  const bool isBeforeWord = end < pattern.length() && pattern[end] > kLastAsciiCharacter;
  return isBeforeWord ? pattern.insert(year, u'G') : pattern.insert(end, u" G");
}

double millisecondsOf(const Moment& moment) {
  return static_cast<double>(moment.seconds * 1000 + moment.nanoseconds / 1'000'000);
}

/// One pattern in one locale, ready to write dates.
class PatternFormatter {
 public:
  PatternFormatter(const icu::Locale& locale, const icu::UnicodeString& pattern) : tellsZone_(tellsZone(pattern)) {
    UErrorCode status = U_ZERO_ERROR;
    auto calendar = std::make_unique<icu::GregorianCalendar>(*icu::TimeZone::getGMT(), locale, status);
    // Dates before 1582 are counted as the engine counts them.
    calendar->setGregorianChange(-8.64e15, status);
    auto format = std::make_unique<icu::SimpleDateFormat>(pattern, locale, status);
    if (U_FAILURE(status)) return;
    calendar_ = std::move(calendar);
    format_ = std::move(format);
  }

  std::string string(Date date, const TimeZone& zone) {
    if (format_ == nullptr) return {};
    UErrorCode status = U_ZERO_ERROR;
    const Moment moment = momentOf(date);
    const std::int32_t offset = zone.secondsFromGMT(date);
    if (tellsZone_) {
      setZone(zone, offset, millisecondsOf(moment));
      calendar_->setTime(millisecondsOf(moment), status);
    } else {
      // Our zone rules are newer than those of ICU, so it gets the time on the wall as a time in GMT.
      calendar_->setTime(millisecondsOf({moment.seconds + offset, moment.nanoseconds}), status);
    }
    if (U_FAILURE(status)) return {};
    icu::UnicodeString text;
    icu::FieldPosition position;
    if (calendar_->get(UCAL_ERA, status) != icu::GregorianCalendar::BC) {
      return utf8From(format_->format(*calendar_, text, position));
    }
    // Years before the first are counted backwards, and read as another year without their era.
    icu::UnicodeString pattern;
    format_->toPattern(pattern);
    icu::SimpleDateFormat early(*format_);
    early.applyPattern(withEra(std::move(pattern)));
    return utf8From(early.format(*calendar_, text, position));
  }

 private:
  /// The zone by its name; by its distance from GMT where ICU doesn't know the zone or has other rules for it.
  void setZone(const TimeZone& zone, std::int32_t offset, UDate date) {
    std::unique_ptr<icu::TimeZone> named(
        icu::TimeZone::createTimeZone(icu::UnicodeString::fromUTF8(zone.identifier())));
    std::int32_t raw = 0;
    std::int32_t daylight = 0;
    UErrorCode status = U_ZERO_ERROR;
    named->getOffset(date, /*local=*/false, raw, daylight, status);
    if (U_FAILURE(status) || *named == icu::TimeZone::getUnknown() || raw + daylight != offset * 1000) {
      const auto fixed = TimeZone::withSecondsFromGMT(offset);
      named.reset(icu::TimeZone::createTimeZone(
          icu::UnicodeString::fromUTF8(fixed ? fixed->identifier() : std::string("GMT"))));
    }
    calendar_->adoptTimeZone(named.release());
  }

  bool tellsZone_;
  std::unique_ptr<icu::GregorianCalendar> calendar_;
  std::unique_ptr<icu::SimpleDateFormat> format_;
};

using PatternMaker = icu::UnicodeString (*)(const icu::Locale& locale, std::string_view what);

/// The formatters of this thread. One takes some 20 µs to make and 2 µs to use; it isn't for two threads at once.
/// `what` tells what `makePattern` is to make; null when there is no such pattern.
PatternFormatter* formatterFor(const Locale& locale, std::string_view what, PatternMaker makePattern) {
  thread_local StringMap<std::unique_ptr<PatternFormatter>> kept;
  thread_local std::string key;
  key.assign(locale.identifier()).append("\n").append(what);
  if (const auto known = kept.find(key); known != kept.end()) return known->second.get();
  if (kept.size() >= kMostKept) kept.clear();
  const icu::Locale icuLocale = gregorianLocale(locale);
  const icu::UnicodeString pattern = makePattern(icuLocale, what);
  auto formatter = pattern.isEmpty() ? nullptr : std::make_unique<PatternFormatter>(icuLocale, pattern);
  return (kept[key] = std::move(formatter)).get();
}

// What is asked for, as part of a key: a mark, then the pattern or the styles as digits.

PatternFormatter* formatterWithPattern(const Locale& locale, std::string_view pattern) {
  return formatterFor(locale, std::string("p").append(pattern), [](const icu::Locale&, std::string_view what) {
    return icu::UnicodeString::fromUTF8(std::string(what.substr(1)));
  });
}

Style styleIn(char digit) { return static_cast<Style>(digit - '0'); }
char digitOf(Style style) { return static_cast<char>('0' + static_cast<int>(style)); }

PatternFormatter* formatterWithStyles(const Locale& locale, Style dateStyle, Style timeStyle) {
  const char what[] = {'s', digitOf(dateStyle), digitOf(timeStyle)};
  return formatterFor(locale, {what, sizeof what}, [](const icu::Locale& icuLocale, std::string_view styles) {
    return stylePattern(icuLocale, styleIn(styles[1]), styleIn(styles[2]));
  });
}

PatternFormatter* formatterForDayWord(const Locale& locale, int days, Style dateStyle, Style timeStyle) {
  const char what[] = {'r', static_cast<char>('0' + days + kMostRelativeDays), digitOf(dateStyle), digitOf(timeStyle)};
  return formatterFor(locale, {what, sizeof what}, [](const icu::Locale& icuLocale, std::string_view asked) {
    return relativePattern(icuLocale, asked[1] - '0' - kMostRelativeDays, styleIn(asked[2]), styleIn(asked[3]));
  });
}

std::int64_t daysFromToday(Date date, const TimeZone& zone) {
  return wallTimeOf(momentOf(date).seconds, zone).dayNumber - wallTimeOf(momentOf(Date::now()).seconds, zone).dayNumber;
}

}  // namespace

void DateFormatter::setLocalizedDateFormatFromTemplate(std::string_view dateTemplate) {
  dateFormat.emplace();
  if (dateTemplate.size() > kLongestTemplate) return;
  if (const auto pattern = locale_.dateFormatFromTemplate(dateTemplate)) {
    dateFormat = utf8From(withPlainBlanks(icu::UnicodeString::fromUTF8(*pattern)));
  }
}

std::string DateFormatter::string(Date date) const {
  PatternFormatter* formatter = nullptr;
  if (doesRelativeDateFormatting && dateStyle != Style::none) {
    const std::int64_t days = daysFromToday(date, timeZone_);
    if (std::abs(days) <= (dateFormat ? kNearestDays : kMostRelativeDays)) {
      formatter = formatterForDayWord(locale_, static_cast<int>(days), dateStyle, timeStyle);
    }
  }
  if (formatter == nullptr) {
    formatter =
        dateFormat ? formatterWithPattern(locale_, *dateFormat) : formatterWithStyles(locale_, dateStyle, timeStyle);
  }
  return formatter == nullptr ? std::string() : formatter->string(date, timeZone_);
}

}  // namespace tavrine::foundation
