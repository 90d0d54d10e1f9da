#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Locale.h"

namespace tavrine::foundation {

/// The words of a calendar in a language, in the case in which the language writes them. Lists of months hold as many
/// as the calendar has; weeks begin with Sunday.
struct CalendarSymbols {
  /// A calendar without words of its own gives those of the Gregorian one.
  CalendarSymbols(Calendar::Identifier calendar, const Locale& locale);

  /// As within a date ("марта") and by themselves ("март"); most languages don't tell them apart.
  std::vector<std::string> months;
  std::vector<std::string> standaloneMonths;
  std::vector<std::string> shortMonths;
  std::vector<std::string> shortStandaloneMonths;
  std::vector<std::string> weekdays;
  std::vector<std::string> shortWeekdays;
  std::vector<std::string> shortQuarters;
  std::string am;
  std::string pm;
};

/// The name of the calendar in Unicode's locale data: "islamic-umalqura".
[[nodiscard]] std::string_view unicodeNameOf(Calendar::Identifier calendar) noexcept;

/// The calendar that is in daily use where the locale is: Buddhist in Thailand, Gregorian nearly everywhere.
[[nodiscard]] Calendar::Identifier preferredCalendarFor(const Locale& locale);

}  // namespace tavrine::foundation
