#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Primitives/SubsheetList.h"
#include "TavrineCore/Parsing/Squad/NumberTokens.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/Passes.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

constexpr std::string_view kSquareRootSign = "√";
/// Opens the placeholders of phrase patterns ("__decimal").
constexpr std::string_view kPlaceholderPrefix = "__";

std::optional<Token> variableToken(std::string_view fragment, NSRange range, const PassContext& context) {
  const Variable* variable = context.variables.find(fragment);
  if (variable == nullptr) return std::nullopt;
  const bool isTag = variable->type == Variable::VariableType::tag;
  if (isTag && !context.features.additionalOptions.generateTagVariablesFromLabels) return std::nullopt;
  return Token(TokenType::variable, TokenSubType::notSpecified, std::string(fragment), range, nullptr,
               std::make_shared<const VariableTokenMetadata>(*variable));
}

std::optional<Token> functionToken(const HashedWord& word, NSRange range, const PassContext& context) {
  const TraditionalFunction* function = context.content.traditionalFunctionList->functionNamed(word);
  if (function == nullptr) return std::nullopt;
  const std::string_view fragment = word.text;
  if (function->implementation) {
    return Token(TokenType::javascriptFunctionName, TokenSubType::notSpecified, std::string(fragment), range, nullptr,
                 std::make_shared<const JavascriptFunctionTokenMetadata>(*function));
  }
  const TokenSubType subType =
      fragment == kSquareRootSign ? TokenSubType::squareRootSymbol : TokenSubType::notSpecified;
  return Token(TokenType::functionName, subType, std::string(fragment), range);
}

bool isConstant(TokenSubType subType) {
  return subType == TokenSubType::pi || subType == TokenSubType::tau || subType == TokenSubType::phi;
}

bool namesAnotherBase(TokenSubType subType) {
  return subType == TokenSubType::binaryTypeName || subType == TokenSubType::hexadecimalTypeName ||
         subType == TokenSubType::octalTypeName;
}

Token fixtureToken(const HashedWord& word, NSRange range, const PassContext& context) {
  const std::string_view fragment = word.text;
  std::string text(fragment);
  const std::optional<Fixture> fixture = context.content.fixturesList->find(word);
  const std::optional<TokenType> type = fixture ? relatedTokenType(*fixture) : std::nullopt;
  const TokenSubType subType = type ? relatedTokenSubType(*fixture) : TokenSubType::notSpecified;

  if (type == TokenType::dateWord) {
    if (const DateWord* dateWord = context.content.dateWordsList->dateWordFor(fragment)) {
      return {TokenType::dateWord,
              subType,
              std::move(text),
              range,
              nullptr,
              std::make_shared<const DateWordTokenMetadata>(*dateWord)};
    }
  } else if (type == TokenType::statisticType) {
    if (const std::optional<StatisticType> statistic = statisticTypeOf(subType)) {
      return {TokenType::statisticType,
              subType,
              std::move(text),
              range,
              nullptr,
              std::make_shared<const StatisticTypeTokenMetadata>(*statistic)};
    }
  } else if (fixture == Fixture::squareRootSymbol) {
    return {TokenType::operator_, TokenSubType::squareRootSymbol, std::move(text), range};
  } else if (!type && fragment.starts_with(kPlaceholderPrefix)) {
    return {TokenType::customInternal, std::move(text), range};
  }

  if (isConstant(subType)) {
    if (subType != TokenSubType::pi && !context.features.phiAndTau) {
      return {TokenType::unidentified, std::move(text), range};
    }
    return {TokenType::number, subType,
            std::move(text),   range,
            nullptr,           std::make_shared<const NumberTokenMetadata>(NumberTokenMetadata::forConstant(subType))};
  }
  if (namesAnotherBase(subType) && !context.features.hexAndBinary) {
    return {TokenType::unidentified, std::move(text), range};
  }
  return {type.value_or(TokenType::unidentified), subType, std::move(text), range};
}

/// "#" and "tag": what the lexer cut and the vocabulary doesn't know is one word.
bool fuseWithPreviousWord(std::vector<Token>& tokens, const Token& next) {
  if (tokens.empty() || !TokenTypeSet::fusingAfterLexingTypes.contains(next.type)) return false;
  Token& previous = tokens.back();
  if (!TokenTypeSet::fusingAfterLexingTypes.contains(previous.type)) return false;
  previous.stringValue += next.stringValue;
  previous.textHash = 0;
  previous.range.length += next.range.length;
  previous.metadata = nullptr;
  return true;
}

