#include "TavrineCore/Evaluation/Support/WordFunctions/ChangeArguments.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitConversion.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"
#include "TavrineCore/Parsing/Primitives/UnitType.h"

namespace tavrine {

namespace {

struct Repetition {
  std::string_view word;
  int count;
  UnitIdentifier unit;
};

constexpr auto kRepetitions = std::to_array<Repetition>({
    {"hourly", 1, UnitIdentifier::hours},
    {"daily", 1, UnitIdentifier::days},
    {"weekly", 1, UnitIdentifier::weeks},
    {"fortnightly", 2, UnitIdentifier::weeks},
    {"monthly", 1, UnitIdentifier::months},
    {"quarterly", 3, UnitIdentifier::months},
    {"semiannually", 6, UnitIdentifier::months},
    {"biannually", 6, UnitIdentifier::months},
    {"yearly", 1, UnitIdentifier::years},
    {"annually", 1, UnitIdentifier::years},
    {"annual", 1, UnitIdentifier::years},
});

bool isWord(const Token& token) { return token.is(TokenType::literal); }

std::optional<UnitExpression> intervalSaidBy(const Token& token) {
  if (!isWord(token)) return std::nullopt;
  const std::string word = lowercased(token.stringValue);
  const auto* found = std::find_if(kRepetitions.begin(), kRepetitions.end(),
                                   [&word](const Repetition& repetition) { return repetition.word == word; });
  if (found == kRepetitions.end()) return std::nullopt;
  return UnitExpression{Decimal(found->count), unitOf(found->unit)};
}

}  // namespace

bool isPercentageLike(const Token& token) {
  return token.is(TokenType::percentage) || token.is(TokenType::fraction) || token.percentageRateValue().has_value();
}

std::optional<UnitExpression> durationOf(const Token& token) {
  if (isWord(token)) return intervalSaidBy(token);
  std::optional<UnitExpression> duration = token.unitExpressionValue();
  if (token.is(TokenType::unit)) {
    if (const std::optional<TCUnit> unit = token.unitValue()) duration = UnitExpression{Decimal(1), *unit};
  }
  if (!duration || duration->unit.unitType() != UnitType::duration) return std::nullopt;
  return duration;
}

bool isIntervalInWords(const Token& token) { return token.is(TokenType::unit) || isWord(token); }

std::optional<Decimal> secondsOf(const UnitExpression& duration) {
  const std::optional<UnitExpression> seconds = convertedTo(duration, UnitIdentifier::seconds);
  return seconds ? std::optional(seconds->value) : std::nullopt;
}

std::optional<Decimal> valueInUnitOf(const Token& model, const Token& token) {
  const std::optional<UnitExpression> expression = token.unitExpressionValue();
  const std::optional<UnitExpression> modelExpression = model.unitExpressionValue();
  if (!expression || !modelExpression) return decimalOf(token);
  const std::optional<UnitExpression> converted = convertedTo(*expression, modelExpression->unit);
  return converted ? std::optional(converted->value) : std::nullopt;
}

}  // namespace tavrine
