// Clusters of letters and digits ("x2", "5km3") that the lexer leaves as one word.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/DigitDetector.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"
#include "TavrineCore/Parsing/Lexing/LetterNumberScanner.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Squad/UnitLookUp.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine::passes {

namespace {

Token unitTokenWith(std::string_view stringValue, NSRange range, TCUnit unit) {
  return {TokenType::unit,
          TokenSubType::notSpecified,
          std::string(stringValue),
          range,
          nullptr,
          std::make_shared<const UnitTokenMetadata>(std::move(unit))};
}

/// Makes the tokens of one cluster: its parts stand at offsets from the start of the word.
class ClusterTokens {
 public:
  ClusterTokens(const Token& word, const NumericClusterComponents& cluster, const PassContext& context)
      : word_(word), cluster_(cluster), context_(context) {}

  std::vector<Token> tokens() const {
    switch (cluster_.type) {
      case NumericClusterType::numberFirst:
        return aroundSandwich(/*needsLeading=*/true, /*needsTrailing=*/false);
      case NumericClusterType::wordFirst:
        return aroundSandwich(/*needsLeading=*/false, /*needsTrailing=*/true);
      case NumericClusterType::bookendedByNumbers:
        return aroundSandwich(/*needsLeading=*/true, /*needsTrailing=*/true);
      case NumericClusterType::bookendedByLetters:
        return {tokenForOuterComponentIn(*cluster_.leadingComponent),
                number(cluster_.sandwichComponent, *cluster_.sandwichDecimal),
                tokenForOuterComponentIn(*cluster_.trailingComponent)};
    }
    return {};
  }

 private:
  std::vector<Token> aroundSandwich(bool needsLeading, bool needsTrailing) const {
    std::optional<Token> sandwich = tokenForSandwichComponentIn();
    if (!sandwich) return {};
    // A variable may have taken one of the numbers into its name.
    if (DigitDetector::firstCharacterIsDigitIn(sandwich->stringValue)) needsLeading = false;
    if (DigitDetector::lastCharacterIsDigitIn(sandwich->stringValue)) needsTrailing = false;
    std::vector<Token> result;
    if (needsLeading) result.push_back(number(*cluster_.leadingComponent, *cluster_.leadingDecimal));
    result.push_back(*std::move(sandwich));
    if (needsTrailing) result.push_back(number(*cluster_.trailingComponent, *cluster_.trailingDecimal));
    return result;
  }

  std::optional<Token> tokenForSandwichComponentIn() const {
    if (!context_.variables.isEmpty()) {
      for (const NumericClusterComponent& name : cluster_.potentialVariableNames()) {
        if (std::optional<Token> variable = variableNamed(name)) return variable;
      }
    }
    const NumericClusterComponent& sandwich = cluster_.sandwichComponent;
    if (std::optional<TCUnit> unit = unitNamed(sandwich.text, context_)) {
      if (isMoreLikelyAName()) return std::nullopt;
      return unitTokenWith(sandwich.text, placeOf(sandwich), *std::move(unit));
    }
    return tokenForFixture(sandwich);
  }

  /// "K2" is a mountain rather than two kelvins.
  bool isMoreLikelyAName() const {
    const std::string_view text = cluster_.sandwichComponent.text;
    return cluster_.type == NumericClusterType::wordFirst && isSingleCluster(text) &&
           isUppercaseLetter(decodeScalar(text, 0).scalar) && text != Parser::specialISODateSeparator &&
           !isCurrencySubstitution(text, context_);
  }

  std::optional<Token> tokenForFixture(const NumericClusterComponent& component) const {
    const std::optional<Fixture> fixture = context_.content.fixturesList->find(component.text);
    const std::optional<TokenType> type = fixture ? relatedTokenType(*fixture) : std::nullopt;
    if (!type) return std::nullopt;
    const TokenSubType subType = relatedTokenSubType(*fixture);
    if (type == TokenType::dateWord) {
      const DateWord* word = context_.content.dateWordsList->dateWordFor(component.text);
      if (word == nullptr) return std::nullopt;
      return Token(TokenType::dateWord, subType, std::string(component.text), placeOf(component), nullptr,
                   std::make_shared<const DateWordTokenMetadata>(*word));
    }
    if (type == TokenType::operator_) return operatorToken(component, subType);
    const bool isConstant =
        subType == TokenSubType::pi ||
        (context_.features.phiAndTau && (subType == TokenSubType::phi || subType == TokenSubType::tau));
    if (!isConstant) return std::nullopt;
    return Token(TokenType::number, subType, std::string(component.text), placeOf(component), nullptr,
                 std::make_shared<const NumberTokenMetadata>(NumberTokenMetadata::forConstant(subType)));
  }

