#include "TavrineCore/Parsing/Squad/Parser.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContentCache.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Primitives/SubsheetList.h"
#include "TavrineCore/Parsing/Squad/PassContext.h"
#include "TavrineCore/Parsing/Squad/SimpleTokens.h"
#include "TavrineCore/Parsing/Tokens/EvaluationSeam.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

/// The deepest nesting that the brackets of the line can come to, paired or not.
std::size_t bracketDepth(std::string_view line) {
  std::size_t depth = 0;
  std::size_t deepest = 0;
  for (const char c : line) {
    if (c == '(') deepest = std::max(deepest, ++depth);
    if (c == ')' && depth > 0) --depth;
  }
  return deepest;
}

bool isPending(const Subsheet& subsheet) {
  const std::optional<Token> result = tokenOfResult(subsheet);
  return result && result->type == TokenType::pending;
}

}  // namespace

Parser::Parser(EngineCustomization customization, std::shared_ptr<SubsheetList> subsheetList)
    : engineCustomization_(std::move(customization)),
      subsheetList_(std::move(subsheetList)),
      engineContent_(EngineContentCache::engineContentFor(engineCustomization_)),
      numberDetector_(engineCustomization_.locale(),
                      engineCustomization_.featureFlags().misplacedThousandsSeparatorBehavior) {}

TokenList Parser::run(ParsePhase last, std::string_view expression, const VariableList& variables,
                      const StageObserver* observer) const {
  // A short line is within all limits: bytes bound UTF-16 units, and units bound tokens and brackets.
  if (expression.size() > kMaximumNesting) {
    const bool tooLong = expression.size() > kMaximumLineLength && utf16Length(expression) > kMaximumLineLength;
    if (tooLong || bracketDepth(expression) > kMaximumNesting) return commentOver(expression);
  }
  ParseScratch scratch;
  const PassContext context{.parser = *this,
                            .customization = engineCustomization_,
                            .features = engineCustomization_.featureFlags(),
                            .content = *engineContent_,
                            .numberDetector = numberDetector_,
                            .variables = variables,
                            .subsheets = subsheetList_.get(),
                            .rawExpression = expression,
                            .scratch = scratch};
  TokenList list;
  runStages(ParsePhase::simple, last, list, context, observer);
  return list;
}

TokenList Parser::tokensFor(std::string_view rawExpression, const VariableList& variables) const {
  return run(ParsePhase::guard, rawExpression, variables, nullptr);
}

TokenList Parser::tokensFor(std::string_view rawExpression, const VariableList& variables,
                            const StageObserver& observer) const {
  return run(ParsePhase::guard, rawExpression, variables, &observer);
}

TokenList Parser::simpleTokenListFrom(std::string_view expression, const VariableList& variables) const {
  return run(ParsePhase::simple, expression, variables, nullptr);
}

TokenList Parser::tokenListForPrototypeMatching(std::string_view expression) {
  const bool isChinese = Locale::current().isChinese();
  const Parser parser(isChinese ? EngineCustomization::basic() : EngineCustomization::usStandard());
  TokenList list = parser.simpleTokenListFrom(expression, VariableList());
  identifyLabels(list);
  list.wrapBracketsInSubexpressions();
  return list;
}

TokenList Parser::parseInBackground(std::string_view rawExpression, const VariableList& variables) const {
  TokenList list = tokensFor(rawExpression, variables);
  if (!evaluatePendingSubsheetsIn(list, variables)) return list;
  return tokensFor(rawExpression, variables);
}

bool Parser::evaluatePendingSubsheetsIn(const TokenList& list, const VariableList& variables) const {
  if (!subsheetList_) return false;
  bool anyEvaluated = false;
  for (const Token& token : list.allTokensOfType(TokenType::subsheet)) {
    const auto* metadata = token.metadataAs<SubsheetTokenMetadata>();
    if (metadata == nullptr || !isPending(metadata->subsheet)) continue;
    const auto subsheet = subsheetList_->evaluateSubsheetInBackground(metadata->subsheet.identifier, variables, {});
    if (subsheet && !isPending(*subsheet)) anyEvaluated = true;
  }
  return anyEvaluated;
}

}  // namespace tavrine
