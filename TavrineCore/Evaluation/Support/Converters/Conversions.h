#pragma once

#include <optional>

#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"
#include "TavrineCore/Parsing/Primitives/RateType.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

/// The conversions by family; their order stands in TokenConverterFactory.cpp.
namespace tavrine::conversions {

// NumberConversions.cpp
Token intoNumber(const ConverterOperands& operands);
Token intoFraction(const ConverterOperands& operands);
Token intoScientificNotation(const ConverterOperands& operands);
Token intoPercent(const ConverterOperands& operands);
Token applyingPercent(const ConverterOperands& operands);
Token intoMultiplier(const ConverterOperands& operands);
Token intoBinary(const ConverterOperands& operands);
Token intoOctal(const ConverterOperands& operands);
Token intoHex(const ConverterOperands& operands);

// UnitConversions.cpp
/// An evaluated token in the unit; a token without a unit is taken to be in it.
Token intoUnit(const Token& operand, const TCUnit& toUnit);
Token intoUnit(const ConverterOperands& operands);
Token intoUnitExpression(const ConverterOperands& operands);
Token intoUnitWithSpecifiedRate(const ConverterOperands& operands);

// RateConversions.cpp
/// The quantity in the unit, or in a rate of it ("60 km/h in miles"); nothing where it is of another kind.
std::optional<Token> convertedQuantity(const UnitExpression& expression, const TCUnit& toUnit);
Token rateIntoUnit(const RateType& rate, const TCUnit& toUnit);
Token intoRate(const ConverterOperands& operands);
Token intoFrequencyRate(const ConverterOperands& operands);

// UnitFormConversions.cpp
Token intoFeetAndInches(const ConverterOperands& operands);
Token intoPoundsAndOunces(const ConverterOperands& operands);
Token intoDMS(const ConverterOperands& operands);
Token intoMidi(const ConverterOperands& operands);
Token intoPitch(const ConverterOperands& operands);

// DurationConversions.cpp
Token timespanIntoUnit(const ConverterOperands& operands);
Token intoTimespan(const ConverterOperands& operands);
Token intoYearsAndMonths(const ConverterOperands& operands);
Token intoMonthsAndWeeks(const ConverterOperands& operands);
Token intoMonthsAndDays(const ConverterOperands& operands);
Token intoWeeksAndDays(const ConverterOperands& operands);
Token intoDaysAndHours(const ConverterOperands& operands);
Token intoHoursAndMinutes(const ConverterOperands& operands);
Token intoLaptime(const ConverterOperands& operands);

// DateConversions.cpp
/// The moment that many seconds after the start of 1970, in the current zone; an error beyond the calendar.
Token dateOfUnixTime(const Decimal& seconds);
Token intoTimestamp(const ConverterOperands& operands);
Token intoDate(const ConverterOperands& operands);
Token intoIso8601(const ConverterOperands& operands);
Token intoDateFormatTemplate(const ConverterOperands& operands);
Token intoTimezone(const ConverterOperands& operands);

// RoundingConversions.cpp
Token intoDpRoundedNumber(const ConverterOperands& operands);
Token rounding(const ConverterOperands& operands);
Token roundingUp(const ConverterOperands& operands);
Token roundingDown(const ConverterOperands& operands);

}  // namespace tavrine::conversions
