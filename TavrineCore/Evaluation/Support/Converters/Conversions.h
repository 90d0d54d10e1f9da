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

// RoundingConversions.cpp
Token intoDpRoundedNumber(const ConverterOperands& operands);
Token rounding(const ConverterOperands& operands);
Token roundingUp(const ConverterOperands& operands);
Token roundingDown(const ConverterOperands& operands);

}  // namespace tavrine::conversions
