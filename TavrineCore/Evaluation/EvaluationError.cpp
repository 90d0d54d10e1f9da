#include "TavrineCore/Evaluation/EvaluationError.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tavrine {

namespace {

struct Row {
  EvaluationError error;
  TokenSubType subtype;
  std::string_view message;
};

using enum EvaluationError;
constexpr std::array<Row, 11> kErrors = {{
    {UnitMismatch, TokenSubType::unitMismatchError, "Error: incompatible units"},
    {UnsupportedUnitMultiplication, TokenSubType::unsupportedUnitMultiplicationError,
     "Error: unsupported exponent unit"},
    {UnsupportedRate, TokenSubType::unsupportedRateError, "Error: unsupported unit in rate"},
    {UnsupportedExponentOperation, TokenSubType::unsupportedExponentOperationError,
     "Error: unsupported exponent operation"},
    {Infinity, TokenSubType::infinityError, "Error: ∞"},
    {ImaginaryNumber, TokenSubType::imaginaryNumberError, "Error: imaginary number"},
    {DivideByZero, TokenSubType::divideByZeroError, "Error: divide by zero"},
    {BadDivision, TokenSubType::badDivisionError, "Error: division without divisor"},
    {ImpreciseResult, TokenSubType::impreciseResultError, "Error: try a smaller number"},
    {SilentError, TokenSubType::silentError, ""},
    {Other, TokenSubType::unknownError, ""},
}};

constexpr bool rowsFollowTheEnum() {
  for (std::size_t i = 0; i < kErrors.size(); ++i) {
    if (static_cast<std::size_t>(kErrors[i].error) != i) return false;
  }
  return true;
}
static_assert(rowsFollowTheEnum());

const Row& rowOf(EvaluationError error) { return kErrors[static_cast<std::size_t>(error)]; }

}  // namespace

TokenSubType tokenSubtype(EvaluationError error) { return rowOf(error).subtype; }

std::string_view stringValue(EvaluationError error) { return rowOf(error).message; }

std::optional<EvaluationError> evaluationErrorWithSubtype(TokenSubType subtype) {
  const auto row = std::find_if(kErrors.begin(), kErrors.end(), [&](const Row& r) { return r.subtype == subtype; });
  if (row == kErrors.end()) return std::nullopt;
  return row->error;
}

}  // namespace tavrine