/// "5", " ", "½" are one number. `tokens` ends with the number and the white space.
bool fusedNumberWhitespaceNumber(std::vector<Token>& tokens, const Token& right, const PassContext& context) {
  const auto* rightNumber = right.metadataAs<NumberTokenMetadata>();
  if (right.type != TokenType::number || rightNumber == nullptr || tokens.size() < 2) return false;
  const Token& whitespace = tokens[tokens.size() - 1];
  const Token& left = tokens[tokens.size() - 2];
  if (whitespace.type != TokenType::whitespace || left.type != TokenType::number) return false;
  const Decimal& rightValue = rightNumber->decimalValue;
  if (rightValue.isZero() || !(rightValue < Decimal(1))) return false;

  const std::optional<Decimal> value = context.numberDetector.decimalValueOf(left.stringValue + right.stringValue);
  if (!value) return false;
  std::string text = left.stringValue + whitespace.stringValue + right.stringValue;
  const NSRange range{left.range.location, left.range.length + whitespace.range.length + right.range.length};
  tokens.pop_back();
  tokens.back() = numberToken(*value, std::move(text), range);
  return true;
}

}  // namespace

Token tokenFor(std::string_view fragment, NSRange range, LexemeType type, const PassContext& context) {
  if (type == LexemeType::number) {
    if (const std::optional<Decimal> value = context.numberDetector.decimalValueOf(fragment)) {
      return numberToken(*value, std::string(fragment), range);
    }
  }
  if (type == LexemeType::whitespace) return {TokenType::whitespace, fragment, range};
  if (context.variables.isNotEmpty()) {
    if (std::optional<Token> token = variableToken(fragment, range, context)) return *std::move(token);
  }
  const HashedWord word(fragment);
  if (context.content.traditionalFunctionList->mayKnow(word)) {
    if (std::optional<Token> token = functionToken(word, range, context)) return *std::move(token);
  }
  if (context.subsheets != nullptr && context.subsheets->knows(fragment)) {
    if (auto subsheet =
            context.subsheets->evaluatedSubsheetWith(LineReference{std::string(fragment)}, context.variables)) {
      return {TokenType::subsheet,
              TokenSubType::notSpecified,
              std::string(fragment),
              range,
              nullptr,
              std::make_shared<const SubsheetTokenMetadata>(*std::move(subsheet))};
    }
  }
  if (!context.customization.customFunctions().empty()) {
    if (const CustomType* custom = context.content.customFunctionsList->customTypeFor(fragment)) {
      return customTypeToken(*custom, std::string(fragment), range);
    }
  }
  Token token = context.content.fixturesList->mayKnow(word) ? fixtureToken(word, range, context)
                                                            : Token(TokenType::unidentified, fragment, range);
  token.textHash = word.hash;
  return token;
}

Token customTypeToken(const CustomType& type, std::string text, NSRange range) {
  return {TokenType::customType,
          TokenSubType::notSpecified,
          std::move(text),
          range,
          nullptr,
          std::make_shared<const CustomTypeTokenMetadata>(type)};
}

TokenList commentOver(std::string_view line) {
  const NSRange range{0, static_cast<std::uint32_t>(utf16Length(line))};
  return TokenList(std::vector<Token>{Token(TokenType::wordComment, std::string(line), range)});
}

namespace passes {

void lexemesFor(TokenList&, const PassContext& context) {
  context.scratch.lexemes = Lexer::lexemesFor(context.rawExpression, context.customization.locale());
}

void tokensForLexemes(TokenList& list, const PassContext& context) {
  if (context.scratch.lexemes.size() > kMaximumTokenCount) {
    list = commentOver(context.rawExpression);
    return;
  }
  std::vector<Token> tokens;
  tokens.reserve(context.scratch.lexemes.size());
  for (const Lexeme& lexeme : context.scratch.lexemes) {
    if (lexeme.type == LexemeType::whitespace) {
      tokens.emplace_back(TokenType::whitespace, lexeme.string, lexeme.range);
      continue;
    }
    Token token = tokenFor(lexeme.string, lexeme.range, lexeme.type, context);
    if (fuseWithPreviousWord(tokens, token)) continue;
    if (fusedNumberWhitespaceNumber(tokens, token, context)) continue;
    tokens.push_back(std::move(token));
  }
  list = TokenList(std::move(tokens));
}

}  // namespace passes

}  // namespace tavrine
