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

#include "Foundation/Calendar.h"
#include "Foundation/Diagnostics.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/CustomFunctionSubstitutionUtility.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/HandlerArithmetic.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Evaluation/TokenEvaluation.h"
#include "TavrineCore/Parsing/Primitives/CalendarEnvironment.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"
#include "TavrineCore/Parsing/Prototypes/TokenPrototypes.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
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
    const bool isCount = token.is(TokenType::numberWord) || token.is(TokenType::number);
    if (isCount && token.hasDecimalValue()) count = token.decimalValue();
  }
  return std::nullopt;
}

bool says(const TokenList& phrase, std::string_view word) {
  return std::any_of(phrase.begin(), phrase.end(),
                     [word](const Token& token) { return lowercased(token.stringValue) == word; });
}

/// "tomorrow's weather in Paris": the day, which no gap holds.
std::optional<Token> dayOwning(const TokenList& phrase) {
  struct Owner {
    std::string_view word;
    int daysFromToday;
    DatestampType type;
  };
  static constexpr auto kOwners = std::to_array<Owner>({{"today's", 0, DatestampType::today},
                                                        {"today’s", 0, DatestampType::today},
                                                        {"tomorrow's", 1, DatestampType::tomorrow},
                                                        {"tomorrow’s", 1, DatestampType::tomorrow}});
  const std::string first = phrase.count() == 0 ? std::string() : lowercased(phrase[0].stringValue);
  const auto* owner =
      std::find_if(kOwners.begin(), kOwners.end(), [&first](const Owner& row) { return row.word == first; });
  if (owner == kOwners.end()) return std::nullopt;
  const Calendar calendar = Calendar::current();
  constexpr std::int64_t kNoon = 12;
  const auto day = calendar.dateByAdding(Calendar::Component::day, owner->daysFromToday,
                                         calendar.startOfDay(foundation::Date::now()));
  const auto noon = day ? calendar.dateByAdding(Calendar::Component::hour, kNoon, *day) : std::nullopt;
  if (!noon) return std::nullopt;
  return TokenFactory::datestampWith({.date = *noon, .type = owner->type, .timezone = calendar.timeZone()},
                                     CalendarEnvironment(calendar));
}

/// What "3 squared" and "twice 45" multiply by.
Token factorInWords(const TokenList& phrase, const Token& value) {
  struct Factor {
    std::string_view word;
    int factor;
  };
  static constexpr auto kFactors =
      std::to_array<Factor>({{"double", 2}, {"twice", 2}, {"triple", 3}, {"treble", 3}, {"quadruple", 4}});
  for (const Factor& row : kFactors) {
    if (says(phrase, row.word)) return TokenFactory::numberWith(Decimal(row.factor));
  }
  return says(phrase, "cubed") || says(phrase, "cube") ? product(value, value) : value;
}

/// What a phrase without a gap is about: "what time is it", "what day is it".
std::optional<Token> hereOrNow(FunctionIdentifier identifier) {
  const Calendar calendar = Calendar::current();
  switch (identifier) {
    case FunctionIdentifier::timeInTimezone:
    case FunctionIdentifier::dateInTimezone:
      return TokenFactory::timezoneWith(calendar.timeZone());
    case FunctionIdentifier::dayOfWeekOnDate:
      return TokenFactory::datestampWith(
          {.date = foundation::Date::now(), .type = DatestampType::now, .timezone = calendar.timeZone()},
          CalendarEnvironment(calendar));
    default:
      return std::nullopt;
  }
}

bool isGap(const TokenPrototype& prototype) {
  const bool isBlank = prototype.kind() == TokenPrototype::Kind::type &&
                       static_cast<const TypeTokenPrototype&>(prototype).type() == TokenType::whitespace;
  return !isBlank && prototype.kind() != TokenPrototype::Kind::literal;
}

/// What a phrase hands over besides its gaps: words of its own, or the one value in a second place.
void addUntoldArguments(const PrototypeSequence& sequence, FunctionIdentifier identifier, const TokenList& phrase,
                        std::vector<Token>& arguments) {
  const auto gaps = std::count_if(sequence.prototypes().begin(), sequence.prototypes().end(),
                                  [](const auto& prototype) { return isGap(*prototype); });
  if (gaps == 0) {
    if (std::optional<Token> subject = hereOrNow(identifier)) arguments.push_back(*std::move(subject));
    return;
  }
  if (weatherFunctionIdentifiers.contains(identifier)) {
    if (std::optional<Token> day = dayOwning(phrase)) arguments.push_back(*std::move(day));
    return;
  }
  if (arguments.size() == 3 && identifier == FunctionIdentifier::multipliedBy) {
    arguments = {product(arguments[0], arguments[1]), arguments[2]};
  }
  if (arguments.size() != 1) return;
  switch (identifier) {
    case FunctionIdentifier::differenceBetweenTimezones:
      // "how many hours ahead is Tokyo": of here.
      if (gaps == 1) arguments.insert(arguments.begin(), TokenFactory::timezoneWith(Calendar::current().timeZone()));
      break;
    case FunctionIdentifier::percentOf:
      if (std::optional<Token> fraction = fractionInWords(phrase)) arguments.insert(arguments.begin(), *fraction);
      break;
    case FunctionIdentifier::calendarUnitExpressionBeforeDate:
    case FunctionIdentifier::calendarUnitExpressionAfterDate:
      // "day after tomorrow": one day of the word.
      if (const Token* unit = phrase.firstTokenOfType(TokenType::unit)) arguments.insert(arguments.begin(), *unit);
      break;
    case FunctionIdentifier::multipliedBy:
      arguments.push_back(factorInWords(phrase, arguments[0]));
      break;
    case FunctionIdentifier::permutation:  // all of them in all orders: the factorial
      arguments.push_back(arguments[0]);
      break;
    default:
      break;
  }
}

/// Functions for which any word only fills the line: "3 shirts at $15 each".
constexpr FunctionIdentifierSet kWithoutWords{FunctionIdentifier::multipliedBy, FunctionIdentifier::reversedPercentOff};

}  // namespace

std::vector<Token> builtInArgumentsOf(const Token& call) {
  std::vector<Token> tokens;
  const auto* metadata = call.metadataAs<WordFunctionTokenMetadata>();
  if (metadata == nullptr || metadata->sequence == nullptr || !call.subtokens) return tokens;
  const FunctionIdentifier identifier = metadata->function.identifier;
  const WordArguments words = kWithoutWords.contains(identifier) ? WordArguments::leftOut : WordArguments::passed;
  for (CustomFunctionArgument& argument :
       CustomFunctionSubstitutionUtility::functionArgumentsFor(*call.subtokens, *metadata->sequence, words)) {
    tokens.push_back(std::move(argument.matchedToken));
  }
  addUntoldArguments(*metadata->sequence, identifier, *call.subtokens, tokens);
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

/// "how far ahead is Tokyo of London" counts from the place that is named last.
bool countsFromTheLast(const Function& function) {
  const std::string_view phrase = function.prototypeExpression;
  constexpr auto kPhrases =
      std::to_array<std::string_view>({"ahead is __timezone ", "__timezone ahead of", "behind __timezone is"});
  return function.identifier == FunctionIdentifier::differenceBetweenTimezones &&
         std::any_of(kPhrases.begin(), kPhrases.end(),
                     [phrase](std::string_view words) { return phrase.find(words) != std::string_view::npos; });
}

/// The arguments in the places that the phrase gives them.
std::vector<Token> inPlacesOf(const Function& function, std::vector<Token> arguments) {
  if (arguments.size() == 2 && countsFromTheLast(function)) std::swap(arguments[0], arguments[1]);
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
