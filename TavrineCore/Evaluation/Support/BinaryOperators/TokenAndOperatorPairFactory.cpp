#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"

#include <array>
#include <cstdint>
#include <utility>

#include "TavrineCore/Evaluation/Support/BinaryOperators/Pairs.h"
#include "TavrineCore/Evaluation/Support/RuleObserver.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

namespace {

using enum TokenType;
constexpr std::nullopt_t anything = std::nullopt;

constexpr auto kPairClasses = std::to_array<BinaryOperandPair>({
    {"DecimalPair", number, number, pairs::bothCarryNumbers, pairs::decimalPair},
    {"PercentagesPair", percentage, percentage, nullptr, pairs::percentagesPair},
    {"UnitExpressionsPair", unitExpression, unitExpression, nullptr, pairs::unitExpressionsPair},
    {"RatesPair", rate, rate, nullptr, pairs::ratesPair},
    {"DatestampsPair", datestamp, datestamp, nullptr, pairs::datestampsPair},
    {"TimespansPair", timespan, timespan, nullptr, pairs::timespansPair},
    {"TimestampsPair", unixTimestamp, unixTimestamp, nullptr, pairs::timestampsPair},
    {"MultipliersPair", multiplier, multiplier, nullptr, pairs::multipliersPair},
    {"LaptimesPair", laptime, laptime, nullptr, pairs::laptimesPair},
    {"FrametimesPair", frametime, frametime, nullptr, pairs::frametimesPair},
    {"BooleanPair", boolean, boolean, nullptr, pairs::booleanPair},
    {"DMSPair", degreesMinutesSeconds, degreesMinutesSeconds, nullptr, pairs::dmsPair},
    {"HexPair", hexadecimalNumber, hexadecimalNumber, nullptr, pairs::hexPair},
    {"BinaryPair", binaryNumber, binaryNumber, nullptr, pairs::binaryPair},
    {"OctalPair", octalNumber, octalNumber, nullptr, pairs::octalPair},
    {"LiteralPair", literal, literal, nullptr, pairs::literalPair},
    {"DecimalAndBinaryPair", number, binaryNumber, nullptr, pairs::decimalAndBinaryPair},
    {"DecimalAndOctalPair", number, octalNumber, nullptr, pairs::decimalAndOctalPair},
    {"DecimalAndHexPair", number, hexadecimalNumber, nullptr, pairs::decimalAndHexPair},
    {"BinaryAndHexPair", binaryNumber, hexadecimalNumber, nullptr, pairs::differentBasesPair},
    {"BinaryAndOctalPair", binaryNumber, octalNumber, nullptr, pairs::differentBasesPair},
    {"HexAndOctalPair", octalNumber, hexadecimalNumber, nullptr, pairs::differentBasesPair},
    {"DecimalAndUnitExpressionPair", number, unitExpression, nullptr, pairs::decimalAndUnitExpressionPair},
    {"DecimalAndRatePair", number, rate, nullptr, pairs::decimalAndRatePair},
    {"DecimalAndPercentagePair", number, percentage, nullptr, pairs::decimalAndPercentagePair},
    {"DecimalAndTimestampPair", number, unixTimestamp, nullptr, pairs::decimalAndTimestampPair},
    {"DecimalAndTimespanPair", number, timespan, nullptr, pairs::decimalAndTimespanPair},
    {"DecimalAndMultiplierPair", number, multiplier, nullptr, pairs::decimalAndMultiplierPair},
    {"DecimalAndLaptimePair", number, laptime, nullptr, pairs::decimalAndLaptimePair},
    {"DecimalAndFrametimePair", number, frametime, nullptr, pairs::decimalAndFrametimePair},
    {"DecimalAndFractionPair", number, fraction, nullptr, pairs::decimalAndFractionPair},
    {"DecimalAndSalesTaxPair", number, salesTax, pairs::salesTaxIsSecond, pairs::decimalAndSalesTaxPair},
    {"DecimalAndBooleanPair", number, boolean, nullptr, pairs::decimalAndBooleanPair},
    {"UnitExpressionAndRatePair", unitExpression, rate, nullptr, pairs::unitExpressionAndRatePair},
    {"UnitExpressionAndPercentagePair", unitExpression, percentage, nullptr, pairs::unitExpressionAndPercentagePair},
    {"UnitExpressionAndTimespanPair", unitExpression, timespan, nullptr, pairs::unitExpressionAndTimespanPair},
    {"UnitExpressionAndLaptimesPair", unitExpression, laptime, nullptr, pairs::durationAndLaptimePair},
    {"UnitExpressionAndFrametimesPair", unitExpression, frametime, nullptr, pairs::unitExpressionAndFrametimesPair},
    {"UnitExpressionAndTimestampPair", unitExpression, unixTimestamp, nullptr, pairs::unitExpressionAndTimestampPair},
    {"UnitExpressionAndSalesTaxPair", unitExpression, salesTax, nullptr, pairs::unitExpressionAndSalesTaxPair},
    {"RateAndPercentagePair", rate, percentage, nullptr, pairs::rateAndPercentagePair},
    {"RateAndTimespanPair", rate, timespan, nullptr, pairs::rateAndTimespanPair},
    {"RateAndDatespanPair", rate, datespan, nullptr, pairs::rateAndDatespanPair},
    {"RateAndLaptimePair", rate, laptime, nullptr, pairs::rateAndLaptimePair},
    {"FrametimeAndLaptimePair", frametime, laptime, nullptr, pairs::durationAndFrametimePair},
    {"TimespanAndTimestampPair", unixTimestamp, timespan, nullptr, pairs::timespanAndTimestampPair},
    {"TimespanAndLaptimePair", timespan, laptime, nullptr, pairs::durationAndLaptimePair},
    {"TimespanAndFrametimePair", timespan, frametime, nullptr, pairs::durationAndFrametimePair},
    {"TimespanAndPercentagePair", timespan, percentage, nullptr, pairs::timespanAndPercentagePair},
    {"DatestampAndTimespanPair", datestamp, timespan, nullptr, pairs::datestampAndTimespanPair},
    {"DatestampAndLaptimePair", datestamp, laptime, nullptr, pairs::datestampAndLaptimePair},
    {"DatestampAndFrametimePair", datestamp, frametime, nullptr, pairs::datestampAndFrametimePair},
    {"DatestampAndUnitExpressionPair", datestamp, unitExpression, nullptr, pairs::datestampAndUnitExpressionPair},
    {"iso8601Pair", iso8601, iso8601, nullptr, pairs::iso8601Pair},
    {"iso8601AndUnitExpressionPair", iso8601, unitExpression, nullptr, pairs::iso8601AndUnitExpressionPair},
    {"iso8601AndTimespanPair", iso8601, timespan, nullptr, pairs::iso8601AndTimespanPair},
    {"DecimalAndUnitPair", number, unit, nullptr, pairs::decimalAndUnitPair},
    {"UnitExpressionAndUnitPair", unitExpression, unit, nullptr, pairs::unitExpressionAndUnitPair},
    {"RateAndUnitPair", rate, unit, nullptr, pairs::rateAndUnitPair},
    // What takes anything beside it. The order says who wins where two of these meet: a sign left over is resolved
    // first, nothing gives way to everything, and an error counts more than an answer that is still to come.
    {"OperatorAndAnythingPair", operator_, anything, nullptr, pairs::operatorAndAnythingPair},
    {"ListAndAnything", list, anything, nullptr, pairs::listAndAnything},
    {"NothingAndAnythingPair", unidentified, anything, nullptr, pairs::nothingAndAnythingPair},
    {"ErrorAndAnything", error, anything, nullptr, pairs::errorAndAnything},
    {"PendingAndAnything", pending, anything, nullptr, pairs::pendingAndAnything},
    {"FailedAndAnything", failed, anything, nullptr, pairs::failedAndAnything},
});
static_assert(kPairClasses.size() == 65);

constexpr BinaryOperandPair kUnhandledPair{"UnhandledPair", unidentified, anything, nullptr, pairs::unhandledPair};

/// For each two types the first pair that accepts them; `kPairClasses.size()` where none does.
using Prefilter = std::array<std::array<std::uint8_t, kTokenTypeCount>, kTokenTypeCount>;

Prefilter makePrefilter() {
  Prefilter table;
  for (auto& row : table) row.fill(kPairClasses.size());
  for (std::size_t i = kPairClasses.size(); i-- > 0;) {
    const BinaryOperandPair& pair = kPairClasses[i];
    const auto row = static_cast<std::uint8_t>(i);
    const auto first = static_cast<std::size_t>(pair.first);
    if (pair.second) {
      const auto second = static_cast<std::size_t>(*pair.second);
      table[first][second] = table[second][first] = row;
      continue;
    }
    for (std::size_t other = 0; other < kTokenTypeCount; ++other) table[first][other] = table[other][first] = row;
  }
  return table;
}

constexpr TokenTypeSet kTypesWithValue{percentage, unitExpression, rate, multiplier};

/// Whether the value left the range of numbers. A plain number that did so reads as the error by itself.
bool hasLostItsValue(const Token& token) {
  if (!kTypesWithValue.contains(token.type)) return false;
  const std::optional<Decimal> value = token.ownDecimalValue();
  return value && value->isNaN();
}

}  // namespace

std::span<const BinaryOperandPair> TokenAndOperatorPairFactory::pairClasses() { return kPairClasses; }

const BinaryOperandPair& TokenAndOperatorPairFactory::pairFor(const PairOperands& operands) {
  static const Prefilter prefilter = makePrefilter();
  const auto left = static_cast<std::size_t>(operands.firstToken.type);
  const auto right = static_cast<std::size_t>(operands.secondToken.type);
  for (std::size_t i = prefilter[left][right]; i < kPairClasses.size(); ++i) {
    if (kPairClasses[i].accepts(operands)) return kPairClasses[i];
  }
  return kUnhandledPair;
}

Token evaluatedPair(const Token& first, const Token& second, const Token& operator_) {
  const PairOperands operands{first, second, operator_};
  const BinaryOperandPair& pair = TokenAndOperatorPairFactory::pairFor(operands);
  noteRule(pair.name);
  std::optional<Token> result = pair.evaluate(operands);
  if (!result) return Token();
  return hasLostItsValue(*result) ? errorToken(EvaluationError::Infinity) : std::move(*result);
}

}  // namespace tavrine
