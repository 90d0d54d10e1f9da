// Every phrase of the resource file, filled in with values, is found where it stands and calls its own function.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstddef>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Customization/Functions/FunctionVendor.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Parsing/ParsingLimits.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using enum FunctionIdentifier;

struct Sample {
  std::string_view placeholder;
  std::array<std::string_view, 2> values;  // of the first gap of the kind, and of the second
};

/// What stands for a gap of a type.
constexpr auto kSamples = std::to_array<Sample>({
    {"__decimal", {"12", "18"}},
    {"__percentage", {"15%", "20%"}},
    {"__timespan", {"3 days", "2 weeks"}},
    {"__laptime", {"00:01:20.5", "00:02:30.5"}},
    {"__unit_expression", {"30 km", "20 km"}},
    {"__unit", {"km", "miles"}},
    {"__rate", {"$5 per hour", "$6 per hour"}},
    {"__datestamp", {"3 March 2026", "5 June 2026"}},
    {"__datespan", {"3 - 5 June 2026", "7 - 9 July 2026"}},
    {"__timezone", {"London", "Sydney"}},
    {"__substance", {"flour", "sugar"}},
    {"__frametime", {"00:01:20:05", "00:02:30:05"}},
    {"__resolution", {"1920 x 1080", "800 x 600"}},
    {"__list", {"3, 5 and 9", "2, 4 and 8"}},
    {"__statistic_type", {"average", "median"}},
    {"__any_word", {"foo", "bar"}},
    {"__literal", {"\"one two\"", "\"three\""}},
    {"__unit_rate", {"$5 per hour", "$6 per hour"}},
    {"__percentage_rate", {"4% per year", "5% per year"}},
    {"__decimal_rate", {"4 per year", "5 per year"}},
    {"__at", {"at", "@"}},
    {"__converter_symbol", {"in", "to"}},
    {"__times", {"x", "times"}},
    {"__duration", {"hour", "minute"}},
    {"__duration_expression", {"3 hours", "20 minutes"}},
    {"__length", {"km", "miles"}},
    {"__length_expression", {"30 km", "20 miles"}},
    {"__mass", {"grams", "kg"}},
    {"__mass_expression", {"300 grams", "2 kg"}},
    {"__volume", {"cups", "litres"}},
    {"__volume_expression", {"3 cups", "2 litres"}},
    {"__currency", {"USD", "EUR"}},
    {"__currency_expression", {"$30", "$20"}},
    {"__speed_expression", {"60 mph", "90 km/h"}},
    {"__power_expression", {"50 kW", "20 kW"}},
    {"__frames", {"frames", "frames"}},
    {"__frames_expression", {"250 frames", "100 frames"}},
    {"__frameRate_expression", {"25 fps", "30 fps"}},
    {"__frequency_expression", {"50 Hz", "60 Hz"}},
    {"__angularVelocity_expression", {"800 rpm", "900 rpm"}},
    {"__screenDensity_expression", {"300 ppi", "200 ppi"}},
});

/// Gaps of values that nobody can type: tags have to be declared, and a timestamp comes from a variable.
constexpr std::array<std::string_view, 2> kUntypedGaps{"__tag", "__timestamp"};

bool canBeTyped(std::string_view phrase) {
  return std::none_of(kUntypedGaps.begin(), kUntypedGaps.end(),
                      [&](std::string_view gap) { return phrase.find(gap) != std::string_view::npos; });
}

/// What stands for a gap that takes any value to calculate with.
enum class Filling { number, amount, brackets };

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string arithmeticSample(Filling filling, std::size_t index) {
  constexpr std::array<std::string_view, 4> kNumbers{"12", "18", "24", "36"};
  const std::string number(kNumbers[index % kNumbers.size()]);
  switch (filling) {
    case Filling::number:
      return number;
    case Filling::amount:
      return number + " km";
    case Filling::brackets:
      return '(' + number + " + 1)";
  }
  return number;
}

