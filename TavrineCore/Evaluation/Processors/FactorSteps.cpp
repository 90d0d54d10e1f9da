#include <optional>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

namespace tavrine::processing {

namespace {

constexpr TokenSubTypeSet kConstants{TokenSubType::pi, TokenSubType::phi, TokenSubType::tau};
constexpr TokenTypeSet kSubexpressionsAndFriends{TokenType::subexpression, TokenType::functionExpression};
constexpr TokenTypeSet kNeedExplicitMultiplication{TokenType::subexpression,      TokenType::number,
                                                   TokenType::percentage,         TokenType::fraction,
                                                   TokenType::functionExpression, TokenType::unitExpression};

Token times() { return operatorToken(TokenSubType::multiplicationOperator, "*"); }

bool isIn(const Token* parent, TokenType type) { return parent != nullptr && parent->is(type); }

bool isDivision(const EditableTokenList& list, std::optional<std::size_t> index) {
  return list.is(index, TokenType::operator_, TokenSubType::divisionOperator);
}

/// Multiplies with the numbers on both sides.
std::size_t multiplyWithNumbersAround(EditableTokenList& list, std::size_t index) {
  if (list.is(list.next(index), TokenType::number)) list.insertAfter(index, times());
  const auto before = list.previous(index);
  return list.is(before, TokenType::number) ? list.insertAfter(*before, times()) + 1 : index;
}

/// "2 pi" → "2 * pi".
std::size_t processConstant(EditableTokenList& list, std::size_t index, const Token*) {
  return kConstants.contains(list[index].subType) ? multiplyWithNumbersAround(list, index) : index;
}

std::size_t processConstantInUnitExpression(EditableTokenList& list, std::size_t index, const Token*) {
  const TokenListRef& inside = list[index].subtokens;
  const Token* number = inside ? inside->firstTokenOfType(TokenType::number) : nullptr;
  return number != nullptr && kConstants.contains(number->subType) ? multiplyWithNumbersAround(list, index) : index;
}

std::size_t replaceFraction(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (isIn(parent, TokenType::wordFunction)) return index;
  Token number = TokenFactory::numberWith(list[index].decimalValue());
  number.range = list[index].range;
  return list.replace(index, index, std::move(number));
}

/// "1/2 km": the unit expression behind the stroke opens, and the fraction becomes its number: "(1/2) km".
std::size_t bindFractionBeforeUnit(EditableTokenList& list, std::size_t numerator, std::size_t expression) {
  const TokenListRef inside = list[expression].subtokens;
  if (!inside || inside->isEmpty() || !(*inside)[0].is(TokenType::number)) return numerator + 1;
  list.replace(expression, expression, std::vector<Token>(inside->begin(), inside->end()));
  return list.wrap(numerator, expression);
}

std::size_t applyFractionTransformation(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (isIn(parent, TokenType::unitExpression) || index == 0 || index + 1 >= list.count()) return index;
  if (!isDivision(list, index) || list[index].stringValue != "/" || !list[index - 1].is(TokenType::number)) {
    return index;
  }
  const std::size_t numerator = index - 1;
  const std::size_t denominator = index + 1;
  if (list[denominator].is(TokenType::unitExpression)) return bindFractionBeforeUnit(list, numerator, denominator);
  if (!list[denominator].is(TokenType::number)) return index;

  // "3 1/2" is a sum.
  if (const auto whole = list.previous(numerator); list.is(whole, TokenType::number)) {
    list.insertAfter(*whole, operatorToken(TokenSubType::additionOperator, "+"));
    return list.wrap(*whole, denominator + 1);
  }
  if (list.is(list.next(denominator), TokenType::unitExpression)) return list.wrap(numerator, denominator);
  return index;
}

/// "3/4 / (100%)" asks for the ratio in percent: the division by the whole becomes a conversion.
std::size_t addImplicitAsPercentageConverter(EditableTokenList& list, std::size_t index, const Token*) {
  const TokenListRef& inside = list[index].subtokens;
  if (!inside) return index;
  const Token* whole = nullptr;
  for (const Token& token : *inside) {
    if (token.is(TokenType::whitespace) || token.is(TokenType::bracket)) continue;
    if (whole != nullptr) return index;
    whole = &token;
  }
  if (whole == nullptr || !whole->is(TokenType::percentage) || whole->decimalValue() != Decimal(1)) return index;
  const auto division = list.previous(index);
  if (!isDivision(list, division) || !list.previous(*division)) return index;
  return list.replace(*division, index, TokenFactory::converterToPercentage());
}

/// "(1 + 2)(3 + 4)", "2(3)", "(3)4" multiply. Brackets within a list belong to the list.
std::size_t multiplyWithNeighbours(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (isIn(parent, TokenType::list)) return index;
  if (const Token* after = list.tokenAt(list.next(index));
      after != nullptr && kNeedExplicitMultiplication.contains(after->type)) {
    list.insertAfter(index, times());
  }
  const auto before = list.previous(index);
  if (!before || !kNeedExplicitMultiplication.contains(list[*before].type)) return index;
  return list.insertAfter(*before, times()) + 1;
}

/// "√9", "√(9 + 16)" → a call of sqrt. Within a call that has been read already the sign means nothing more.
std::size_t processSqrt(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (list[index].stringValue != "√") return index;
  if (isIn(parent, TokenType::functionExpression)) return list.replace(index, index, Token());
  const auto operand = list.next(index);
  if (!operand) return index;
  const Token& token = list[*operand];
  if (!token.is(TokenType::number) && !token.is(TokenType::subexpression)) return index;
  const Token body = token.is(TokenType::number) ? subexpressionOver({token}) : token;
  list.replace(index, *operand, TokenFactory::functionExpressionWith("sqrt", body));
  // The steps for brackets have passed already.
  return multiplyWithNeighbours(list, index, parent);
}

std::size_t multiplyFunctionWithNumber(EditableTokenList& list, std::size_t index, const Token*) {
  if (index == 0 || !list[index - 1].is(TokenType::number)) return index;
  list.insertAfter(index - 1, times());
  return index;
}

}  // namespace

void processConstants(EditableTokenList& list, const TokenListProfile& profile) {
  if (!profile.subTypes.containsTypesFrom(kConstants)) return;
  forEachToken(list, TokenType::number, processConstant);
  forEachToken(list, TokenType::unitExpression, processConstantInUnitExpression);
}

void replaceFractions(EditableTokenList& list) { forEachToken(list, TokenType::fraction, replaceFraction); }

void applyFractionTransformations(EditableTokenList& list, const TokenListProfile& profile) {
  if (!profile.subTypesAnywhere.contains(TokenSubType::divisionOperator)) return;
  forEachToken(list, TokenType::operator_, applyFractionTransformation);
}

void addImplicitAsPercentageConvertersAfterFractions(EditableTokenList& list, const TokenListProfile& profile) {
  if (!list->typePrecheck(TokenType::percentage)) return;
  if (!profile.subTypesAnywhere.contains(TokenSubType::divisionOperator)) return;
  forEachToken(list, TokenType::subexpression, addImplicitAsPercentageConverter);
}

void addExplicitMultiplicationBetweenSubexpressions(EditableTokenList& list) {
  forEachToken(list, kSubexpressionsAndFriends, multiplyWithNeighbours);
}

void processSqrtChar(EditableTokenList& list, const TokenListProfile& profile) {
  if (profile.hasSquareRootSign) forEachToken(list, TokenType::operator_, processSqrt);
}

void addImplicitMultiplicationBetweenFunctionsAndNumbers(EditableTokenList& list) {
  forEachToken(list, TokenTypeSet::functionTypes, multiplyFunctionWithNumber);
}

}  // namespace tavrine::processing