  /// The first or the last word of a cluster with a number in its middle. A word that nobody knows stays one.
  Token tokenForOuterComponentIn(const NumericClusterComponent& component) const {
    if (std::optional<Token> variable = variableNamed(component)) return *std::move(variable);
    if (std::optional<TCUnit> unit = unitNamed(component.text, context_)) {
      return unitTokenWith(component.text, placeOf(component), *std::move(unit));
    }
    const std::optional<Fixture> fixture = context_.content.fixturesList->find(component.text);
    if (fixture && relatedTokenType(*fixture) == TokenType::operator_) {
      return operatorToken(component, relatedTokenSubType(*fixture));
    }
    return {TokenType::unidentified, std::string(component.text), placeOf(component)};
  }

  std::optional<Token> variableNamed(const NumericClusterComponent& name) const {
    const Variable* variable = context_.variables.find(name.text);
    if (variable == nullptr) return std::nullopt;
    return Token(TokenType::variable, TokenSubType::notSpecified, std::string(name.text), placeOf(name), nullptr,
                 std::make_shared<const VariableTokenMetadata>(*variable));
  }

  Token operatorToken(const NumericClusterComponent& component, TokenSubType subType) const {
    return {TokenType::operator_, subType, std::string(component.text), placeOf(component)};
  }

  Token number(const NumericClusterComponent& component, const Decimal& value) const {
    return numberToken(value, std::string(component.text), placeOf(component));
  }

  NSRange placeOf(const NumericClusterComponent& component) const {
    return {word_.range.location + component.range.location, component.range.length};
  }