/// The phrase with values in its gaps; nothing where a gap of it can't take such a value.
std::optional<std::string> filledIn(std::string_view phrase, Filling filling) {
  std::string line;
  std::size_t numbers = 0;
  std::array<std::size_t, kSamples.size()> uses{};
  for (std::size_t i = 0; i < phrase.size();) {
    if (isDigit(phrase[i])) {
      std::size_t end = i;
      while (end < phrase.size() && isDigit(phrase[end])) ++end;
      const bool standsFree = (i == 0 || phrase[i - 1] == ' ') && (end == phrase.size() || phrase[end] == ' ');
      const bool touchesAnother = phrase.substr(end).starts_with(" 10") || phrase.substr(end).starts_with(" 30");
      if ((!standsFree || touchesAnother) && filling != Filling::number) return std::nullopt;
      line += arithmeticSample(filling, numbers++);
      i = end;
      continue;
    }
    if (!phrase.substr(i).starts_with(PrototypeTypePlaceholders::prototypePrefix)) {
      line += phrase[i++];
      continue;
    }
    std::size_t end = i;
    while (end < phrase.size() && (std::isalnum(static_cast<unsigned char>(phrase[end])) != 0 || phrase[end] == '_')) {
      ++end;
    }
    const auto* sample = std::find_if(kSamples.begin(), kSamples.end(), [&](const Sample& candidate) {
      return candidate.placeholder == phrase.substr(i, end - i);
    });
    if (sample == kSamples.end()) return std::nullopt;
    std::size_t& use = uses[static_cast<std::size_t>(sample - kSamples.begin())];
    line += sample->values[use++ % 2];
    i = end;
  }
  return line;
}

TokenList tokensOf(std::string_view line) {
  return Parser(EngineCustomization::usStandard()).tokensFor(line, VariableList());
}

/// The function that the line calls from its first letter to its last. The word in front stands for what people say
/// before they ask: a line of values and operators alone is a sum, in which nobody looks for phrases.
std::optional<FunctionIdentifier> calledBy(std::string_view line) {
  const TokenList list = tokensOf(std::string("please ").append(line));
  // A phrase that has a gap for any word before the same words takes the one before: "monthly growth from 10 to 20".
  if (list.count() == 1) return list[0].functionIdentifier();
  return list.count() == 3 ? list[2].functionIdentifier() : std::nullopt;
}

/// A phrase without a gap has to be the whole line: words alone are a comment.
std::optional<FunctionIdentifier> calledByAlone(std::string_view line) {
  const TokenList list = tokensOf(line);
  return list.count() == 1 ? list[0].functionIdentifier() : std::nullopt;
}

/// Calls of another function that take the whole of a phrase, and are right to.
struct Precedence {
  FunctionIdentifierSet functions;
  FunctionIdentifier winner;
};

constexpr auto kPrecedences = std::to_array<Precedence>({
    // "smallest of 3 and 9" begins with the name of a statistic, which takes the whole list, however long it is. The
    // phrases of two values remain for values that make no list: "smallest of sqrt(9) and 5".
    {{lesserOf, greaterOf, gcd, lcm}, statisticOfList},
});

bool mayCall(FunctionIdentifier own, std::optional<FunctionIdentifier> called) {
  return called == own || std::any_of(kPrecedences.begin(), kPrecedences.end(), [&](const Precedence& precedence) {
           return precedence.functions.contains(own) && precedence.winner == called;
         });
}

/// Phrases for lines that the samples don't make.
constexpr auto kForOtherLines = std::to_array<std::string_view>({
    "__datestamp __duration ago",  // 2000 in "2000 days ago" is a year
    "adjust 10 from 10 to today",  // a year stands there, and a sum of money
    "10!",                         // beside words the sign is an exclamation mark
    "root of 10",                  // the word in front is asked for the degree: "fourth root of 10"
});

std::set<std::string, std::less<>> spelledPhrases() {
  std::set<std::string, std::less<>> phrases;
  const auto descriptions = StaticResouces::localizedFunctions();
  for (const FunctionDescription& description : *descriptions) {
    for (const SharedText& phrase : description.prototypeExpressions) phrases.insert(phrase.string());
  }
  return phrases;
}

/// What is wrong with the call that the filled-in phrase makes.
std::optional<std::string> faultOf(const Function& function, const std::string& line, bool isSpelled) {
  const bool hasGap = line != function.prototypeExpression;
  const std::optional<FunctionIdentifier> called = hasGap ? calledBy(line) : calledByAlone(line);
  // Not all wordings that the generator makes are grammatical; these must only not ask for something else.
  if (mayCall(function.identifier, called) || (!called && !isSpelled)) return std::nullopt;
  return '"' + function.prototypeExpression.string() + "\" of " + std::string(toString(function.identifier)) +
         ", as \"" + line + "\", calls " + (called ? std::string(toString(*called)) : "nothing as a whole");
}

