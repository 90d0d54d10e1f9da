#include "Foundation/CalendarSymbols.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/strenum.h>
#include <unicode/unistr.h>

#include <array>
#include <memory>
#include <string_view>

namespace tavrine::foundation {

namespace {

struct CalendarName {
  std::string_view icuName;
  Calendar::Identifier identifier;
};

// In the order of the identifiers.
constexpr std::array<CalendarName, 16> kCalendarNames = {{
    {"gregorian", Calendar::Identifier::gregorian},
    {"buddhist", Calendar::Identifier::buddhist},
    {"chinese", Calendar::Identifier::chinese},
    {"coptic", Calendar::Identifier::coptic},
    {"ethiopic", Calendar::Identifier::ethiopicAmeteMihret},
    {"ethiopic-amete-alem", Calendar::Identifier::ethiopicAmeteAlem},
    {"hebrew", Calendar::Identifier::hebrew},
    {"iso8601", Calendar::Identifier::iso8601},
    {"indian", Calendar::Identifier::indian},
    {"islamic", Calendar::Identifier::islamic},
    {"islamic-civil", Calendar::Identifier::islamicCivil},
    {"japanese", Calendar::Identifier::japanese},
    {"persian", Calendar::Identifier::persian},
    {"roc", Calendar::Identifier::republicOfChina},
    {"islamic-tbla", Calendar::Identifier::islamicTabular},
    {"islamic-umalqura", Calendar::Identifier::islamicUmmAlQura},
}};
static_assert([] {
  for (std::size_t i = 0; i < kCalendarNames.size(); ++i) {
    if (static_cast<std::size_t>(kCalendarNames[i].identifier) != i) return false;
  }
  return true;
}());

// The ISO calendar only numbers its weeks differently: its words are the Gregorian ones.
std::string_view icuNameWithWords(Calendar::Identifier calendar) {
  if (calendar == Calendar::Identifier::iso8601) return "gregorian";
  return unicodeNameOf(calendar);
}

std::string utf8From(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

// Weekdays stand at 1 to 7 there, with an empty text at 0; leap months and the like are left empty too.
std::vector<std::string> wordsFrom(const icu::UnicodeString* words, int32_t count) {
  std::vector<std::string> result;
  for (int32_t i = 0; i < count; ++i) {
    if (!words[i].isEmpty()) result.push_back(utf8From(words[i]));
  }
  return result;
}

}  // namespace

CalendarSymbols::CalendarSymbols(Calendar::Identifier calendar, const Locale& locale) {
  const std::string name(icuNameWithWords(calendar));
  UErrorCode status = U_ZERO_ERROR;
  const icu::DateFormatSymbols symbols(icu::Locale(locale.identifier().c_str()), name.c_str(), status);
  if (U_FAILURE(status)) return;

  using Symbols = icu::DateFormatSymbols;
  int32_t count = 0;
  const auto monthWords = [&](Symbols::DtContextType context, Symbols::DtWidthType width) {
    const icu::UnicodeString* words = symbols.getMonths(count, context, width);
    return wordsFrom(words, count);
  };
  months = monthWords(Symbols::FORMAT, Symbols::WIDE);
  standaloneMonths = monthWords(Symbols::STANDALONE, Symbols::WIDE);
  shortMonths = monthWords(Symbols::FORMAT, Symbols::ABBREVIATED);
  shortStandaloneMonths = monthWords(Symbols::STANDALONE, Symbols::ABBREVIATED);

  const icu::UnicodeString* words = symbols.getWeekdays(count);
  weekdays = wordsFrom(words, count);
  words = symbols.getShortWeekdays(count);
  shortWeekdays = wordsFrom(words, count);
  words = symbols.getQuarters(count, Symbols::FORMAT, Symbols::ABBREVIATED);
  shortQuarters = wordsFrom(words, count);
  words = symbols.getAmPmStrings(count);
  if (count >= 2) {
    am = utf8From(words[0]);
    pm = utf8From(words[1]);
  }
}

std::string_view unicodeNameOf(Calendar::Identifier calendar) noexcept {
  return kCalendarNames[static_cast<std::size_t>(calendar)].icuName;
}

Calendar::Identifier preferredCalendarFor(const Locale& locale) {
  UErrorCode status = U_ZERO_ERROR;
  const std::unique_ptr<icu::StringEnumeration> names(icu::Calendar::getKeywordValuesForLocale(
      "calendar", icu::Locale(locale.identifier().c_str()), /*commonlyUsed=*/true, status));
  if (U_FAILURE(status) || names == nullptr) return Calendar::Identifier::gregorian;
  const char* first = names->next(nullptr, status);
  if (U_FAILURE(status) || first == nullptr) return Calendar::Identifier::gregorian;
  for (const CalendarName& name : kCalendarNames) {
    if (name.icuName == first) return name.identifier;
  }
  return Calendar::Identifier::gregorian;
}

}  // namespace tavrine::foundation
