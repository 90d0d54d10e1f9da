// What phrases about quantities, film, text and lists give for their arguments, those that nobody types among them.

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Units/SubstanceList.h"
#include "TavrineCore/Customization/Units/UnitMeasurementSystem.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandlers.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "Tests/Evaluation/UnitTokens.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

using enum FunctionIdentifier;

Token literal(std::string_view text) { return Token(TokenType::literal, std::string(text), NSRange::zero); }

Token resolution(int width, int height) {
  return Token(TokenType::resolution, TokenSubType::notSpecified, "", NSRange::zero, nullptr,
               std::make_shared<const ResolutionTokenMetadata>(Resolution{Decimal(width), Decimal(height)}));
}

Token statistic(StatisticType type) {
  return Token(TokenType::statisticType, subTypeOf(type), "", NSRange::zero, nullptr,
               std::make_shared<const StatisticTypeTokenMetadata>(type));
}

/// "unit grams", "of honey", "\"text", "1920x1080", or a value.
Token argumentFrom(std::string_view text) {
  if (text.starts_with("unit ")) return TokenFactory::unitWith(unitWithName(text.substr(5)));
  if (text.starts_with("of ")) return TokenFactory::substanceWith(*SubstanceList::runQuery(text.substr(3)));
  if (text.starts_with('"')) return literal(text.substr(1));
  if (text == "1920x1080") return resolution(1920, 1080);
  if (text == "0x1080") return resolution(0, 1080);
  return valueToken(text);
}

Token answerTo(FunctionIdentifier identifier, const std::vector<Token>& arguments) {
  return WordFunctionHandlers::evaluate(identifier, arguments, EngineCustomization::usStandard());
}

struct Row {
  FunctionIdentifier identifier;
  std::vector<std::string_view> arguments;
  std::string_view want;
};

/// The value with its number cut to 6 places; how it is to be shown is left away.
std::string roundedValue(const EvaluationResult& result) {
  std::string text = describeValue(result.roundedTo(6).value_or(result).tokenized());
  if (const std::size_t flag = text.find(" (compound)"); flag != std::string::npos) text.erase(flag);
  return text;
}

std::string answerOf(const Row& row) {
  std::vector<Token> arguments;
  for (const std::string_view text : row.arguments) arguments.push_back(argumentFrom(text));
  const Token answer = answerTo(row.identifier, arguments);
  if (answer.is(TokenType::literal)) return '"' + answer.stringValue;
  return roundedValue(answer.evaluationResult());
}

TEST(MeasureFunctions, FindTheirArguments) {
  for (const Row& row : rowsOf<Row>("Evaluation/MeasureFunctionTests", "FindTheirArguments"))
    EXPECT_EQ(answerOf(row), row.want) << toString(row.identifier) << ' ' << row.arguments[0];
}

TEST(MeasureFunctions, TellTyreSpeedsAsTheRoadSignsDo) {
  EngineCustomization metric = EngineCustomization::usStandard();
  metric.setUnitSystem(UnitMeasurementSystem::metric);
  const std::vector<Token> arguments{argumentFrom("205"), argumentFrom("55"), argumentFrom("\"R16"),
                                     argumentFrom("800 revolutionsPerMinute")};
  const EvaluationResult speed = WordFunctionHandlers::evaluate(tyreSpeed, arguments, metric).evaluationResult();
  EXPECT_EQ(roundedValue(speed), "95.288275 kilometersPerHour");
}

TEST(MeasureFunctions, DeclareUnitsByTheirWord) {
  const auto symbolFor = [](const std::vector<Token>& arguments) {
    const EvaluationResult result = answerTo(declareGenericUnit, arguments).evaluationResult();
    const TCUnit* unit = result.unitValue();
    return unit == nullptr ? std::string("none") : '<' + std::string(unit->symbol()) + '>';
  };
  EXPECT_EQ(symbolFor({literal("apple")}), "<apple>");
  EXPECT_EQ(symbolFor({}), "<>");
  EXPECT_EQ(symbolFor({valueToken("5")}), "none");
}

