#pragma once

#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"

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
Token intoUnit(const ConverterOperands& operands);
Token intoUnitExpression(const ConverterOperands& operands);
Token intoUnitWithSpecifiedRate(const ConverterOperands& operands);

// RateConversions.cpp
Token intoRate(const ConverterOperands& operands);
Token intoFrequencyRate(const ConverterOperands& operands);

// UnitFormConversions.cpp
Token intoFeetAndInches(const ConverterOperands& operands);
Token intoPoundsAndOunces(const ConverterOperands& operands);
Token intoDMS(const ConverterOperands& operands);
Token intoMidi(const ConverterOperands& operands);
Token intoPitch(const ConverterOperands& operands);

// RoundingConversions.cpp
Token intoDpRoundedNumber(const ConverterOperands& operands);
Token rounding(const ConverterOperands& operands);
Token roundingUp(const ConverterOperands& operands);
Token roundingDown(const ConverterOperands& operands);

}  // namespace tavrine::conversions
