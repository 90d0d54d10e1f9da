// Text between quotation marks: its length, its ends, what it comes to as a line.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Evaluation/TextEvaluation.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{countOfLiteral, extractLiteralPrefix, extractLiteralSuffix, parseLiteral};

const Token* literalIn(Arguments arguments) {
  for (const Token& argument : arguments) {
    if (argument.is(TokenType::literal)) return &argument;
  }
  return nullptr;
}

/// The number among the arguments as a count of characters; 0 for a negative one.
std::optional<std::int64_t> countIn(Arguments arguments) {
  for (const Token& argument : arguments) {
    if (argument.is(TokenType::literal)) continue;
    const std::optional<Decimal> number = decimalOf(argument);
    if (!number || number->isNaN()) continue;
    return std::max<std::int64_t>(number->rounded(0, RoundingMode::plain).intValue(), 0);
  }
  return std::nullopt;
}

enum class End : std::uint8_t { front, back };

/// So many characters from the one end or the other; the whole text where it has no more.
Answer charactersAt(End end, const std::string& text, std::optional<std::int64_t> count) {
  if (!count) return std::nullopt;
  const std::vector<std::string_view> characters = clustersOf(text);
  const auto taken = static_cast<std::size_t>(std::min<std::uint64_t>(static_cast<std::uint64_t>(*count),  //
                                                                      characters.size()));
  const std::size_t first = end == End::front ? 0 : characters.size() - taken;
  std::string result;
  for (std::size_t i = first; i < first + taken; ++i) result.append(characters[i]);
  return EvaluationResult::rawString(std::move(result));
}

Answer evaluateLiteralFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  const Token* literal = literalIn(arguments);
  if (literal == nullptr) return std::nullopt;
  switch (identifier) {
    case countOfLiteral:
      return EvaluationResult::decimal(Decimal(static_cast<std::int64_t>(clusterCount(literal->stringValue))));
    case extractLiteralPrefix:
      return charactersAt(End::front, literal->stringValue, countIn(arguments));
    case extractLiteralSuffix:
      return charactersAt(End::back, literal->stringValue, countIn(arguments));
    case parseLiteral:
      return resultOf(resultOfText(literal->stringValue).tokenized());
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kLiteralFunctionHandler{kHandled, evaluateLiteralFunction};

}  // namespace tavrine
