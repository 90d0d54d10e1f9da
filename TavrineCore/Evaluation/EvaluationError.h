#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "TavrineCore/Parsing/Tokens/TokenType.h"

namespace tavrine {

/// Why an evaluation has no value. An error travels as a token of type `error` whose subtype names the case, and
/// comes out as a result of its own, so that it flows through an expression like any other operand.
enum class EvaluationError : std::uint8_t {
  UnitMismatch,                   ///< operands or a conversion between units of different kinds
  UnsupportedUnitMultiplication,  ///< a product of units that has no unit
  UnsupportedRate,                ///< a rate of units that have none
  UnsupportedExponentOperation,
  Infinity,         ///< a value beyond what a decimal can hold
  ImaginaryNumber,  ///< such as an even root of a negative number
  DivideByZero,
  BadDivision,      ///< a division sign with nothing to divide
  ImpreciseResult,  ///< a modulus of a number with more digits than can be trusted
  SilentError,      ///< nothing to evaluate; shows nothing
  Other,            ///< an operation that has no meaning; shows nothing
};

/// The subtype of the `error` token that carries the error.
TokenSubType tokenSubtype(EvaluationError error);

/// What the user reads: "Error: divide by zero"; empty for `SilentError` and `Other`.
std::string_view stringValue(EvaluationError error);

/// The case whose `error` token has this subtype, if there is one.
std::optional<EvaluationError> evaluationErrorWithSubtype(TokenSubType subtype);

}  // namespace tavrine
