// Words of the calendar and the numbers beside them: "March 5, 2024", "5th of March", "Friday at 3", "Q2 2024".

#include <cstddef>
#include <optional>
#include <utility>

#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"
#include "TavrineCore/Parsing/Squad/UnitTokens.h"

namespace tavrine {

namespace {

/// The word of a calendar with a number of its own that the token is.
const DateWord* calendarWordIn(const Token& token) {
  if (!token.is(TokenType::dateWord)) return nullptr;
  const auto* metadata = token.metadataAs<DateWordTokenMetadata>();
  return metadata != nullptr && metadata->dateWord.index ? &metadata->dateWord : nullptr;
}

/// The numbers beside the name of a month, as they are found one after the other.
class MonthReader {
 public:
  MonthReader(const TokenList& list, std::size_t word, const TokenTypeSet& incidentalSymbols)
      : first(word), last(word), list_(list), incidentalSymbols_(incidentalSymbols) {}

  void read() {
    if (readBetweenSeparators()) return;
    if (const auto before = list_.indexBefore(first, /*ignoreWhitespace=*/true, incidentalSymbols_)) {
      if (holdsPartOfDate(*before) && !(isSeparated(*before, first) && hasComma(*before, first))) take(*before);
    }
    if (const auto after = list_.indexAfter(last, /*ignoreWhitespace=*/true, incidentalSymbols_)) {
      if (holdsPartOfDate(*after)) take(*after);
    }
    if (!year) takeYearBehind();
    if (!year) takeYearBefore();
  }

  std::optional<std::int64_t> day;
  std::optional<std::int64_t> year;
  std::size_t first;
  std::size_t last;

 private:
  /// "12-Jun-2026", "12/jun/26": a day and a year with the same sign between, and no white space.
  bool readBetweenSeparators() {
    if (first < 2 || last + 2 >= list_.count()) return false;
    const Token& separator = list_[first - 1];
    const bool isSeparator = separator.is(TokenType::operator_, TokenSubType::subtractionOperator) ||
                             separator.is(TokenType::operator_, TokenSubType::divisionOperator);
    if (!isSeparator || !list_[last + 1].is(separator.type, separator.subType)) return false;
    if (!holdsPartOfDate(first - 2) || !holdsPartOfDate(last + 2)) return false;
    const auto dayBefore = possibleDayOfMonth(*dateNumberIn(list_[first - 2]));
    const auto yearBehind = possibleYear(*dateNumberIn(list_[last + 2]));
    if (!dayBefore || !yearBehind) return false;
    day = dayBefore;
    year = yearBehind;
    first -= 2;
    last += 2;
    return true;
  }

  /// Whether the token is a number that nothing else lays claim to: no amount, no percentage, no part of a sum.
  [[nodiscard]] bool holdsPartOfDate(std::size_t index) const {
    const auto number = dateNumberIn(list_[index]);
    if (!number || !number->value.isWhole()) return false;
    const auto after = list_.indexAfter(index, /*ignoreWhitespace=*/true);
    if (after) {
      const Token& next = list_[*after];
      if (next.is(TokenType::unit) || next.is(TokenType::percentageSymbol) || next.is(TokenType::scalar)) return false;
    }
    return index == 0 || !list_[index - 1].is(TokenType::unit);
  }

  /// Whether anything but white space and an ordinal suffix stands between the two.
  [[nodiscard]] bool isSeparated(std::size_t from, std::size_t to) const {
    for (std::size_t i = from + 1; i < to; ++i) {
      if (!list_[i].is(TokenType::whitespace)) return true;
    }
    return false;
  }
  [[nodiscard]] bool hasComma(std::size_t from, std::size_t to) const {
    bool hasComma = false;
    for (std::size_t i = from + 1; i < to; ++i) {
      if (list_[i].is(TokenType::ordinalSuffix)) return false;
      hasComma = hasComma || list_[i].is(TokenType::comma);
    }
    return hasComma;
  }

  void take(std::size_t index) {
    const auto number = dateNumberIn(list_[index]);
    const auto definite = definiteYear(*number);
    const auto dayOfMonth = possibleDayOfMonth(*number);
    if (!year && definite) {
      year = definite;
    } else if (!day && dayOfMonth) {
      day = dayOfMonth;
    } else {
      return;
    }
    extendTo(index);
  }

  /// The run grows to the number and the suffix behind it.
  void extendTo(std::size_t index) {
    if (index < first) {
      first = index;
    } else if (index > last) {
      last = index;
      if (index + 1 < list_.count() && list_[index + 1].is(TokenType::ordinalSuffix)) last = index + 1;
    }
  }