  const Token& word_;
  const NumericClusterComponents& cluster_;
  const PassContext& context_;
};

std::vector<Token> numericClusterTokensFor(const Token& word, const PassContext& context) {
  if (!DigitDetector::containsDigit(word.stringValue)) return {};
  const auto cluster = NumericClusterComponents::make(word.stringValue, context.numberDetector);
  if (!cluster) return {};
  if (context.features.musicalConversions) {
    if (const std::optional<Pitch> pitch = Pitch::fromNotation(word.stringValue)) {
      return {Token(TokenType::pitch, TokenSubType::notSpecified, word.stringValue, word.range, nullptr,
                    std::make_shared<const PitchTokenMetadata>(*pitch))};
    }
  }
  return ClusterTokens(word, *cluster, context).tokens();
}

/// "2", "x3x4" → 2, x, 3, x, 4.
std::vector<Token> exAsMultiplicationNumberClusterFrom(const Token& word, const Token* before,
                                                       const PassContext& context) {
  constexpr std::string_view kTimes = "*";
  if (before == nullptr || !before->is(TokenType::number)) return {};
  if (!word.stringValue.starts_with(Parser::letterXAsTimes)) return {};

  const std::string product = replacingAll(word.stringValue, Parser::letterXAsTimes, kTimes);
  std::vector<Token> result;
  for (const Lexeme& lexeme : Lexer::lexemesFor(product, Locale::current())) {
    if (lexeme.type != LexemeType::number && lexeme.type != LexemeType::symbol) return {};
    const NSRange range{word.range.location + lexeme.range.location, lexeme.range.length};
    Token token = tokenFor(lexeme.string, range, lexeme.type, context);
    // Back to what was typed; a combining mark on the "x" stands on the sign now and is no part of its fixture.
    token.stringValue = word.stringValue.substr(lexeme.byteOffset, lexeme.string.size());
    token.textHash = 0;
    result.push_back(std::move(token));
  }
  if (result.empty() || result.front().range.location != word.range.location ||
      result.back().range.upperBound() != word.range.upperBound()) {
    return {};
  }
  return result;
}

/// "h2m3s", behind the 1 of "1h2m3s", → unit, 2, unit, 3, unit. Nothing unless at least one of the words is a unit.
std::vector<Token> identifyComponentsInVeryChunkyWordNumberClusters(const Token& word, const PassContext& context) {
  constexpr std::size_t kFewestPieces = 3;
  if (!DigitDetector::containsDigit(word.stringValue)) return {};
  const auto pieces = LetterNumberScanner::scanString(word.stringValue);
  if (pieces.size() < kFewestPieces) return {};

  std::vector<Token> result;
  result.reserve(pieces.size());
  bool holdsUnit = false;
  for (const auto& piece : pieces) {
    const NSRange range{word.range.location + piece.range.location, piece.range.length};
    const bool isWord = piece.type == LetterNumberScanner::LetterNumberTokenType::letter;
    const auto value = isWord ? std::nullopt : context.numberDetector.decimalValueOf(piece.value);
    std::optional<TCUnit> unit = isWord ? unitNamed(piece.value, context) : std::nullopt;
    if (value) {
      result.push_back(numberToken(*value, piece.value, range));
    } else if (unit) {
      holdsUnit = true;
      result.push_back(unitTokenWith(piece.value, range, *std::move(unit)));
    } else {
      result.emplace_back(TokenType::unidentified, piece.value, range);
    }
  }
  if (!holdsUnit) return {};
  return result;
}

/// "°26'46", behind the 40 of "40°26'46", → °, 26, ', 46. Words other than the marks stay ones: the N of "°26′46″N".
std::vector<Token> identifyComponentsOfAngle(const Token& word, const Token* before, const PassContext& context) {
  if (before == nullptr || !before->is(TokenType::number)) return {};
  const std::string& text = word.stringValue;
  if (!text.starts_with(unitOf(UnitIdentifier::degrees).symbol())) return {};

  std::vector<Token> result;
  std::uint32_t location = word.range.location;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t start = i;
    const bool isNumber = DigitDetector::firstCharacterIsDigitIn(std::string_view(text).substr(i));
    if (isNumber) {
      i = std::min(text.find_first_not_of("0123456789.", i), text.size());
    } else {
      i += firstCluster(std::string_view(text).substr(i)).size();
    }
    const std::string part = text.substr(start, i - start);
    const NSRange range{location, static_cast<std::uint32_t>(utf16Length(part))};
    location += range.length;
    if (isNumber) {
      const auto value = context.numberDetector.decimalValueOf(part);
      if (!value) return {};
      result.push_back(numberToken(*value, part, range));
    } else if (std::optional<TCUnit> unit = unitNamed(part, context)) {
      result.push_back(unitTokenWith(part, range, *std::move(unit)));
    } else {
      result.emplace_back(TokenType::unidentified, part, range);
    }
  }
  return result;
}

}  // namespace

void identifyNumericClustersIn(TokenList& list, const PassContext& context) {
  // Most words are neither: they are told here, before the walk copies them and looks for their places.
  const auto mayBeCluster = [](const Token& token, const Token*) {
    return token.is(TokenType::unidentified) &&
           (token.stringValue.starts_with(Parser::letterXAsTimes) || DigitDetector::containsDigit(token.stringValue));
  };
  const bool hasNestedTokens =
      std::any_of(list.begin(), list.end(), [](const Token& token) { return token.subtokens != nullptr; });
  const auto isConcerned = [&](const Token& token) { return mayBeCluster(token, nullptr); };
  if (!hasNestedTokens && std::none_of(list.begin(), list.end(), isConcerned)) return;
  const auto split = [&](const Token& word, TokenList& tokens, const Token*) {
    const std::optional<std::size_t> index = tokens.indexOf(word);
    if (!index) return;
    std::vector<Token> parts = numericClusterTokensFor(word, context);
    const Token* before = *index > 0 ? &tokens[*index - 1] : nullptr;
    if (parts.empty()) parts = exAsMultiplicationNumberClusterFrom(word, before, context);
    if (parts.empty()) parts = identifyComponentsOfAngle(word, before, context);
    if (parts.empty()) parts = identifyComponentsInVeryChunkyWordNumberClusters(word, context);
    if (parts.empty()) return;

    tokens.replaceAt(*index, std::move(parts.front()));
    for (std::size_t i = 1; i < parts.size(); ++i) tokens.insertAt(*index + i, std::move(parts[i]));
  };
  list.applyModificationsToAllListsWithTokensPassingTest(mayBeCluster, nullptr, /*reversed=*/true,
                                                         /*topLevelOnly=*/false, split);
}

}  // namespace tavrine::passes
