#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Primitives/UnitRelations.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::processing {

namespace {

constexpr TokenTypeSet kBeginConverterChains{TokenType::unitExpression, TokenType::converter, TokenType::percentage,
                                             TokenType::functionExpression};

bool isIn(const Token* parent, TokenType type) { return parent != nullptr && parent->is(type); }

bool isOperation(const EditableTokenList& list, std::optional<std::size_t> index, TokenSubType operation) {
  return list.is(index, TokenType::operator_, operation);
}

bool isUnit(const EditableTokenList& list, std::optional<std::size_t> index) {
  return list.is(index, TokenType::unit) && list[*index].metadataAs<UnitTokenMetadata>() != nullptr;
}

/// "(3 + 4) km", "km (3 + 4)" → the bracket converted into the unit; "(3 + 4) %" → a percentage.
std::size_t convertBracketBesideUnit(EditableTokenList& list, std::size_t index, const Token*) {
  const auto after = list.next(index);
  const auto before = list.previous(index);
  if (isUnit(list, after)) {
    Token converter = TokenFactory::converterToUnitWith(list[*after].metadata);
    return list.replace(index, *after, subexpressionOver({list[index], std::move(converter)}));
  }
  if (isUnit(list, before)) {
    Token converter = TokenFactory::converterToUnitWith(list[*before].metadata);
    return list.replace(*before, index, subexpressionOver({list[index], std::move(converter)}));
  }
  if (list.is(after, TokenType::percentageSymbol)) {
    return list.replace(index, *after, subexpressionOver({list[index], TokenFactory::converterThatAppliesPercent()}));
  }
  return index;
}

/// "5 km miles" converts; "5 km km" says the same twice.
std::size_t convertIntoBareUnit(EditableTokenList& list, std::size_t index, const Token*) {
  if (!isUnit(list, index)) return index;
  const Token* before = list.tokenAt(list.previous(index));
  if (before == nullptr || !TokenTypeSet::implicitConversionTypes.contains(before->type)) return index;
  if (before->unitValue() == list[index].unitValue()) return list.remove(index, index);
  return list.replace(index, index, TokenFactory::converterToUnitWith(list[index].metadata));
}

/// Behind degrees the marks for feet and inches, and minutes and seconds of time, divide the degree: 45° 30' is 45.5°.
UnitIdentifier partOfDegree(UnitIdentifier identifier) {
  switch (identifier) {
    case UnitIdentifier::feet:
    case UnitIdentifier::minutes:
      return UnitIdentifier::arcMinutes;
    case UnitIdentifier::inches:
    case UnitIdentifier::seconds:
      return UnitIdentifier::arcSeconds;
    default:
      return identifier;
  }
}

Token amountIn(const Token& amount, bool isOfDegrees, bool isNegative) {
  const auto* metadata = amount.metadataAs<UnitExpressionTokenMetadata>();
  if (metadata == nullptr) return amount;
  const TCUnit& unit = metadata->unitMetaData.underlyingTCUnit;
  const UnitIdentifier part = partOfDegree(unit.identifier());
  const bool isRenamed = isOfDegrees && part != unit.identifier();
  if (!isRenamed && !isNegative) return amount;
  const Decimal& value = metadata->numericValue.decimalValue;
  return TokenFactory::unitExpressionWith(isNegative ? value.negated() : value, metadata->numericValue.scalar,
                                          isRenamed ? unitOf(part) : unit, metadata->prefersCompoundFormatting);
}

/// "5 ft 3 in" → (3 in + 5 ft). A sign that was taken off the first part is one before the whole: "-5 ft 3 in" is
/// (-3 in + -5 ft), and behind an amount it subtracts.
std::size_t addUpCompoundUnit(EditableTokenList& list, std::size_t index, const Token* parent) {
  const TokenListRef parts = list[index].subtokens;
  if (isIn(parent, TokenType::wordFunction) || isIn(parent, TokenType::timespan) || !parts) return index;
  const Token* first = parts->first();
  const bool isNegative = first != nullptr && first->is(TokenType::operator_, TokenSubType::subtractionOperator);
  const Token* before = isNegative ? list.tokenAt(list.previous(index, TokenTypeSet::randomWords)) : nullptr;
  const bool isSubtracted = before != nullptr && (before->hasDecimalValue() || before->is(TokenType::subexpression));
  const Token* largest = parts->firstTokenOfType(TokenType::unitExpression);
  const std::optional<TCUnit> largestUnit = largest != nullptr ? largest->unitValue() : std::nullopt;
  const bool isOfDegrees = largestUnit && largestUnit->identifier() == UnitIdentifier::degrees;
  std::vector<Token> sum;
  for (std::size_t i = parts->count(); i-- > 0;) {
    const Token& part = (*parts)[i];
    if (!part.is(TokenType::unitExpression)) continue;
    if (!sum.empty()) sum.push_back(operatorToken(TokenSubType::additionOperator, "+"));
    sum.push_back(amountIn(part, isOfDegrees, isNegative && !isSubtracted));
  }
  Token whole = subexpressionOver(std::move(sum));
  if (!isSubtracted) return list.replace(index, index, std::move(whole));
  return list.replace(index, index, {operatorToken(TokenSubType::subtractionOperator, "-"), std::move(whole)});
}

std::size_t removeOverSpecifiedUnit(EditableTokenList& list, std::size_t index, const Token*) {
  if (!list.is(list.previous(index), TokenType::unitExpression) &&
      !list.is(list.next(index), TokenType::unitExpression)) {
    return index;
  }
  return list.remove(index, index);
}

/// What two unit expressions side by side are: "2 hours 30 minutes", where no parser pass has joined them, is a sum,
/// "100 km 2 hours" a quotient. Nothing where their units have nothing to do with each other.
std::optional<Token> operatorBetween(const TCUnit& left, const TCUnit& right) {
  if (haveEqualBaseUnits(left, right)) return operatorToken(TokenSubType::additionOperator, "+");
  if (UnitRelations::divisionUnitFor(left, right)) return operatorToken(TokenSubType::divisionOperator, "/");
  return std::nullopt;
}

/// "5 ft and 3 in" is one length, the second part being what is left of a foot. "3 km and 4 km" are two.
bool isRestOf(const UnitExpression& whole, const UnitExpression& rest) {
  if (whole.unit.unitType() == UnitType::currency || !haveEqualBaseUnits(whole.unit, rest.unit)) return false;
  return rest.unit.coefficient() < whole.unit.coefficient() &&
         rest.value.magnitude() * rest.unit.coefficient() < whole.unit.coefficient();
}

bool isAndBetween(const EditableTokenList& list, std::size_t left, std::size_t right) {
  for (std::size_t i = left + 1; i < right; ++i) {
    if (list.is(i, TokenType::wordComment, TokenSubType::conjunctionWordAnd)) return true;
  }
  return false;
}

std::size_t joinUnitExpressions(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (isIn(parent, TokenType::compoundUnitExpression) || isIn(parent, TokenType::wordFunction) ||
      isIn(parent, TokenType::rate)) {
    return index;
  }
  const auto before = list.previous(index, TokenTypeSet::randomWords);
  if (!list.is(before, TokenType::unitExpression)) return index;
  const std::optional<UnitExpression> left = list[*before].unitExpressionValue();
  const std::optional<UnitExpression> right = list[index].unitExpressionValue();
  if (!left || !right || (isAndBetween(list, *before, index) && !isRestOf(*left, *right))) return index;
  std::optional<Token> operation = operatorBetween(left->unit, right->unit);
  if (!operation) return index;
  return list.insertAfter(*before, *std::move(operation)) + 1;
}

/// "20 km / 4 hours in mph" → "(20 km / 4 hours) in mph".
std::size_t bracketDivisionBeforeRateConverter(EditableTokenList& list, std::size_t index, const Token*) {
  if (list[index].subType != TokenSubType::rateConverter) return index;
  const auto divisor = list.previous(index);
  if (!list.is(divisor, TokenType::unitExpression)) return index;
  const auto division = list.previous(*divisor);
  if (!isOperation(list, division, TokenSubType::divisionOperator)) return index;
  const auto dividend = list.previous(*division);
  if (!list.is(dividend, TokenType::unitExpression)) return index;
  return list.wrap(*dividend, *divisor);
}

/// The token, if it is a rate, or the rate that a bracket holds and nothing else; null otherwise.
const Token* rateIn(const Token& token) {
  if (token.is(TokenType::rate)) return &token;
  if (!token.is(TokenType::subexpression) || !token.subtokens) return nullptr;
  const Token* only = token.subtokens->onlyMeaningfulToken();
  return only != nullptr && only->is(TokenType::rate) ? only : nullptr;
}

bool isMultiplied(const EditableTokenList& list, std::size_t index) {
  return isOperation(list, list.previous(index), TokenSubType::multiplicationOperator);
}

bool areOfOneKind(const std::optional<TCUnit>& left, const std::optional<TCUnit>& right) {
  return left && right && haveEqualBaseUnits(*left, *right);
}

/// Whether the quotient is something by itself that the multiplicand goes with: "8 hours * $80 / 4 hours" is paid by
/// the hour, in "10 kg * 5 m / 2 m" the lengths are a number, and "60 W * 10 kg / (2 kg / h)" takes 5 hours. Not in
/// "2 hours * $40 / ($20 / hour)": hours by hours have no unit.
bool isFactorOf(const Token& multiplicand, const Token& dividend, const Token& divisor) {
  const std::optional<TCUnit> unit = multiplicand.unitValue();
  if (const Token* rate = rateIn(divisor)) {
    const std::optional<UnitRate> unitRate = rate->unitRateValue();
    return !unitRate || !areOfOneKind(unit, unitRate->perUnit);
  }
  if (!divisor.is(TokenType::unitExpression)) return false;
  const std::optional<TCUnit> below = divisor.unitValue();
  return areOfOneKind(unit, below) || areOfOneKind(dividend.unitValue(), below);
}

/// "8 hours * $80 / 4 hours" → "8 hours * ($80 / 4 hours)".
std::size_t bracketUnitDivision(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (isIn(parent, TokenType::wordFunction) || list[index].subType != TokenSubType::divisionOperator) return index;
  const auto dividend = list.previous(index);
  const auto divisor = list.next(index);
  if (!list.is(dividend, TokenType::unitExpression) || !divisor || !isMultiplied(list, *dividend)) return index;

  const auto multiplicand = list.previous(*list.previous(*dividend));
  if (!list.is(multiplicand, TokenType::unitExpression)) return index;
  return isFactorOf(list[*multiplicand], list[*dividend], list[*divisor]) ? list.wrap(*dividend, *divisor) : index;
}

}  // namespace

