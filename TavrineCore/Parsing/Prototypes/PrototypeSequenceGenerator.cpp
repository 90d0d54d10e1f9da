#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceGenerator.h"

#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using Mode = PrototypeSequenceGenerator::NumberInterpretationMode;
using TokenPrototypeRef = std::shared_ptr<const TokenPrototype>;

/// Types whose tokens stand for their text, or for a placeholder that the text names.
constexpr TokenTypeSet kLiteralTypes{
    TokenType::wordComment,     TokenType::unidentified,       TokenType::customInternal,
    TokenType::variable,        TokenType::typeName,           TokenType::numberWord,
    TokenType::dateWord,        TokenType::converterSymbol,    TokenType::unit,
    TokenType::label,           TokenType::operator_,          TokenType::statisticType,
    TokenType::prepositionWord, TokenType::grammerArticleWord, TokenType::ordinalSuffix};

PrototypeSequenceRef sequenceOf(const TokenList& list, Mode mode);

TokenPrototypeRef prototypeOfText(const std::string& text) {
  using Placeholders = PrototypeTypePlaceholders;
  if (!Placeholders::isPlaceholder(text)) return std::make_shared<LiteralTokenPrototype>(text);
  if (const auto type = Placeholders::typeFor(text)) {
    if (*type == TokenType::anyWord) return std::make_shared<AnyWordTokenPrototype>();
    if (*type == TokenType::dynamicPlace) return std::make_shared<DynamicPlaceTokenPrototype>();
    return std::make_shared<TypeTokenPrototype>(*type);
  }
  if (const auto subType = Placeholders::subTypeFor(text)) return std::make_shared<SubTypeTokenPrototype>(*subType);
  if (const auto unitType = Placeholders::unitExpressionTypeFor(text)) {
    return std::make_shared<TypedUnitExpressionTokenPrototype>(*unitType);
  }
  if (const auto unitType = Placeholders::unitTypeFor(text)) {
    return std::make_shared<TypedUnitTokenPrototype>(*unitType);
  }
  return std::make_shared<CustomTypeTokenPrototype>(text);
}

TokenPrototypeRef prototypeOfNumber(const std::string& text, Mode mode) {
  switch (mode) {
    case Mode::literalNumber:
      return std::make_shared<LiteralTokenPrototype>(text);
    case Mode::typedNumber:
      return std::make_shared<TypeTokenPrototype>(TokenType::number);
    case Mode::arithmeticEntity:
      break;
  }
  return std::make_shared<ArithmeticEntityTokenPrototype>();
}

TokenPrototypeRef prototypeOf(const Token& token, Mode mode) {
  if (kLiteralTypes.contains(token.type)) return prototypeOfText(token.stringValue);
  if (token.is(TokenType::number)) return prototypeOfNumber(token.stringValue, mode);
  if (token.is(TokenType::subexpression) && token.subtokens) {
    return std::make_shared<SubExpressionTokenPrototype>(sequenceOf(*token.subtokens, mode));
  }
  if (token.hasDecimalValue() || ArithmeticEntityTokenPrototype::additionalAcceptableTypes.contains(token.type)) {
    return std::make_shared<ArithmeticEntityTokenPrototype>();
  }
  return std::make_shared<TypeTokenPrototype>(token.type);
}

/// Whether the brackets of "log(10)" open there. Brackets behind the name of a function are no token of their own in
/// the phrase, and become one value in the line.
bool standsInBracketsOfFunction(const TokenList& list, std::size_t index) {
  return index > 0 && index + 2 < list.count() && list[index - 1].is(TokenType::functionName) &&
         list[index].is(TokenType::bracket, TokenSubType::openBracket) && list[index + 1].is(TokenType::number) &&
         list[index + 2].is(TokenType::bracket, TokenSubType::closeBracket);
}

PrototypeSequenceRef sequenceOf(const TokenList& list, Mode mode) {
  PrototypeSequence::Prototypes prototypes;
  prototypes.reserve(list.count());
  for (std::size_t i = 0; i < list.count(); ++i) {
    const bool isArgument = standsInBracketsOfFunction(list, i);
    prototypes.push_back(prototypeOf(list[isArgument ? i + 1 : i], mode));
    if (isArgument) i += 2;
  }
  return std::make_shared<const PrototypeSequence>(std::move(prototypes));
}

}  // namespace

PrototypeSequenceRef PrototypeSequenceGenerator::sequenceFor(std::string_view string, NumberInterpretationMode mode) {
  return sequenceOf(Parser::tokenListForPrototypeMatching(string), mode);
}

}  // namespace tavrine
