// What a line keeps under a name, what it answers on a condition, and what the background stage asks a host.

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "EvaluationTestSupport.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Places/PlaceDataProvider.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/BackgroundTokenListEvaluator.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

using Declaration = VariableDeclarationTokenMetadata;
using Assignment = Declaration::VariableAssignmentOperatorType;

Token containerOf(TokenType type, std::string text, TokenList inside, TokenMetadataRef metadata = nullptr) {
  return Token(type, TokenSubType::notSpecified, std::move(text), NSRange::zero, TokenList::frozen(std::move(inside)),
               std::move(metadata));
}

Token conditionalOf(std::string_view text) {
  return containerOf(TokenType::conditionalExpression, std::string(text), tokensOf(text));
}

Variable variableOf(std::string_view name, std::optional<EvaluationResult> definition) {
  Variable variable(std::string(name), std::nullopt, Variable::VariableType::local);
  if (definition) variable.definition = std::make_shared<const EvaluationResult>(*std::move(definition));
  return variable;
}

/// "x", the assignment and what stands behind it.
TokenList declarationTokens(std::string_view assignment, const std::vector<Token>& value) {
  TokenList tokens;
  tokens.append(Token(TokenType::declaredVariable, "x", NSRange::zero));
  tokens.append(Token(TokenType::variableAssignmentOperator, std::string(assignment), NSRange::zero));
  for (const Token& token : value) tokens.append(token);
  return tokens;
}

std::vector<Token> valueTokens(std::string_view text) {
  const TokenList list = tokensOf(text);
  return {list.begin(), list.end()};
}

/// "x: 8", through the whole evaluator.
std::string declaredBy(const Token& declaration) {
  const EvaluationResult result =
      TokenListEvaluator(EngineCustomization::basic()).evaluate(TokenList(std::vector<Token>{declaration}));
  const Variable* variable = result.variableValue();
  if (variable == nullptr) return describeResult(result);
  return variable->name + ": " + (variable->definition ? describeResult(*variable->definition) : "undefined");
}

TEST(DeclarationTests, Conditionals) {
  struct Row {
    std::string_view line;
    std::string_view want;
  };
  for (const auto& c : rowsOf<Row>("Evaluation/DeclarationTests", "Conditionals")) {
    const TokenList line(std::vector<Token>{conditionalOf(c.line)});
    EXPECT_EQ(describeResult(TokenListEvaluator(EngineCustomization::basic()).evaluate(line)), c.want) << c.line;
  }
}

TEST(DeclarationTests, HoldTheirValue) {
  const Variable earlier = variableOf("x", EvaluationResult::decimal(Decimal(10)));
  const Place paris{"Paris", std::nullopt, TimeZone::gmt()};
  const struct {
    Assignment assignment;
    std::string_view symbol;
    std::vector<Token> value;
    bool holdsRawStrings;
    std::string_view want;
  } kCases[] = {
      {Assignment::vanilla, "=", valueTokens("5 + 3"), false, "x: 8"},
      {Assignment::additive, "+=", valueTokens("5"), false, "x: 15"},
      {Assignment::subtractive, "-=", valueTokens("4"), false, "x: 6"},
      {Assignment::multiplicative, "*=", valueTokens("3"), false, "x: 30"},
      {Assignment::divizive, "/=", valueTokens("0"), false, "x: error DivideByZero"},
      {Assignment::additive, "+=", valueTokens("20%"), false, "x: 12"},
      // What no expression comes to.
      {Assignment::vanilla, "=", {TokenFactory::placeWith(paris)}, false, "x: place"},
      {Assignment::vanilla, "=", valueTokens("just words"), false, "x: none"},
      {Assignment::vanilla, "=", valueTokens("just words"), true, "x: rawString text"},
  };
  for (const auto& c : kCases) {
    const auto metadata = std::make_shared<Declaration>(c.assignment, "x", "text", c.holdsRawStrings, earlier);
    EXPECT_EQ(
        declaredBy(containerOf(TokenType::variableDeclaration, "", declarationTokens(c.symbol, c.value), metadata)),
        c.want);
  }
}

