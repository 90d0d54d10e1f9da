// Dates of digits around separators: "2020-03-05", "12/25/2025", "12.11.2020", "3/4".

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Squad/DateParser.h"

namespace tavrine {

namespace {

constexpr char kDot = '.';

bool isDateSeparator(const Token* token) {
  return token != nullptr && (token->is(TokenType::operator_, TokenSubType::subtractionOperator) ||
                              token->is(TokenType::operator_, TokenSubType::divisionOperator));
}

bool isUnit(const Token* token) { return token != nullptr && token->is(TokenType::unit); }

/// Whether the run is a part of more: "1/2/3/4". With white space in between it is an operand.
bool adjoinsSeparator(const TokenList& list, std::size_t first, std::size_t last) {
  return (first > 0 && isDateSeparator(&list[first - 1])) || isDateSeparator(list.tokenFor(last + 1));
}

/// The pieces between dots, if each has digits alone and there are so many.
template <std::size_t count>
std::optional<std::array<DateNumber, count>> piecesBetweenDots(std::string_view text) {
  std::array<DateNumber, count> pieces;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t end = text.find(kDot);
    if ((end == std::string_view::npos) != (i + 1 == count)) return std::nullopt;
    const std::string_view piece = text.substr(0, end);
    constexpr std::size_t kLongestPiece = 5;
    if (piece.empty() || piece.size() > kLongestPiece) return std::nullopt;
    if (piece.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
    pieces[i] = {*Decimal::parse(piece), piece};
    if (end != std::string_view::npos) text.remove_prefix(end + 1);
  }
  return pieces;
}

DateComponents dayMonthYear(std::optional<std::int64_t> day, std::optional<std::int64_t> month,
                            std::optional<std::int64_t> year) {
  DateComponents components;
  components.day = day;
  components.month = month;
  components.year = year;
  return components;
}

bool isDistant(std::int64_t year) { return year > 3000 || (year >= 100 && year <= 1899); }

}  // namespace

void DateParser::identifySandwichDatesIn(TokenList& list) const {
  if (!list.typePrecheck(TokenType::number)) return;
  if (list.typePrecheck(TokenType::operator_)) identifySlashAndDashDatesIn(list);
  scanForDotSeparatedDatesIn(list);
  if (options_.identifyAmbiguousDates) scanForPartialDatesIn(list);
}

void DateParser::identifySlashAndDashDatesIn(TokenList& list) const {
  constexpr std::size_t kPieces = 3;
  constexpr std::size_t kTokens = 5;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (i + kTokens > list.count() || !list[i].is(TokenType::number)) continue;
    const Token& separator = list[i + 1];
    if (!isDateSeparator(&separator) || !list[i + 3].is(separator.type, separator.subType)) continue;
    if (adjoinsSeparator(list, i, i + kTokens - 1)) continue;

    std::array<DateNumber, kPieces> numbers;
    bool areAllParts = true;
    for (std::size_t piece = 0; piece < kPieces && areAllParts; ++piece) {
      const auto number = dateNumberIn(list[i + 2 * piece]);
      areAllParts = number && (options_.identifyAmbiguousDates || utf16Length(number->text) >= 2);
      if (areAllParts) numbers[piece] = *number;
    }
    if (!areAllParts) continue;
    if (const auto metadata = dateComponentsMetadataFromSandwich(numbers, !options_.identifyAmbiguousDates)) {
      replaceRunByComponents(list, i, i + kTokens - 1, *metadata);
    }
  }
}

void DateParser::scanForDotSeparatedDatesIn(TokenList& list) const {
  // How a locale writes dates takes long to find out, and most numbers have one dot at most.
  const bool mayHoldDate = std::any_of(list.begin(), list.end(), [](const Token& token) {
    const std::string& text = token.stringValue;
    return token.is(TokenType::number) && text.find(kDot) != text.rfind(kDot);
  });
  if (!mayHoldDate || options_.useUnitedStatesSandwichDates()) return;
  if (engineCustomization_.locale().groupingSeparator() != std::string(1, kDot)) return;
  for (std::size_t i = list.count(); i-- > 0;) {
    if (!list[i].is(TokenType::number)) continue;
    const auto numbers = piecesBetweenDots<3>(list[i].stringValue);
    if (!numbers) continue;
    if (const auto metadata = dateComponentsMetadataFromSandwich(*numbers, /*ignoreDistantDates=*/true)) {
      replaceRunByComponents(list, i, i, *metadata);
    }
  }
}