  [[nodiscard]] std::optional<std::int64_t> yearAt(std::size_t index, bool isSeparatedFromDate) const {
    if (!holdsPartOfDate(index)) return std::nullopt;
    const auto number = dateNumberIn(list_[index]);
    if (const auto definite = definiteYear(*number)) return definite;
    // A short year needs a day and nothing in between: "March 5, 6 and 7" lists days.
    if (isSeparatedFromDate) return std::nullopt;
    return day ? possibleYear(*number) : recentYear(*number);
  }

  void takeYearBehind() {
    const auto index = list_.indexAfter(last, /*ignoreWhitespace=*/true, incidentalSymbols_);
    if (!index) return;
    year = yearAt(*index, isSeparated(last, *index));
    if (year) last = *index;
  }

  void takeYearBefore() {
    const auto index = list_.indexBefore(first, /*ignoreWhitespace=*/true, incidentalSymbols_);
    if (!index || !holdsPartOfDate(*index)) return;
    year = definiteYearIn(&list_[*index]);
    if (year) first = *index;
  }

  const TokenList& list_;
  const TokenTypeSet& incidentalSymbols_;
};

}  // namespace

TokenTypeSet DateParser::datestampIncidentalSymbols() const {
  TokenTypeSet result = TokenTypeSet::potentiallyDatestampIncidentalSymbols;
  // The characters for year, month and day are units there.
  if (engineCustomization_.locale().isChinese()) result.insert(TokenType::unit);
  return result;
}

void DateParser::identifyMonthsAndYearsIn(TokenList& list) const {
  for (std::size_t i = 0; i < list.count(); ++i) {
    const DateWord* word = calendarWordIn(list[i]);
    if (word == nullptr) continue;
    std::optional<Reading> reading;
    switch (word->type) {
      case DateWordType::month:
        reading = monthReadingAt(list, i);
        break;
      case DateWordType::dayOfWeek:
        reading = weekdayReadingAt(list, i);
        break;
      case DateWordType::quarter:
        reading = quarterReadingAt(list, i);
        break;
      case DateWordType::am:
      case DateWordType::pm:
        break;
    }
    if (!reading) continue;
    replaceRunByComponents(list, reading->first, reading->last, {reading->components, reading->type});
    i = reading->first;
  }
}

std::optional<DateParser::Reading> DateParser::monthReadingAt(const TokenList& list, std::size_t word) const {
  const TokenTypeSet incidentalSymbols = datestampIncidentalSymbols();
  MonthReader reader(list, word, incidentalSymbols);
  reader.read();

  Reading reading{reader.first, reader.last, {}, Type::nakedMonth};
  reading.components.month = *calendarWordIn(list[word])->index;
  reading.components.day = reader.day;
  reading.components.year = reader.year;
  if (reader.day) {
    reading.type = reader.year ? Type::dayMonthYear : Type::dayAndMonth;
  } else if (reader.year) {
    reading.type = Type::monthAndYear;
  }

  const Calendar calendar = engineCustomization_.calendar();
  DateComponents filled = reading.components;
  fillInMissingComponents(filled, reading.type, calendar, Date::now());
  if (!calendar.isValidDate(filled)) return std::nullopt;
  return reading;
}

DateParser::Reading DateParser::weekdayReadingAt(const TokenList& list, std::size_t word) const {
  Reading reading{word, word, {}, Type::weekDay};
  reading.components.weekday = *calendarWordIn(list[word])->index;
  if (!options_.identifyAmbiguousDates) return reading;

  // "Friday at 3"
  const auto preposition = list.indexAfter(word, /*ignoreWhitespace=*/true);
  if (!preposition || !list[*preposition].is(TokenType::prepositionWord, TokenSubType::prepositionWordAt)) {
    return reading;
  }
  const auto number = list.indexAfter(*preposition, /*ignoreWhitespace=*/true);
  const auto value = number ? dateNumberIn(list[*number]) : std::nullopt;
  const auto hour = value ? possibleHourStamp(*value) : std::nullopt;
  if (!hour) return reading;
  constexpr std::int64_t kLastHourMeantAfterNoon = 5;
  const bool isAfterNoon = *hour >= 1 && *hour <= kLastHourMeantAfterNoon;
  reading.components.hour = isAfterNoon ? *hour + 12 : *hour;
  reading.components.minute = 0;
  reading.last = *number;
  return reading;
}

DateParser::Reading DateParser::quarterReadingAt(const TokenList& list, std::size_t word) {
  Reading reading{word, word, {}, Type::quarter};
  reading.components.quarter = *calendarWordIn(list[word])->index;
  const auto number = list.indexAfter(word, /*ignoreWhitespace=*/true);
  if (const auto year = number ? definiteYearIn(&list[*number]) : std::nullopt) {
    reading.components.year = year;
    reading.last = *number;
  }
  return reading;
}

}  // namespace tavrine
