#include "TavrineCore/Evaluation/WordFunctionEvaluation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Evaluation/TokenEvaluation.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

std::vector<EvaluationResult> customArgumentsOf(const Token& call) {
  std::vector<EvaluationResult> results;
  auto found = CustomFunctionSubstitutionUtility::functionArgumentsFor(call);
  if (!found) return results;
  results.reserve(found->size());
  for (CustomFunctionArgument& argument : *found) results.push_back(std::move(argument.functionArgument));
  return results;
}

namespace {

struct PartInWords {
  std::string_view word;
  int parts;
};

constexpr auto kPartsInWords = std::to_array<PartInWords>({
    {"third", 3},
    {"thirds", 3},
    {"quarter", 4},
    {"quarters", 4},
    {"fourth", 4},
    {"fourths", 4},
    {"fifth", 5},
    {"fifths", 5},
    {"sixth", 6},
    {"sixths", 6},
    {"seventh", 7},
    {"sevenths", 7},
    {"eighth", 8},
    {"eighths", 8},
    {"ninth", 9},
    {"ninths", 9},
    {"tenth", 10},
    {"tenths", 10},
});

/// What "a third of 90" and "two thirds of 90" take of the 90. No gap holds it: the words are those of the phrase.
std::optional<Token> fractionInWords(const TokenList& phrase) {
  Decimal count(1);
  for (std::size_t i = 0; i < phrase.count(); ++i) {
    const Token& token = phrase[i];
    const std::string word = lowercased(token.stringValue);
    const auto* part = std::find_if(kPartsInWords.begin(), kPartsInWords.end(),
                                    [&word](const PartInWords& row) { return row.word == word; });
    if (part != kPartsInWords.end()) {
      return Token(TokenType::fraction, TokenSubType::notSpecified, token.stringValue, token.range, nullptr,
                   std::make_shared<const FractionTokenMetadata>(Fraction{count / Decimal(part->parts), std::nullopt}));
    }
    if (token.is(TokenType::numberWord) && token.hasDecimalValue()) count = token.decimalValue();
  }
  return std::nullopt;
}

}  // namespace

std::vector<Token> builtInArgumentsOf(const Token& call) {
  std::vector<Token> tokens;
  const auto* metadata = call.metadataAs<WordFunctionTokenMetadata>();
  if (metadata == nullptr || metadata->sequence == nullptr || !call.subtokens) return tokens;
  for (CustomFunctionArgument& argument : CustomFunctionSubstitutionUtility::functionArgumentsFor(
           *call.subtokens, *metadata->sequence, WordArguments::passed)) {
    tokens.push_back(std::move(argument.matchedToken));
  }
  if (tokens.size() == 1 && call.functionIdentifier() == FunctionIdentifier::percentOf) {
    if (std::optional<Token> fraction = fractionInWords(*call.subtokens)) tokens.insert(tokens.begin(), *fraction);
  }
  return tokens;
}

namespace {

Token evaluateCustom(const Token& token) {
  const auto* call = token.metadataAs<CustomFunctionTokenMetadata>();
  if (call == nullptr || call->sequence == nullptr || !token.subtokens || !call->customFunction.handler()) {
    return Token();
  }
  const std::vector<EvaluationResult> arguments = customArgumentsOf(token);
  if (const EvaluationResult* held = pendingOrFailureResult(arguments)) return held->tokenized();
  try {
    return call->customFunction.handler()(arguments).tokenized();
  } catch (const std::exception& error) {
    diagnose(std::string("A custom function failed: ").append(error.what()));
  } catch (...) {
    diagnose("A custom function failed");
  }
  return failedToken();
}

/// The places of the arguments that the gaps of the phrase ask for: 2, 1 in "what % of 2 is 1". Nothing for a phrase
/// that leaves its arguments as they come, "10 choose 10".
std::vector<std::size_t> placesIn(std::string_view phrase, std::size_t argumentCount) {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < phrase.size(); ++i) {
    const auto isDigit = [&](std::size_t at) { return at < phrase.size() && phrase[at] >= '0' && phrase[at] <= '9'; };
    if (!isDigit(i)) continue;
    const std::size_t place = static_cast<std::size_t>(phrase[i] - '1');
    const bool isTold = std::find(places.begin(), places.end(), place) != places.end();
    if (isDigit(i + 1) || place >= argumentCount || isTold) return {};
    places.push_back(place);
  }
  return places.size() == argumentCount ? places : std::vector<std::size_t>();
}

/// The arguments in the places that the phrase gives them.
std::vector<Token> inPlacesOf(const Function& function, std::vector<Token> arguments) {
  const std::vector<std::size_t> places = placesIn(function.prototypeExpression, arguments.size());
  if (places.empty()) return arguments;
  std::vector<Token> ordered(arguments.size());
  for (std::size_t i = 0; i < places.size(); ++i) ordered[places[i]] = std::move(arguments[i]);
  return ordered;
}

Token evaluateBuiltIn(const Token& token) {
  const auto* call = token.metadataAs<WordFunctionTokenMetadata>();
  if (call == nullptr || call->sequence == nullptr || !token.subtokens) return Token();
  std::vector<Token> arguments = builtInArgumentsOf(token);
  if (const Token* held = pendingOrFailureToken(arguments)) return *held;
  const bool asksForPlace = std::any_of(arguments.begin(), arguments.end(),
                                        [](const Token& argument) { return argument.is(TokenType::dynamicPlace); });
  if (asksForPlace) return pendingToken();
  arguments = inPlacesOf(call->function, std::move(arguments));
  return WordFunctionHandlers::evaluate(call->function.identifier, arguments, call->customization);
}

}  // namespace

Token evaluateWordFunction(const Token& token) {
  return token.subType == TokenSubType::customWordFunction ? evaluateCustom(token) : evaluateBuiltIn(token);
}

}  // namespace tavrine