TEST(DeclarationTests, OnACondition) {
  const auto declare = [](std::string_view assignment, std::string_view conditional, std::optional<Token> declaration,
                          std::optional<Token> declared) {
    const auto metadata =
        std::make_shared<ConditionalVariableDeclarationTokenMetadata>(std::move(declaration), std::move(declared));
    return declaredBy(containerOf(TokenType::conditionalVariableDeclaration, "",
                                  declarationTokens(assignment, {conditionalOf(conditional)}), metadata));
  };
  const Token declaration = containerOf(TokenType::variableDeclaration, "x = 1", {},
                                        std::make_shared<Declaration>(Assignment::vanilla, "x", "1", false));
  const auto nameOf = [](std::optional<EvaluationResult> earlier) {
    return Token(TokenType::declaredVariable, TokenSubType::notSpecified, "x", NSRange::zero, nullptr,
                 std::make_shared<VariableTokenMetadata>(variableOf("x", std::move(earlier))));
  };
  constexpr std::string_view kTrue = "if 2 > 1 then 5 else 6";
  EXPECT_EQ(declare("=", kTrue, declaration, std::nullopt), "x: 5");
  EXPECT_EQ(declare("=", kTrue, std::nullopt, nameOf(std::nullopt)), "x: 5");
  EXPECT_EQ(declare("=", "if 2 < 1 then 5", std::nullopt, nameOf(std::nullopt)), "x: boolean false");
  EXPECT_EQ(declare("+=", kTrue, std::nullopt, nameOf(EvaluationResult::decimal(Decimal(10)))), "x: 15");
  EXPECT_EQ(declare("+=", kTrue, std::nullopt, nameOf(std::nullopt)), "x: 5");
  EXPECT_EQ(declare("=", kTrue, std::nullopt, std::nullopt), "none");
}

/// Remembers what it was asked for.
class Gazetteer final : public PlaceDataProvider {
 public:
  std::optional<PlaceData> placeDataFor(const std::string& name, std::stop_token) override {
    asked.push_back(name);
    if (name == "Nowhere") throw std::runtime_error("no connection");
    return PlaceData{name, TimeZone::gmt(), PlaceData::Coordinates{200, 0}};
  }
  std::vector<std::string> asked;
};

TEST(BackgroundTests, LooksUpPlacesOfFunctionsThatTakeThem) {
  const auto gazetteer = std::make_shared<Gazetteer>();
  EngineCustomization customization = EngineCustomization::basic();
  customization.setPlaceDataProvider(gazetteer);
  const auto call = [&](FunctionIdentifier identifier, std::initializer_list<std::string_view> places) {
    TokenList arguments;
    for (const std::string_view place : places) {
      arguments.append(Token(TokenType::dynamicPlace, std::string(place), NSRange::zero));
    }
    Token function(TokenType::wordFunction, TokenSubType::builtInWordFunction, "", NSRange::zero,
                   TokenList::frozen(std::move(arguments)),
                   std::make_shared<WordFunctionTokenMetadata>(Function{"", identifier}, nullptr, customization));
    return TokenList(std::vector<Token>{std::move(function)});
  };
  const BackgroundTokenListEvaluator evaluator(customization);
  const auto namesAskedBy = [&](const TokenList& line, std::stop_token stop = {}) {
    gazetteer->asked.clear();
    (void)evaluator.evaluateInBackground(line, std::move(stop));
    return gazetteer->asked;
  };
  using Names = std::vector<std::string>;
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::distanceBetweenPlaces, {"Here", "There"})), Names({"There", "Here"}));
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::lowTemperature, {"Here"})), Names({"Here"}));
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::halfOf, {"Here"})), Names());
  std::stop_source stopped;
  stopped.request_stop();
  EXPECT_EQ(namesAskedBy(call(FunctionIdentifier::timeInTimezone, {"Here"}), stopped.get_token()), Names());
  // What a provider throws is the caller's to judge.
  EXPECT_THROW((void)namesAskedBy(call(FunctionIdentifier::timeInTimezone, {"Nowhere"})), std::runtime_error);
}

TEST(BackgroundTests, EvaluatesTheRest) {
  const BackgroundTokenListEvaluator evaluator(EngineCustomization::basic());
  EXPECT_EQ(describeResult(evaluator.evaluateInBackground(tokensOf("-2^2 + 1"))), "-3");
  EXPECT_EQ(describeResult(evaluator.evaluateInBackground(TokenList())), "none");
}

}  // namespace
}  // namespace tavrine::testing
