#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "Foundation/Environment.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Prototypes/InternalParsingSequences.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeExpressionGenerator.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeMatching.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceCache.h"
#include "TavrineCore/Parsing/Prototypes/PrototypeSequenceGenerator.h"
#include "TavrineCore/Parsing/Squad/Parser.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "Tests/Support/World.h"

namespace tavrine::testing {
namespace {

using Mode = PrototypeSequenceGenerator::NumberInterpretationMode;

PrototypeSequenceRef phrase(std::string_view text, Mode mode = Mode::arithmeticEntity) {
  return PrototypeSequenceGenerator::sequenceFor(text, mode);
}

/// A line whose own phrases have not become calls.
TokenList lineOf(std::string_view text) {
  EngineCustomization customization = EngineCustomization::usStandard();
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.wordFunctions = false; });
  return Parser(customization).tokensFor(text, VariableList());
}

bool matches(std::string_view text, std::string_view line, Mode mode = Mode::arithmeticEntity) {
  return phrase(text, mode)->matches(lineOf(line));
}

/// Tokens of a type with these texts, white space between them.
TokenList wordsOf(const std::vector<std::pair<std::string, TokenType>>& words) {
  std::vector<Token> tokens;
  for (const auto& [text, type] : words) {
    if (!tokens.empty()) tokens.emplace_back(TokenType::whitespace, " ", NSRange::zero);
    tokens.emplace_back(type, text, NSRange::zero);
  }
  return TokenList(std::move(tokens)).listWithRecalculatedTokenRanges(0, false);
}

TEST(Prototypes, ReadTheirText) {
  struct Case {
    std::string_view text;
    std::string_view want;
    Mode mode = Mode::arithmeticEntity;
  };
  const auto cases = std::to_array<Case>({
      {"half of __decimal", "[\"half\" <whitespace> \"of\" <whitespace> <number>]"},
      {"__percentage__times", "[<__percentage__times>]"},
      {"__any_word __dynamic_place", "[<word> <whitespace> <place>]"},
      {"__unit __length __length_expression", "[<unit> <whitespace> <unit of length> <whitespace> <length>]"},
      {"__unit_rate __at", "[<unitRate> <whitespace> <prepositionWordAt>]"},
      {"__planet", "[<__planet>]"},
      {"top 5", "[\"top\" <whitespace> <number>]", Mode::arithmeticEntity},
      {"top 5", "[\"top\" <whitespace> \"5\"]", Mode::literalNumber},
      {"30__unit", "[<number> <unit>]", Mode::typedNumber},
      {"(a __tag)", "[[<bracket> \"a\" <whitespace> <hashtag> <bracket>]]"},
      {"", "[]"},
  });
  for (const Case& c : cases) EXPECT_EQ(phrase(c.text, c.mode)->debugDescription(), c.want) << c.text;
}

TEST(Prototypes, KnowWhatALineMustHold) {
  const PrototypeSequenceRef sequence = phrase("HALF of __percentage at __unit_rate __length in __area_expression");
  EXPECT_EQ(sequence->wordsPresent(), (StringSet{"half", "of", "at", "in"}));
  EXPECT_EQ(sequence->typesPresent(), (TokenTypeSet{TokenType::whitespace, TokenType::percentage, TokenType::rate,
                                                    TokenType::unit, TokenType::unitExpression}));
}

TEST(Prototypes, EveryPlaceholderGoesBothWays) {
  for (std::size_t i = 0; i < kTokenTypeCount; ++i) {
    const auto type = static_cast<TokenType>(i);
    const auto placeholder = PrototypeTypePlaceholders::placeholderFor(type);
    if (!placeholder) continue;
    EXPECT_EQ(PrototypeTypePlaceholders::typeFor(*placeholder), type) << *placeholder;
  }
  for (std::size_t i = 0; i < kUnitTypeCount; ++i) {
    const auto type = static_cast<UnitType>(i);
    EXPECT_EQ(PrototypeTypePlaceholders::unitTypeFor(PrototypeTypePlaceholders::placeholderForUnit(type)), type);
    const std::string expression = PrototypeTypePlaceholders::placeholderForUnitExpression(type);
    EXPECT_EQ(PrototypeTypePlaceholders::unitExpressionTypeFor(expression), type) << expression;
  }
}

