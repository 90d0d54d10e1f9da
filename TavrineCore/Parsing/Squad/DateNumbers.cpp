#include "TavrineCore/Parsing/Squad/DateNumbers.h"

#include <algorithm>
#include <cstddef>

#include "Foundation/Text.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"

namespace tavrine {

namespace {

// Beyond these no part of a date is looked for, and the whole number fits into 64 bits.
constexpr std::int64_t kLargestNumber = 100000;

/// Whether the text has digits alone. What is not ASCII are the digits of other scripts: the value is known already.
bool isUnbrokenNumber(std::string_view text) {
  return std::ranges::none_of(text,
                              [](char c) { return static_cast<unsigned char>(c) < 0x80 && (c < '0' || c > '9'); });
}

/// The whole number between the two, in at most so many characters.
std::optional<std::int64_t> wholeBetween(const DateNumber& number, std::int64_t lowest, std::int64_t highest,
                                         std::size_t longestText) {
  if (!number.value.isWhole() || number.value < Decimal(lowest) || number.value > Decimal(highest)) return std::nullopt;
  if (utf16Length(number.text) > longestText) return std::nullopt;
  return number.value.intValue();
}

constexpr std::size_t kAnyLength = 32;

}  // namespace

std::optional<DateNumber> dateNumberIn(const Token& token) {
  if (!token.is(TokenType::number)) return std::nullopt;
  const auto* metadata = token.metadataAs<NumberTokenMetadata>();
  if (metadata == nullptr || metadata->scalar || metadata->representsNumberWord) return std::nullopt;
  if (metadata->alwaysFormatAsScientificNotation || metadata->decimalValue.isSignMinus()) return std::nullopt;
  if (metadata->decimalValue > Decimal(kLargestNumber)) return std::nullopt;
  return DateNumber{metadata->decimalValue, token.stringValue};
}

std::optional<std::int64_t> possibleDayOfMonth(const DateNumber& number) { return wholeBetween(number, 1, 31, 2); }

std::optional<std::int64_t> possibleMonth(const DateNumber& number) { return wholeBetween(number, 1, 12, 2); }

std::optional<std::int64_t> definiteYear(const DateNumber& number) {
  if (!isUnbrokenNumber(number.text)) return std::nullopt;
  return wholeBetween(number, 1000, 5000, 5);
}

std::optional<std::int64_t> possibleYear(const DateNumber& number) {
  if (const auto year = definiteYear(number)) return year;
  const auto shortYear = wholeBetween(number, 0, 99, 4);
  if (!shortYear || !isUnbrokenNumber(number.text)) return std::nullopt;
  constexpr std::int64_t kFirstYearOfLastCentury = 50;
  return *shortYear + (*shortYear >= kFirstYearOfLastCentury ? 1900 : 2000);
}

std::optional<std::int64_t> recentYear(const DateNumber& number) {
  constexpr std::size_t kDigits = 4;
  if (number.text.size() < kDigits || !isUnbrokenNumber(number.text)) return std::nullopt;
  return wholeBetween(number, 1901, 2101, kAnyLength);
}

std::optional<std::int64_t> possibleHourStamp(const DateNumber& number) {
  return wholeBetween(number, 0, 24, kAnyLength);
}

std::optional<std::int64_t> possibleMinuteStamp(const DateNumber& number) {
  return wholeBetween(number, 0, 59, kAnyLength);
}

std::optional<DateComponents> possibleMilitaryTimestamp(const DateNumber& number) {
  const auto value = wholeBetween(number, 0, 2400, kAnyLength);
  if (!value || !isUnbrokenNumber(number.text)) return std::nullopt;
  const std::int64_t hour = *value / 100;
  const std::int64_t minute = *value % 100;
  if (hour > 23 || minute > 59) return std::nullopt;
  if (hour < 10 && utf16Length(number.text) < 4) return std::nullopt;
  return timeOfDay(hour, minute);
}

std::optional<std::int64_t> definiteYearIn(const Token* token) {
  const auto number = token != nullptr ? dateNumberIn(*token) : std::nullopt;
  return number ? definiteYear(*number) : std::nullopt;
}

DateComponents timeOfDay(std::int64_t hour, std::int64_t minute) {
  DateComponents components;
  components.hour = hour;
  components.minute = minute;
  return components;
}

}  // namespace tavrine
