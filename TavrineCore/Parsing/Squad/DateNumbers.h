#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "Foundation/DateComponents.h"
#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

// Which part of a date a number can be.

namespace tavrine {

/// A number of a line with its text: "05" and "5" are worth the same and written differently.
struct DateNumber {
  Decimal value;
  std::string_view text;
};

/// The number that a token is. Absent for other tokens, for "5k" and for what isn't written in digits and separators.
/// Views the text of the token.
std::optional<DateNumber> dateNumberIn(const Token& token);

/// 1 to 31 in at most two digits.
std::optional<std::int64_t> possibleDayOfMonth(const DateNumber& number);
/// 1 to 12 in at most two digits.
std::optional<std::int64_t> possibleMonth(const DateNumber& number);
/// 1000 to 5000, not grouped.
std::optional<std::int64_t> definiteYear(const DateNumber& number);
/// A definite year, or one of two digits: "49" is 2049, "50" is 1950.
std::optional<std::int64_t> possibleYear(const DateNumber& number);
/// 1901 to 2101.
std::optional<std::int64_t> recentYear(const DateNumber& number);
/// 0 to 24.
std::optional<std::int64_t> possibleHourStamp(const DateNumber& number);
/// 0 to 59.
std::optional<std::int64_t> possibleMinuteStamp(const DateNumber& number);
/// "0905", "1530": hour and minute in one number. Hours below 10 need their zero.
std::optional<DateComponents> possibleMilitaryTimestamp(const DateNumber& number);

/// The definite year that a token is.
std::optional<std::int64_t> definiteYearIn(const Token* token);

/// The components of a time of day.
DateComponents timeOfDay(std::int64_t hour, std::int64_t minute);

}  // namespace tavrine