void addExplicitConverters(EditableTokenList& list, const TokenListProfile& profile, bool seeksFutureDate) {
  forEachToken(list, TokenType::subexpression, convertBracketBesideUnit);
  if (profile.types.contains(TokenType::unit) && profile.types.containsTypesFrom(kBeginConverterChains)) {
    forEachToken(list, TokenType::unit, convertIntoBareUnit, TokenType::unitExpression);
  }
  if (!seeksFutureDate) return;
  const Token* last = list->getLastToken(/*ignoringWhitespace=*/true);
  if (last == nullptr || !last->is(TokenType::unitExpression)) return;
  const std::optional<TCUnit> unit = last->unitValue();
  if (!unit || unit->unitType() != UnitType::duration) return;
  list.edit().append(TokenFactory::converterToDate());
}

void processCompoundUnits(EditableTokenList& list) {
  forEachToken(list, TokenType::compoundUnitExpression, addUpCompoundUnit);
}

void handleOverSpecifiedUnits(EditableTokenList& list) {
  forEachToken(list, TokenType::unit, removeOverSpecifiedUnit, {TokenType::converter, TokenType::unitExpression});
}

void insertExplicitOperatorsBetweenUnitExpressions(EditableTokenList& list) {
  forEachToken(list, TokenTypeSet::unitExpressionSet, joinUnitExpressions);
}

void convertUnitExpressionDivisionToRateBeforeIntoRateConverters(EditableTokenList& list,
                                                                 const TokenListProfile& profile) {
  if (!profile.subTypesAnywhere.contains(TokenSubType::rateConverter)) return;
  forEachToken(list, TokenType::converter, bracketDivisionBeforeRateConverter);
}

void bracketRatesAndRateDivisionsAfterMultiplication(EditableTokenList& list, const TokenListProfile& profile) {
  if (!profile.types.contains(TokenType::unitExpression) ||
      !profile.subTypes.contains(TokenSubType::divisionOperator) ||
      !profile.subTypes.contains(TokenSubType::multiplicationOperator)) {
    return;
  }
  forEachToken(list, TokenType::operator_, bracketUnitDivision);
}

}  // namespace tavrine::processing