TEST(Prototypes, MatchWholeLists) {
  struct Case {
    std::string_view text;
    std::string_view line;
    bool want;
    Mode mode = Mode::arithmeticEntity;
  };
  const auto cases = std::to_array<Case>({
      {"half of __decimal", "half of 10", true},
      {"half of __decimal", "HALF of 10", true},
      {"Half of __decimal", "HALF of 10", false},
      {"Half of __decimal", "Half of 10", true},
      {"half of __decimal", "half of ten things", false},
      {"half of __decimal", "half  of 10 ", false},
      {"half of __decimal", "half of (1 + 2)", true},
      {"half of 5", "half of sqrt(4)", true},
      {"half of __decimal", "half of 20%", false},
      {"half of 5", "half of 20%", true},
      {"half of 5", "half of 6", false, Mode::literalNumber},
      {"half of 5", "half of (2 + 3)", false, Mode::literalNumber},
      {"half (of 5)", "half (of 7)", true},
      {"half (of 5)", "half 7", false},
      {"__any_word of 5", "part of 7", true},
      {"__any_word of 5", "3 of 7", false},
  });
  for (const Case& c : cases) EXPECT_EQ(matches(c.text, c.line, c.mode), c.want) << c.text << " | " << c.line;
}

TEST(Prototypes, MatchTokensOfAKind) {
  const auto takes = [](std::string_view text, Token token) {
    TokenList list;
    list.append(std::move(token));
    return phrase(text)->matches(list);
  };
  TCUnit::Record record;
  record.unitType = UnitType::length;
  record.symbol = "km";
  record.converter = {Decimal(1000), Decimal(0)};
  const TCUnit kilometers = TCUnit::counted(record);

  EXPECT_TRUE(takes("__length", TokenFactory::unitWith(kilometers)));
  EXPECT_FALSE(takes("__area", TokenFactory::unitWith(kilometers)));
  EXPECT_TRUE(takes("__length_expression", TokenFactory::unitExpressionWith(Decimal(5), kilometers)));
  EXPECT_FALSE(takes("__area_expression", TokenFactory::unitExpressionWith(Decimal(5), kilometers)));
  EXPECT_FALSE(takes("__length_expression", TokenFactory::unitWith(kilometers)));

  // A fraction is as good as a percentage, but not the other way round.
  const Token fraction = TokenFactory::fractionWith({Decimal(1) / Decimal(4), std::nullopt});
  EXPECT_TRUE(takes("__percentage", fraction));
  TokenList fractionOnly;
  fractionOnly.append(fraction);
  EXPECT_TRUE(slicesMatching(fractionOnly, *phrase("__percentage")));

  const CustomType planet("__planet", {"mars"});
  const Token mars(TokenType::customType, TokenSubType::notSpecified, "mars", NSRange::zero, nullptr,
                   std::make_shared<const CustomTypeTokenMetadata>(planet));
  EXPECT_TRUE(takes("__planet", mars));
  EXPECT_FALSE(takes("__moon", mars));

  // A call fits where its result does; one that tells no type fits a number that may be anything.
  const auto call = [](FunctionIdentifier called) {
    return Token(TokenType::wordFunction, TokenSubType::builtInWordFunction, "half", NSRange::zero, nullptr,
                 std::make_shared<const WordFunctionTokenMetadata>(Function{"", called}, nullptr,
                                                                   EngineCustomization::usStandard()));
  };
  for (std::size_t i = 0; i < kFunctionIdentifierCount; ++i) {
    const auto identifier = static_cast<FunctionIdentifier>(i);
    EXPECT_EQ(takes("__percentage", call(identifier)), returnTypeOf(identifier) == TokenType::percentage);
    EXPECT_TRUE(takes("5", call(identifier)));
    EXPECT_FALSE(takes("half", call(identifier)));
  }
}

TEST(Prototypes, WrapFromTheEndAndOnlyWhatTheBlockWants) {
  const TokenList line = lineOf("1 + 2 + 3 + 4 + 5");
  const std::array sequences{phrase("8 + 8", Mode::typedNumber)};
  const auto slices = slicesMatching(line, *sequences[0]);
  ASSERT_TRUE(slices);
  ASSERT_EQ(slices->size(), 2u) << "matches don't overlap";
  EXPECT_EQ((*slices)[1].stringValue(), "3 + 4");

  std::vector<std::string> asked;
  TokenList wrapped = line;
  wrapMatchesFor(wrapped, sequences, true, [&](const TokenSlice& slice, const PrototypeSequence&) {
    asked.push_back(slice.stringValue());
    if (asked.size() == 1) return std::optional<Token>();
    return std::optional(Token(TokenType::customInternal, slice.stringValue(), slice.range()));
  });
  EXPECT_EQ(asked, (std::vector<std::string>{"3 + 4", "1 + 2"}));
  EXPECT_EQ(wrapped.rebuiltExpression(), line.rebuiltExpression());
  ASSERT_EQ(wrapped[0].type, TokenType::customInternal);
  EXPECT_EQ(wrapped[0].subtokens->count(), 5u);
  EXPECT_EQ(wrapped.count(), line.count() - 4);
}

