#include <optional>
#include <utility>
#include <vector>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Processors/TokenListProcessor.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"

namespace tavrine {

namespace {

constexpr TokenTypeSet kQuotationMarksAndComments{TokenType::wordComment, TokenType::quotationMark};

/// "x = 5 + 3" is worth its right side.
void removeLeftSideOfVariableDeclarations(EditableTokenList& list) {
  if (!list->typePrecheck(TokenType::equals)) return;
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (!list[i].is(TokenType::equals)) continue;
    list.remove(0, i);
    return;
  }
}

bool isNumberThatMultiplies(const Token* token) {
  return token != nullptr && token->is(TokenType::number) && !token->decimalValue().isSignMinus();
}

Token multiplication(NSRange behind) {
  Token result = operatorToken(TokenSubType::multiplicationOperator, "*");
  result.range = {behind.upperBound(), 1};
  return result;
}

/// "2x" → (2 * x): one operand, so that "1 / 2x" divides by all of it.
std::size_t multiplyVariable(EditableTokenList& list, std::size_t index, const Token* parent) {
  if (parent != nullptr && parent->is(TokenType::datestamp)) return index;
  const auto before = list.previous(index);
  const auto after = list.next(index);
  std::vector<Token> product = {list[index]};
  std::size_t first = index;
  std::size_t last = index;
  if (isNumberThatMultiplies(list.tokenAt(after))) {
    product.push_back(multiplication(list[index].range));
    product.push_back(list[*after]);
    last = *after;
  }
  if (list.is(before, TokenType::number)) {
    product.insert(product.begin(), {list[*before], multiplication(list[*before].range)});
    first = *before;
  }
  if (product.size() == 1) return index;
  return list.replace(first, last, subexpressionOver(std::move(product)));
}

bool standsBetweenQuotationMarks(const EditableTokenList& list, std::size_t index) {
  const Token* before = list.tokenAt(list->indexBefore(index));
  const Token* after = list.tokenAt(list->indexAfter(index));
  return before != nullptr && after != nullptr && kQuotationMarksAndComments.contains(before->type) &&
         kQuotationMarksAndComments.contains(after->type);
}

/// Under a word function the bare value is what the phrase looks for; elsewhere brackets keep the sign of a negative
/// value together with it under a power.
Token inBracketsUnlessForFunction(Token value, NSRange range, const Token* parent) {
  if (parent != nullptr && parent->is(TokenType::wordFunction)) return value;
  Token bracket = subexpressionOver({std::move(value)});
  bracket.range = range;
  return bracket;
}

}  // namespace

void VariablesAndSubsheetsPostProcessor::process(EditableTokenList& list) {
  if (list->typePrecheck(TokenType::variable)) {
    removeLeftSideOfVariableDeclarations(list);
    forEachToken(list, TokenType::variable, multiplyVariable);
    const CalendarEnvironment environment(customization().calendar(), customization().holidays());
    forEachToken(list, TokenType::variable, [&](EditableTokenList& tokens, std::size_t index, const Token* parent) {
      const Token& variable = tokens[index];
      std::optional<Token> value = variable.expandedVariable();
      if (!value) return index;
      if (value->is(TokenType::literal) && standsBetweenQuotationMarks(tokens, index)) {
        return tokens.replace(index, index, Token(TokenType::literal, variable.stringValue, variable.range));
      }
      // A variable that holds an error reads as nothing, and doesn't take the line with it.
      *value = value->is(TokenType::error) ? Token() : value->withCalendarEnvironment(environment);
      const NSRange range = variable.range;
      return tokens.replace(index, index, inBracketsUnlessForFunction(std::move(*value), range, parent));
    });
  }
  forEachToken(list, TokenType::subsheet, [](EditableTokenList& tokens, std::size_t index, const Token* parent) {
    std::optional<Token> value = tokens[index].expandedVariable();
    if (!value) return index;
    const NSRange range = tokens[index].range;
    return tokens.replace(index, index, inBracketsUnlessForFunction(std::move(*value), range, parent));
  });
}

}  // namespace tavrine