TEST(LiteralFunctions, CountCharactersAsPeopleDo) {
  for (const Row& row : rowsOf<Row>("Evaluation/MeasureFunctionTests", "CountCharactersAsPeopleDo"))
    EXPECT_EQ(answerOf(row), row.want) << toString(row.identifier) << ' ' << row.arguments[0];
}

/// "01:00:10:05 @25".
std::string described(const Token& token) {
  const std::optional<Frametime> time = token.frametimeValue();
  if (!time) return describeValue(token);
  std::string text;
  for (const std::int64_t part : {time->hour, time->minute, time->second, time->frame}) {
    text += (text.empty() ? "" : ":") + std::to_string(part);
  }
  return text + " @" + time->fps.description();
}

TEST(VideoFunctions, CountFramesAtTheirRate) {
  const Token fps25 = valueToken("25 framesPerSecond");
  const Token early = TokenFactory::frametimeWith({Decimal(24), 1, 0, 0, 0});
  const Token late = TokenFactory::frametimeWith({Decimal(24), 1, 0, 10, 5});
  const Token lap = TokenFactory::laptimeWith({3, 45, Decimal(65) / Decimal(2)});
  EXPECT_EQ(described(answerTo(framesBetweenFrametimes, {early, late})), "245 frames");
  EXPECT_EQ(described(answerTo(framesBetweenFrametimes, {late, early})), "245 frames");
  EXPECT_EQ(described(answerTo(framesBetweenFrametimes, {TokenFactory::unitWith(unitWithName("frames")), early, late})),
            "245 frames");
  EXPECT_EQ(described(answerTo(framesBetweenFrametimes, {early})), "none");
  EXPECT_EQ(described(answerTo(framesToFrametime, {valueToken("1012.4 frames"), fps25})), "0:0:40:12 @25");
  EXPECT_EQ(described(answerTo(framesToFrametime, {valueToken("1012 grams"), fps25})), "none");
  EXPECT_EQ(described(answerTo(formFrametime, {lap, fps25})), "3:45:32:13 @25");
  // Half a second stays half a second.
  const Token half = TokenFactory::frametimeWith({Decimal(24), 0, 0, 1, 12});
  EXPECT_EQ(described(answerTo(formFrametime, {half, valueToken("50 framesPerSecond")})), "0:0:1:25 @50");
  EXPECT_EQ(described(answerTo(formFrametime, {lap, valueToken("0 framesPerSecond")})), "none");
}

TEST(StatisticalFunctions, ReduceTheLinesOfATag) {
  Variable tag("#food", std::nullopt, Variable::VariableType::tag);
  const Token untold = TokenFactory::variable(tag);
  tag.representedResults = std::make_shared<const std::vector<EvaluationResult>>(
      std::vector{valueToken("3").evaluationResult(), valueToken("5").evaluationResult(),
                  valueToken("10").evaluationResult(), EvaluationResult::none()});
  const Token told = TokenFactory::variable(tag);
  const auto of = [](StatisticType type, const Token& token) {
    return describeValue(answerTo(statisticOfTag, {statistic(type), token}));
  };
  EXPECT_EQ(of(StatisticType::total, told), "18");
  EXPECT_EQ(of(StatisticType::average, told), "6");
  EXPECT_EQ(of(StatisticType::median, told), "5");
  EXPECT_EQ(of(StatisticType::count, told), "3");
  EXPECT_EQ(of(StatisticType::lesser, told), "3");
  EXPECT_EQ(of(StatisticType::greater, told), "10");
  EXPECT_EQ(of(StatisticType::total, untold), "none");
  EXPECT_EQ(describeValue(answerTo(statisticOfTag, {told, told})), "none");
  EXPECT_EQ(describeValue(answerTo(statisticOfList, {statistic(StatisticType::greater), valueToken("3 kilometers"),
                                                     valueToken("5 kilometers")})),
            "5 kilometers");
}

}  // namespace
}  // namespace tavrine::testing