TEST(Prototypes, NamesOfVariablesBecomeVariables) {
  const std::array sequences{
      PrototypeSequenceCache::sequenceFor(Variable("monthly rent", std::nullopt, Variable::VariableType::local))};
  ASSERT_TRUE(sequences[0]);
  TokenList list = lineOf("our monthly rent is high");
  wrapMatchesFor(list, sequences, false, [](const TokenSlice&, const PrototypeSequence&) {
    ADD_FAILURE() << "nobody needs to be asked for a variable";
    return std::optional<Token>();
  });
  const Token* variable = list.firstTokenOfType(TokenType::variable);
  ASSERT_NE(variable, nullptr);
  EXPECT_EQ(variable->stringValue, "monthly rent");
  EXPECT_EQ(variable->range, (NSRange{4, 12}));
  EXPECT_EQ(variable->variable()->name, "monthly rent");
}

TEST(PrototypeMatcher, TakesTheFirstSequenceThatEndsThere) {
  const TokenList list = lineOf("half of 10 and half of 20");
  const std::array sequences{phrase("of 5"), phrase("half of 5")};
  PrototypeSequenceMatcher matcher(list);
  const auto match = matcher.findSliceMatching(sequences, list.count() - 1);
  ASSERT_TRUE(match);
  EXPECT_EQ(match->slice.stringValue(), "of 20");
  EXPECT_EQ(match->sequence, sequences[0]);
  EXPECT_FALSE(matcher.findSliceMatching(sequences, 1));
  EXPECT_FALSE(matcher.findSliceMatching(sequences, 0));
  EXPECT_FALSE(matcher.findSliceMatching(sequences, list.count()));
}

TEST(PrototypeMatcher, PlacesOfProvidersTakeTheirWords) {
  using enum TokenType;
  const auto matched = [](std::string_view text, const TokenList& list) {
    const std::array sequences{phrase(text)};
    const auto match = PrototypeSequenceMatcher(list).findSliceMatching(sequences, list.count() - 1);
    return match ? match->slice.stringValue() : std::string("none");
  };
  const TokenList weather = wordsOf({{"sunny", wordComment},
                                     {"weather", wordComment},
                                     {"in", prepositionWord},
                                     {"little", wordComment},
                                     {"green", wordComment}});
  EXPECT_EQ(matched("weather in __dynamic_place", weather), "weather in little green");
  EXPECT_EQ(matched("rain in __dynamic_place", weather), "none");

  const TokenList behind = wordsOf({{"in", prepositionWord},
                                    {"little", wordComment},
                                    {"green", wordComment},
                                    {"at", prepositionWord},
                                    {"noon", wordComment}});
  EXPECT_EQ(matched("__dynamic_place at noon", behind), "little green at noon");

  // A place that is known already is one token, whatever stands before it.
  const TokenList known = wordsOf({{"rain", wordComment}, {"Paris", timezone}});
  EXPECT_EQ(matched("rain __dynamic_place", known), "rain Paris");
}

TEST(PrototypeMatching, BracketsStandForTheirValue) {
  const auto slices = slicesMatching(lineOf("(1 + 2) (1 > 2) 5 (4)"), *phrase("8 8", Mode::typedNumber));
  ASSERT_TRUE(slices);
  ASSERT_EQ(slices->size(), 1u);
  EXPECT_EQ(slices->front().stringValue(), "5 (4)");
}

TEST(PrototypeExpressions, ComeFromWhatUsersWrite) {
  using Match = PrototypeExpressionMatchType;
  const auto byType = [](const Token& token) {
    return token.is(TokenType::percentage) ? Match::byType : Match::literally;
  };
  using Generator = PrototypeExpressionGenerator;
  EXPECT_EQ(Generator::prototypeStringFrom("  monthly rent 2 ", byType), "monthly rent 2");
  EXPECT_EQ(Generator::prototypeStringFrom("20% more (than 5)", byType), "__percentage more (than 5)");
  EXPECT_EQ(Generator::prototypeStringFrom("area of sqrt(4)", byType), std::nullopt);

  EXPECT_EQ(Generator::validCustomFunctionPrototypeStringFrom("20% more", byType), "__percentage more");
  EXPECT_EQ(Generator::validCustomFunctionPrototypeStringFrom("20% 30%", byType), std::nullopt) << "all gaps";
  EXPECT_EQ(Generator::validCustomFunctionPrototypeStringFrom("plain words", byType), std::nullopt) << "no gap";
}

