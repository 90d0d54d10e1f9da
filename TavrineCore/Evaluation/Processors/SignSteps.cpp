#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Processors/GeneralPostProcessor.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine::processing {

namespace {

constexpr TokenSubTypeSet kSigns{TokenSubType::additionOperator, TokenSubType::subtractionOperator};
constexpr TokenSubTypeSet kBitwiseOperators{
    TokenSubType::bitwiseRightShiftOperator, TokenSubType::bitwiseLeftShiftOperator, TokenSubType::bitwiseOrOperator,
    TokenSubType::bitwiseAndOperator,        TokenSubType::bitwiseXorOperator,       TokenSubType::bitwiseNotOperator};
/// Behind these a sign belongs to the operand and not to the operation.
constexpr TokenSubTypeSet kOperatorsBeforeSignedOperands{TokenSubType::divisionOperator, TokenSubType::modOperator,
                                                         TokenSubType::powerOperator};
/// Operands that keep a sign in brackets of their own.
constexpr TokenTypeSet kBracketedWithSign{TokenType::subexpression, TokenType::functionExpression,
                                          TokenType::wordFunction,  TokenType::percentage,
                                          TokenType::fraction,      TokenType::rate,
                                          TokenType::multiplier,    TokenType::binaryNumber,
                                          TokenType::octalNumber,   TokenType::hexadecimalNumber};
constexpr TokenTypeSet kMayBeNegative{TokenType::number, TokenType::unitExpression, TokenType::percentage};
constexpr TokenTypeSet kSignBehindIsAnOperation{TokenType::datestamp, TokenType::subexpression, TokenType::operator_};
constexpr TokenTypeSet kRandomWords = TokenTypeSet::randomWords;

bool isSign(const Token& token) { return token.is(TokenType::operator_) && kSigns.contains(token.subType); }
bool isMinus(const Token& token) { return token.subType == TokenSubType::subtractionOperator; }
bool isPower(const Token& token) { return token.is(TokenType::operator_, TokenSubType::powerOperator); }

Token signToken(bool minus, std::uint32_t location) {
  Token token = minus ? operatorToken(TokenSubType::subtractionOperator, "-")
                      : operatorToken(TokenSubType::additionOperator, "+");
  token.range = {location, 1};
  return token;
}

/// The value times `factor`, which is 1 or -1.
Token numberTimes(const Token& number, int factor) {
  return TokenFactory::numberWith(number.unscaledDecimalValue() * Decimal(factor), number.scalar());
}

Token unitExpressionTimes(const Token& expression, int factor) {
  const auto* metadata = expression.metadataAs<UnitExpressionTokenMetadata>();
  if (metadata == nullptr) return expression;
  return TokenFactory::unitExpressionWith(metadata->numericValue.decimalValue * Decimal(factor),
                                          metadata->numericValue.scalar, metadata->unitMetaData.underlyingTCUnit,
                                          metadata->prefersCompoundFormatting);
}

std::size_t disableBitwiseIfRequested(EditableTokenList& list, std::size_t index, const Token*) {
  return kBitwiseOperators.contains(list[index].subType) ? list.deidentify(index) : index;
}

bool isNegative(const Token& token) {
  return token.is(TokenType::number) ? token.subType == TokenSubType::negativeNumber
                                     : token.decimalValue().isSignMinus();
}

Token withoutSign(const Token& token) {
  switch (token.type) {
    case TokenType::percentage:
      return TokenFactory::percentageWith(token.decimalValue().negated());
    case TokenType::unitExpression:
      return unitExpressionTimes(token, -1);
    default:
      return numberTimes(token, -1);
  }
}

/// The parser reads "-5" as one number. Where the sign is an operation, or a power is to come before it, it becomes an
/// operator again: "-2^2" is -(2^2), "3 -2" a subtraction. "2 ^ -3" keeps its negative number.
std::size_t detachUnaryMinus(EditableTokenList& list, std::size_t index, const Token* parent) {
  // What they hold is read as a value: "-86400 as date" lies before 1970, "3, -5" is no subtraction.
  constexpr TokenTypeSet kHoldersOfValues{TokenType::wordFunction, TokenType::unitExpression, TokenType::unixTimestamp,
                                          TokenType::list};
  if (parent != nullptr && kHoldersOfValues.contains(parent->type)) return index;
  const Token& token = list[index];
  if (!isNegative(token)) return index;
  if (const Token* before = list.tokenAt(list.previous(index, kRandomWords))) {
    if (before->subType == TokenSubType::powerOperator) return index;
    if (!before->hasDecimalValue() && !kSignBehindIsAnOperation.contains(before->type)) return index;
  }
  Token positive = withoutSign(token);
  positive.range = {token.range.location + 1, token.range.length > 0 ? token.range.length - 1 : 0};
  return list.replace(index, index, {signToken(true, token.range.location), std::move(positive)});
}

/// The run of signs that ends at `last`, white space between them. Its first index.
std::size_t startOfSigns(const EditableTokenList& list, std::size_t last, bool& isNegativeInAll) {
  isNegativeInAll = isMinus(list[last]);
  std::size_t first = last;
  for (auto before = list.previous(first); before && isSign(list[*before]); before = list.previous(first)) {
    first = *before;
    isNegativeInAll = isNegativeInAll != isMinus(list[first]);
  }
  return first;
}

/// A chain of powers, "2 ^ 3 ^ 2", becomes one bracket, within which it is worked out from left to right. A sign
/// within it belongs to the operand behind it: "2 ^ - 3 ^ 2" is (2 ^ -3) ^ 2. A chain that doesn't begin with a plain
/// number stays open, with its signs bound.
std::size_t wrapPowers(EditableTokenList& list, std::size_t index, const Token*) {
  if (!isPower(list[index])) return index;
  const auto isOperand = [&](std::optional<std::size_t> i) {
    return list.is(i, TokenType::number) || list.is(i, TokenType::subexpression);
  };

  auto last = list.next(index);
  while (last && isSign(list[*last])) last = list.next(*last);
  auto first = list.previous(index);
  if (!first || !isOperand(last)) return index;

  bool hasSigns = list.is(list.previous(*last), TokenType::operator_) && list.previous(*last) != index;
  while (isOperand(first)) {
    std::optional<std::size_t> before = list.previous(*first);
    bool hasSign = false;
    while (before && isSign(list[*before])) {
      hasSign = true;
      before = list.previous(*before);
    }
    if (!before || !isPower(list[*before]) || !list.previous(*before)) break;
    hasSigns = hasSigns || hasSign;
    first = list.previous(*before);
  }

  std::vector<Token> chain;
  chain.reserve(*last - *first + 1);
  bool isNegativeNext = false;
  std::vector<Token> signs;
  for (std::size_t i = *first; i <= *last; ++i) {
    const Token& token = list[i];
    if (i > *first && isSign(token)) {
      isNegativeNext = isNegativeNext != isMinus(token);
      signs.push_back(token);
    } else if (signs.empty()) {
      chain.push_back(token);
    } else if (!token.is(TokenType::whitespace)) {
      if (token.is(TokenType::number)) {
        chain.push_back(numberTimes(token, isNegativeNext ? -1 : 1));
      } else {
        chain.push_back(subexpressionOver({signToken(isNegativeNext, signs.front().range.location), token}));
      }
      signs.clear();
      isNegativeNext = false;
    }
  }
  if (list[*first].is(TokenType::number)) return list.replace(*first, *last, subexpressionOver(std::move(chain)));
  if (hasSigns) return list.replace(*first, *last, std::move(chain));
  return *first;
}

/// "5 + - + 3" → "5 - 3".
std::size_t handleConsecutiveMinusAndPluses(EditableTokenList& list, std::size_t index, const Token*) {
  if (!isSign(list[index])) return index;
  bool isNegativeInAll = false;
  const std::size_t first = startOfSigns(list, index, isNegativeInAll);
  if (first == index) return index;
  return list.replace(first, index, signToken(isNegativeInAll, list[first].range.location));
}

/// "3 * -2" → "3 * -1 * 2".
std::size_t handleTimesThenPlusOrMinus(EditableTokenList& list, std::size_t index, const Token*) {
  if (list[index].subType != TokenSubType::multiplicationOperator) return index;
  const auto sign = list.next(index);
  if (!sign || !isSign(list[*sign])) return index;
  const NSRange place{list[*sign].range.location, 0};
  Token one = TokenFactory::numberWith(Decimal(isMinus(list[*sign]) ? -1 : 1));
  Token times = operatorToken(TokenSubType::multiplicationOperator, "*");
  one.range = times.range = place;
  list.replace(*sign, *sign, {std::move(one), std::move(times)});
  return index;
}

/// "6 / -2" divides by -2; "5 mod -3" and "2 ^ -(1)" likewise.
std::size_t bindSignBehindOperator(EditableTokenList& list, std::size_t index, const Token*) {
  if (!kOperatorsBeforeSignedOperands.contains(list[index].subType)) return index;
  const auto sign = list.next(index);
  if (!sign || !isSign(list[*sign])) return index;
  const auto operand = list.next(*sign, kRandomWords);
  if (!operand) return index;

  const int factor = isMinus(list[*sign]) ? -1 : 1;
  const Token& token = list[*operand];
  if (kBracketedWithSign.contains(token.type)) {
    list.wrap(*sign, *operand);
  } else if (token.is(TokenType::unitExpression)) {
    list.replace(*sign, *operand, unitExpressionTimes(token, factor));
  } else if (token.is(TokenType::number)) {
    Token number = numberTimes(token, factor);
    number.stringValue = list[*sign].stringValue + token.stringValue;
    number.textHash = 0;
    list.replace(*sign, *operand, std::move(number));
  }
  return index;
}

bool isOneCharacter(const std::string& text) {
  std::size_t characters = 0;
  for (const char byte : text) characters += (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u;
  return characters == 1;
}

/// A stroke behind something that can't be divided.
std::size_t ensureMeaningfulDivision(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (parent != nullptr && parent->is(TokenType::converter)) return index;
  const Token& operation = list[index];
  if (operation.subType != TokenSubType::divisionOperator || !isOneCharacter(operation.stringValue)) return index;
  const Token* before = list.tokenAt(list.previous(index, kRandomWords));
  if (before == nullptr || before->subType == TokenSubType::divisionOperator ||
      !TokenTypeSet::nonMeaningfulTypes.contains(before->type)) {
    return index;
  }
  return list.replace(index, index, errorToken(EvaluationError::BadDivision));
}

std::size_t ensureMeaningfulReverseSubtraction(EditableTokenList& list, std::size_t index, const Token*) {
  if (list[index].subType != TokenSubType::reverseSubtractionOperator) return index;
  const auto isMeaningful = [&](std::optional<std::size_t> i) {
    return i && !TokenTypeSet::nonMeaningfulTypes.contains(list[*i].type);
  };
  if (isMeaningful(list.previous(index, kRandomWords)) && isMeaningful(list.next(index, kRandomWords))) return index;
  return list.replace(index, index, Token());
}

}  // namespace

void processNumbersAndOperators(EditableTokenList& list, const TokenListProfile& profile, bool bitwiseOperatorsAreOn) {
  constexpr TokenTypeSet operators = TokenTypeSet::operatorSet;
  if (!bitwiseOperatorsAreOn && profile.subTypes.containsTypesFrom(kBitwiseOperators)) {
    forEachToken(list, operators, disableBitwiseIfRequested);
  }
  const bool hasNegativeNumbers = profile.subTypes.contains(TokenSubType::negativeNumber);
  if (hasNegativeNumbers) forEachToken(list, kMayBeNegative, detachUnaryMinus);
  if (profile.subTypes.contains(TokenSubType::powerOperator)) forEachToken(list, operators, wrapPowers);

  const bool hasSigns = hasNegativeNumbers || profile.subTypesAnywhere.containsTypesFrom(kSigns);
  if (hasSigns) {
    forEachToken(list, operators, handleConsecutiveMinusAndPluses);
    if (profile.subTypes.contains(TokenSubType::multiplicationOperator)) {
      forEachToken(list, operators, handleTimesThenPlusOrMinus);
    }
    if (profile.subTypesAnywhere.containsTypesFrom(kOperatorsBeforeSignedOperands)) {
      forEachToken(list, operators, bindSignBehindOperator);
    }
  }
  if (profile.subTypesAnywhere.contains(TokenSubType::divisionOperator)) {
    forEachToken(list, operators, ensureMeaningfulDivision);
  }
  if (profile.subTypes.contains(TokenSubType::reverseSubtractionOperator)) {
    forEachToken(list, operators, ensureMeaningfulReverseSubtraction);
  }
}

}  // namespace tavrine::processing