TEST(PhraseTable, EveryPhraseCallsItsFunction) {
  const foundation::ScopedEnvironment world(worldAt("2026-06-10T09:30:00Z", "UTC", "en_US"));
  const std::set<std::string, std::less<>> spelled = spelledPhrases();
  const std::vector<Function> functions = FunctionVendor::functionsFor(EngineCustomization::usStandard());
  ASSERT_GT(functions.size(), 1000u);
  for (const Function& function : functions) {
    const std::string phrase = function.prototypeExpression.string();
    if (!canBeTyped(phrase) ||
        std::find(kForOtherLines.begin(), kForOtherLines.end(), phrase) != kForOtherLines.end()) {
      continue;
    }
    ASSERT_TRUE(filledIn(phrase, Filling::number)) << "no sample for a gap of " << phrase;
    const bool hasLooseGap = std::any_of(phrase.begin(), phrase.end(), isDigit);
    for (const Filling filling : {Filling::number, Filling::amount, Filling::brackets}) {
      if (filling != Filling::number && (!hasLooseGap || !spelled.contains(phrase))) break;
      const std::optional<std::string> line = filledIn(phrase, filling);
      const std::optional<std::string> fault = line ? faultOf(function, *line, spelled.contains(phrase)) : std::nullopt;
      if (fault) ADD_FAILURE() << *fault;
    }
  }
}

std::size_t nestingOf(const TokenList& list) {
  std::size_t deepest = 0;
  for (const Token& token : list) {
    if (token.subtokens) deepest = std::max(deepest, 1 + nestingOf(*token.subtokens));
  }
  return deepest;
}

/// Keeps its text, within the bounds of nesting, and its evaluation comes to an end.
void expectSound(const std::string& line) {
  const TokenList list = tokensOf(line);
  EXPECT_EQ(list.rebuiltExpression(), line);
  EXPECT_LE(nestingOf(list), kMaximumNesting + 1) << line;
  Calculator(EngineCustomization::usStandard()).calculate(line);
}

TEST(PhraseTable, PhrasesSideBySideAndInsideOfEachOtherStayBounded) {
  const foundation::ScopedEnvironment world(worldAt("2026-06-10T09:30:00Z", "UTC", "en_US"));
  const std::vector<Function> functions = FunctionVendor::functionsFor(EngineCustomization::usStandard());
  constexpr std::size_t kPairs = 400;
  constexpr std::size_t kStride = 7919;  // a prime, so that the partners differ
  for (std::size_t i = 0; i < kPairs; ++i) {
    const std::string left = functions[i * functions.size() / kPairs].prototypeExpression.string();
    const std::string right = functions[i * kStride % functions.size()].prototypeExpression.string();
    const auto first = filledIn(left, Filling::number);
    const auto second = filledIn(right, Filling::brackets);
    expectSound(first.value_or(left) + ' ' + second.value_or(right));
  }
  constexpr std::size_t kDepth = 100;
  constexpr std::size_t kNested = 40;
  for (std::size_t i = 0; i < kNested; ++i) {
    const std::string phrase = functions[i * functions.size() / kNested].prototypeExpression.string();
    if (!phrase.ends_with(" 10")) continue;
    const std::string head = filledIn(phrase.substr(0, phrase.size() - 2), Filling::number).value_or("half of ");
    std::string line;
    for (std::size_t depth = 0; depth < kDepth; ++depth) line += head;
    expectSound(line + "80");
  }
  std::string lists = "5, 3";
  for (std::size_t depth = 0; depth < kNested; ++depth) lists = "(average of " + lists + "), 5";
  expectSound("average of " + lists);
}

TEST(PhraseTable, ProseCallsNothing) {
  const foundation::ScopedEnvironment world(worldAt("2026-06-10T09:30:00Z", "UTC", "en_US"));
  std::ifstream file(TAVRINE_CORPUS_DIR "/prose-with-phrase-words.txt");
  std::size_t count = 0;
  for (std::string line; std::getline(file, line); ++count) {
    for (const Token& call : tokensOf(line).allTokensOfType(TokenType::wordFunction)) {
      ADD_FAILURE() << line << ": \"" << call.stringValue << "\" calls " << toString(*call.functionIdentifier());
    }
  }
  EXPECT_GT(count, 100u);
}

}  // namespace
}  // namespace tavrine::testing