void DateParser::scanForPartialDatesIn(TokenList& list) const {
  const bool dotsPartDates = engineCustomization_.locale().decimalSeparator() != std::string(1, kDot);
  const bool mayHoldOperators = list.typePrecheck(TokenType::operator_);
  for (std::size_t i = list.count(); i-- > 0;) {
    const bool isBehindSeparator = mayHoldOperators && i >= 2 && i < list.count() && isDateSeparator(&list[i - 1]);
    if (i >= list.count() || (!dotsPartDates && !isBehindSeparator)) continue;
    const auto last = dateNumberIn(list[i]);
    if (!last) continue;

    if (dotsPartDates && last->text.find(kDot) != std::string_view::npos) {
      const auto numbers = piecesBetweenDots<2>(last->text);
      if (!numbers || list.tokenNeighbouring(list[i], TokenType::unit, /*ignoreWhitespace=*/true) != nullptr) continue;
      if (const auto metadata = dateComponentsMetadataFromSandwich(*numbers, /*ignoreDistantDates=*/true)) {
        replaceRunByComponents(list, i, i, *metadata);
      }
      continue;
    }
    if (!isBehindSeparator) continue;
    const auto first = dateNumberIn(list[i - 2]);
    constexpr std::size_t kLongestPart = 4;
    if (!first || utf16Length(first->text) > kLongestPart || utf16Length(last->text) > kLongestPart) continue;
    // "3/4 cup" is a fraction.
    if (isUnit(list.tokenAfter(i, /*ignoreWhitespace=*/true)) || adjoinsSeparator(list, i - 2, i)) continue;
    const std::array numbers = {*first, *last};
    if (const auto metadata = dateComponentsMetadataFromSandwich(numbers, /*ignoreDistantDates=*/true)) {
      i -= 2;
      replaceRunByComponents(list, i, i + 2, *metadata);
    }
  }
}

std::optional<DateComponentsTokenMetadata> DateParser::dateComponentsMetadataFromSandwich(
    std::span<const DateNumber> numbers, bool ignoreDistantDates) const {
  const Calendar calendar = engineCustomization_.calendar();
  const auto isDate = [&](const DateComponents& components) {
    if (!components.day || !components.month) return false;
    if (components.year && ignoreDistantDates && isDistant(*components.year)) return false;
    DateComponents filled = components;
    fillInMissingComponents(filled, Type::dayAndMonth, calendar, Date::now());
    return calendar.isValidDate(filled);
  };

  if (numbers.size() == 2) {
    if (!options_.identifyAmbiguousDates) return std::nullopt;
    const auto read = [&](const DateNumber& day, const DateNumber& month) {
      return dayMonthYear(possibleDayOfMonth(day), possibleMonth(month), std::nullopt);
    };
    DateComponents components = read(numbers[1], numbers[0]);
    if (!options_.useUnitedStatesSandwichDates() || !isDate(components)) components = read(numbers[0], numbers[1]);
    if (!isDate(components)) return std::nullopt;
    return DateComponentsTokenMetadata(components, Type::dayAndMonth, /*ambiguous=*/true);
  }

  DateComponents components;
  const auto firstYear = definiteYear(numbers[0]);
  if (firstYear && !definiteYear(numbers[2])) {
    components = dayMonthYear(possibleDayOfMonth(numbers[2]), possibleMonth(numbers[1]), firstYear);
  } else {
    const auto year = possibleYear(numbers[2]);
    if (!year) return std::nullopt;
    components = dayMonthYear(possibleDayOfMonth(numbers[1]), possibleMonth(numbers[0]), year);
    if (!options_.useUnitedStatesSandwichDates() || !isDate(components)) {
      components = dayMonthYear(possibleDayOfMonth(numbers[0]), possibleMonth(numbers[1]), year);
    }
  }
  if (!isDate(components)) return std::nullopt;
  return DateComponentsTokenMetadata(components, Type::dayMonthYear);
}

}  // namespace tavrine
