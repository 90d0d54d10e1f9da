#include "TavrineCore/Parsing/Prototypes/PrototypeExpressionGenerator.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using MatchType = PrototypeExpressionMatchType;
using Placeholders = PrototypeTypePlaceholders;

constexpr TokenTypeSet kBreakUpIntoSubtokensTypes{TokenType::converter, TokenType::subexpression,
                                                  TokenType::labelExpression};
constexpr TokenTypeSet kNoProcessingTypes{TokenType::whitespace, TokenType::wordComment, TokenType::number,
                                          TokenType::operator_};
constexpr TokenTypeSet kInvalidTokenTypes{TokenType::functionExpression};

struct Piece {
  TokenType type;
  std::string text;
};

std::string textFor(const Token& token, MatchType match) {
  if (match == MatchType::literally) return token.stringValue;
  if (match == MatchType::byUnitType) {
    if (token.is(TokenType::unitExpression)) {
      if (const std::optional<UnitExpression> value = token.unitExpressionValue()) {
        const UnitType kind = value->unit.unitType();
        if (kind != UnitType::duration) return Placeholders::placeholderForUnitExpression(kind);
        return std::string(*Placeholders::placeholderFor(TokenType::timespan));
      }
    }
    if (token.is(TokenType::unit)) {
      if (const std::optional<TCUnit> unit = token.unitValue())
        return Placeholders::placeholderForUnit(unit->unitType());
    }
  }
  const std::optional<std::string_view> placeholder = Placeholders::placeholderFor(token.type);
  return placeholder ? std::string(*placeholder) : token.stringValue;
}

/// False where the list holds what a phrase can't.
bool appendPieces(const TokenList& list, PrototypeExpressionGenerator::MatchTypeHandler handler,
                  std::vector<Piece>& pieces) {
  for (const Token& token : list) {
    if (kInvalidTokenTypes.contains(token.type)) return false;
    if (kBreakUpIntoSubtokensTypes.contains(token.type) && token.subtokens) {
      if (!appendPieces(*token.subtokens, handler, pieces)) return false;
    } else if (kNoProcessingTypes.contains(token.type)) {
      pieces.push_back({token.type, token.stringValue});
    } else {
      pieces.push_back({token.type, textFor(token, handler(token))});
    }
  }
  return true;
}

/// The phrase must not depend on the settings or the variables of the line that it comes from: `customization` is one
/// of those that every line has.
std::optional<std::vector<Piece>> piecesOf(std::string_view expression, EngineCustomization customization,
                                           PrototypeExpressionGenerator::MatchTypeHandler handler) {
  const Parser parser(std::move(customization));
  std::vector<Piece> pieces;
  if (!appendPieces(parser.tokensFor(expression, VariableList()), handler, pieces)) return std::nullopt;
  return pieces;
}

std::string phraseOf(const std::vector<Piece>& pieces) {
  std::string phrase;
  for (const Piece& piece : pieces) phrase += piece.text;
  return std::string(trimmed(phrase));
}

bool definesFunction(const std::vector<Piece>& pieces) {
  const auto isProcessed = [](const Piece& piece) { return !kNoProcessingTypes.contains(piece.type); };
  const auto isFixed = [](const Piece& piece) {
    return piece.type != TokenType::whitespace && !Placeholders::isPlaceholder(piece.text);
  };
  return std::any_of(pieces.begin(), pieces.end(), isProcessed) && std::any_of(pieces.begin(), pieces.end(), isFixed);
}

}  // namespace

std::optional<std::string> PrototypeExpressionGenerator::prototypeStringFrom(std::string_view expression,
                                                                             MatchTypeHandler matchTypeHandler) {
  const std::optional<std::vector<Piece>> pieces = piecesOf(expression, EngineCustomization::basic(), matchTypeHandler);
  if (!pieces) return std::nullopt;
  return phraseOf(*pieces);
}

std::optional<std::string> PrototypeExpressionGenerator::validCustomFunctionPrototypeStringFrom(
    std::string_view expression, MatchTypeHandler matchTypeHandler) {
  // With every currency: "50 dollars" is to be a gap for money. Without phrases: "5 m by 3 m" is to be two gaps.
  EngineCustomization customization = EngineCustomization::standard();
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.wordFunctions = false; });
  const std::optional<std::vector<Piece>> pieces = piecesOf(expression, std::move(customization), matchTypeHandler);
  if (!pieces || !definesFunction(*pieces)) return std::nullopt;
  return phraseOf(*pieces);
}

}  // namespace tavrine
