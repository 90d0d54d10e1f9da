#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "Foundation/Calendar.h"
#include "Foundation/DateComponents.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/LocaleMetadata.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Squad/DateNumbers.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"
#include "TavrineCore/Utility/Lazy.h"

namespace tavrine {

/// How freely digits are read as dates.
struct DateParsingOptions {
  /// "3/4" may be a date, and parts of dates may have one digit.
  bool identifyAmbiguousDates = false;
  /// "1530 h" is half past three.
  bool identifyMilitaryTimestamps = false;
  /// How the locale writes dates, asked only by a line that may hold one; nobody's way without it.
  const Lazy<LocaleMetadata>* localeMetadata = nullptr;

  /// The month stands before the day; dots don't part dates.
  [[nodiscard]] bool useUnitedStatesSandwichDates() const {
    return localeMetadata != nullptr && (*localeMetadata)->usesUnitedStatesDateFormat;
  }
};

/// Finds the words and digits of a line that tell dates and times, in two steps. First each piece becomes a token of
/// date components by itself ("March 5", "3pm", "tomorrow"); then neighbouring pieces are merged into moments.
///
/// Made for one line: it looks at the customization and asks for calendar and clock only when something was found.
class DateParser {
 public:
  /// The customization must outlive the parser.
  DateParser(const EngineCustomization& engineCustomization, DateParsingOptions options)
      : engineCustomization_(engineCustomization), options_(options) {}

  /// Tokens of date components for every piece that tells a part of a date.
  void identifyDateComponentsIn(TokenList& tokenList) const;
  /// "2024-03-05T14:30:00Z" → one `datestamp`. Counts on its date and its time being pieces by now.
  void transformComponentsIntoIsoDatesIn(TokenList& tokenList) const;
  /// The pieces → `datestamp`, `datespan`; what makes no date goes back to words.
  void transformComponentsIntoDatesIn(TokenList& tokenList) const;

 private:
  using Type = Datestamp::DatestampType;

  /// The pieces that a date or time was read from, and the token that tells it.
  struct Reading {
    std::size_t first;
    std::size_t last;
    DateComponents components;
    Type type;
  };

  // DateParserTimes.cpp
  void identifyClockTimesIn(TokenList& list) const;
  [[nodiscard]] std::optional<Reading> hoursUnitReadingAt(const TokenList& list, std::size_t number) const;
  [[nodiscard]] std::optional<Reading> clockTimeReadingAt(const TokenList& list, std::size_t number) const;
  static void identifyRelevantLaptimesIn(TokenList& list);

  // DateParserMonths.cpp
  void identifyMonthsAndYearsIn(TokenList& list) const;
  [[nodiscard]] std::optional<Reading> monthReadingAt(const TokenList& list, std::size_t word) const;
  [[nodiscard]] Reading weekdayReadingAt(const TokenList& list, std::size_t word) const;
  static Reading quarterReadingAt(const TokenList& list, std::size_t word);
  [[nodiscard]] TokenTypeSet datestampIncidentalSymbols() const;

  // DateParserSandwiches.cpp
  void identifySandwichDatesIn(TokenList& list) const;
  void identifySlashAndDashDatesIn(TokenList& list) const;
  void scanForDotSeparatedDatesIn(TokenList& list) const;
  void scanForPartialDatesIn(TokenList& list) const;
  [[nodiscard]] std::optional<DateComponentsTokenMetadata> dateComponentsMetadataFromSandwich(
      std::span<const DateNumber> numbers, bool ignoreDistantDates) const;

  // DateParserRelative.cpp
  void identifyRelativeDatesIn(TokenList& list) const;
  void identifySpecialDaysIn(TokenList& list) const;
  [[nodiscard]] std::optional<Reading> specialDayReadingAt(const TokenList& list, std::size_t day) const;
  void identifyNextAndThisAndLastDurationUnitsIn(TokenList& list) const;
  [[nodiscard]] std::optional<Reading> relativeUnitReadingAt(const TokenList& list, std::size_t qualifier) const;

  // DateParserYears.cpp
  static void identifyNakedYearsAroundConverters(TokenList& list);
  static void identifyNakedYearPlusOrMinusThenTimespan(TokenList& list);
  static void identifyNakedMonthPlusOrMinusThenTimespan(TokenList& list);

  const EngineCustomization& engineCustomization_;
  DateParsingOptions options_;
};

// --- What the steps share -------------------------------------------------------------------------------------------

/// One token of date components over the run.
void replaceRunByComponents(TokenList& list, std::size_t first, std::size_t last, DateComponentsTokenMetadata metadata);

/// Puts what a day, a month or a time lacks to be a moment: noon for a day, the first of a month, the present year.
void fillInMissingComponents(DateComponents& components, DatestampType type, const Calendar& calendar, Date now);

/// Whether the token is a unit of time ("days", "h").
bool isDurationUnit(const Token* token);

/// Whether a time of day is told.
bool tellsTime(const DateComponents& components);

}  // namespace tavrine