CustomFunction customFunction(std::string text, double answer) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = std::move(text);
  fields.handler = [answer](const std::vector<EvaluationResult>&) {
    return EvaluationResult::decimal(Decimal::fromDouble(answer));
  };
  return CustomFunction(std::move(fields));
}

EvaluationResult calledBy(const PrototypeSequence& sequence) {
  return std::get<CustomFunction>(*sequence.metadata()).handler()({});
}

TEST(PrototypeSequenceCache, AnEditedFunctionMeetsItsOwnHandler) {
  const std::array before{customFunction("area of __decimal", 1)};
  const std::array after{customFunction("area of __decimal", 2)};
  const PrototypeSequenceRef old = PrototypeSequenceCache::sequencesFor(before).front();
  const PrototypeSequenceRef edited = PrototypeSequenceCache::sequencesFor(after).front();
  EXPECT_EQ(calledBy(*old), EvaluationResult::decimal(Decimal(1)));
  EXPECT_EQ(calledBy(*edited), EvaluationResult::decimal(Decimal(2)));
  EXPECT_EQ(&old->prototypes(), &edited->prototypes()) << "the phrase is read once";
}

TEST(PrototypeSequenceCache, AliasesAndFunctionsKeepTheirPlace) {
  CustomFunction::Fields fields;
  fields.prototypeExpression = "sum of __decimal";
  fields.aliases = {"__decimal summed", "all of __decimal"};
  const std::array custom{CustomFunction(fields)};
  EXPECT_EQ(PrototypeSequenceCache::sequencesFor(custom).size(), 3u);

  const Function half{"half of __decimal", FunctionIdentifier::halfOf};
  const Function middle{"half of __decimal", FunctionIdentifier::midpoint};
  const std::array functions{&half, &middle};
  const auto sequences = PrototypeSequenceCache::sequencesFor(functions);
  ASSERT_EQ(sequences.size(), 2u);
  EXPECT_EQ(sequences[0]->functionIdentifier(), FunctionIdentifier::halfOf);
  EXPECT_EQ(sequences[1]->functionIdentifier(), FunctionIdentifier::midpoint);
}

TEST(PrototypeSequenceCache, IsCappedForWhatHostsAndUsersBring) {
  for (std::size_t i = 0; i <= PrototypeSequenceCache::kMaximumVariablePhrases; ++i) {
    const Variable variable("name " + std::to_string(i), std::nullopt, Variable::VariableType::local);
    ASSERT_TRUE(PrototypeSequenceCache::sequenceFor(variable));
  }
  EXPECT_LE(PrototypeSequenceCache::counts().variables, PrototypeSequenceCache::kMaximumVariablePhrases);
}

TEST(PrototypeSequenceCache, ServesManyThreads) {
  constexpr int kThreads = 4;
  constexpr int kRounds = 40;
  std::array<std::vector<const void*>, kThreads> seen;
  {
    std::vector<std::jthread> threads;
    for (int t = 0; t < kThreads; ++t) {
      threads.emplace_back([&seen, t] {
        for (int round = 0; round < kRounds; ++round) {
          const std::string number = std::to_string(round);
          const Function function{"threads share phrase " + number, FunctionIdentifier::halfOf};
          const std::array functions{&function};
          const std::array custom{customFunction("threads share custom phrase " + number, t)};
          const Variable variable("threads share name " + number, std::nullopt, Variable::VariableType::local);
          seen[static_cast<std::size_t>(t)].push_back(
              &PrototypeSequenceCache::sequencesFor(functions).front()->prototypes());
          EXPECT_EQ(calledBy(*PrototypeSequenceCache::sequencesFor(custom).front()),
                    EvaluationResult::decimal(Decimal(t)));
          EXPECT_EQ(std::get<Variable>(*PrototypeSequenceCache::sequenceFor(variable)->metadata()), variable);
        }
      });
    }
  }
  for (const auto& phrases : seen) EXPECT_EQ(phrases, seen[0]) << "all threads get the phrase that was kept";
}

}  // namespace
}  // namespace tavrine::testing
