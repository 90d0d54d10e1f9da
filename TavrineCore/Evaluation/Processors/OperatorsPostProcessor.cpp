#include <string_view>

#include "TavrineCore/Evaluation/Processors/TokenListProcessor.h"

namespace tavrine {

namespace {

/// The canonical text of the operator; its own where it has none, or may stay as it is.
std::string_view canonicalText(const Token& token) {
  switch (token.subType) {
    case TokenSubType::additionOperator:
      return "+";
    case TokenSubType::subtractionOperator:
      return "-";
    case TokenSubType::multiplicationOperator:
      return token.stringValue == "x" ? std::string_view("x") : std::string_view("*");
    case TokenSubType::divisionOperator:
      return "/";
    default:
      return token.stringValue;
  }
}

}  // namespace

void OperatorsPostProcessor::process(EditableTokenList& list) {
  forEachToken(list, TokenTypeSet::operatorSet, [](EditableTokenList& tokens, std::size_t index, const Token*) {
    const std::string_view text = canonicalText(tokens[index]);
    if (text == tokens[index].stringValue) return index;
    Token canonical = tokens[index];
    canonical.stringValue = std::string(text);
    canonical.textHash = 0;
    return tokens.replace(index, index, std::move(canonical));
  });
}

}  // namespace tavrine
