#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Decimal.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Evaluation/EvaluationTokens.h"
#include "TavrineCore/Evaluation/ResultStatistics.h"
#include "TavrineCore/Evaluation/Support/BinaryOperators/TokenAndOperatorPairFactory.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/StatisticType.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/TokenFactory.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "Tests/Support/Table.h"

namespace tavrine::testing {
namespace {

TCUnit unitNamed(std::string_view symbol) {
  TCUnit::Record record;
  record.symbol = symbol;
  record.converter = {Decimal(1), Decimal(0)};
  return TCUnit::counted(record);
}

/// "7", "20%", "f:0.75", "f:0.75 m", "5 km", "2x", "true", "clock", "day", "none", "text:…".
EvaluationResult resultOf(const std::string& text) {
  if (text == "none") return EvaluationResult::none();
  if (text == "true") return EvaluationResult::boolean(true);
  if (text == "clock" || text == "day") {
    Datestamp datestamp{.date = Date(), .timezone = TimeZone::gmt()};
    datestamp.type = text == "clock" ? DatestampType::clockTime : DatestampType::unspecified;
    return EvaluationResult::date(datestamp);
  }
  if (text.starts_with("text:")) return EvaluationResult::rawString(text.substr(5));
  const bool isFraction = text.starts_with("f:");
  const std::string rest = isFraction ? text.substr(2) : text;
  const std::size_t blank = rest.find(' ');
  std::string digits = rest.substr(0, blank);
  std::optional<TCUnit> unit;
  if (blank != std::string::npos) unit = unitNamed(rest.substr(blank + 1));
  const char last = digits.back();
  if (last == '%' || last == 'x') digits.pop_back();
  const Decimal value = *Decimal::parse(digits);
  if (isFraction) return EvaluationResult::fraction(Fraction{value, unit});
  if (last == '%') return EvaluationResult::percentage(Percentage{value / Decimal(100)});
  if (last == 'x') return EvaluationResult::multiplier(Multiplier{value});
  if (unit) return EvaluationResult::unitExpression(UnitExpression{value, *unit});
  return EvaluationResult::decimal(value);
}

std::vector<EvaluationResult> resultsOf(std::string_view texts) {
  std::vector<EvaluationResult> results;
  while (!texts.empty()) {
    const std::size_t comma = texts.find(',');
    results.push_back(resultOf(std::string(texts.substr(0, comma))));
    texts = comma == std::string_view::npos ? std::string_view() : texts.substr(comma + 1);
  }
  return results;
}

struct Case {
  std::string_view results;
  std::string want;
};

void expectEach(StatisticType statistic, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    const EvaluationResult got = reduceTo(resultsOf(c.results), statistic);
    EXPECT_EQ(got, resultOf(c.want)) << toString(statistic) << " of " << c.results << " is "
                                     << got.stringValue().value_or(std::string(toString(got.kind())));
  }
}

TEST(Statistics, TotalAddsWhatCountsAndGoesOnPastTheRest) {
  expectEach(StatisticType::total,
             rowsOf<Case>("Multiline/StatisticsTests", "TotalAddsWhatCountsAndGoesOnPastTheRest, total"));
}

TEST(Statistics, QuantitiesAddUpInTheirUnits) {
  const auto quantity = [](std::string_view value, UnitIdentifier unit) {
    return EvaluationResult::unitExpression(UnitExpression{*Decimal::parse(value), TCUnitFor(unit), true});
  };
  const auto yearly = [](std::string_view fraction, UnitIdentifier per) {
    return EvaluationResult::percentageRate(PercentageRate{Percentage{*Decimal::parse(fraction)}, TCUnitFor(per)});
  };
  const auto rate = [](int value, UnitIdentifier of, UnitIdentifier per) {
    return EvaluationResult::unitRate(UnitRate{Decimal(value), TCUnitFor(of), TCUnitFor(per)});
  };
  using enum UnitIdentifier;
  struct {
    std::vector<EvaluationResult> results;
    EvaluationResult want;
  } const rows[] = {
      {{quantity("500", meters), quantity("1", kilometers)}, quantity("1.5", kilometers)},
      {{quantity("10", kilograms), quantity("5", kilometers)}, quantity("5", kilometers)},
      {{resultOf("5"), quantity("2", kilometers)}, quantity("7", kilometers)},
      {{quantity("2", kilometers), resultOf("5"), resultOf("text:a")}, quantity("7", kilometers)},
      {{yearly("0.12", years), yearly("0.01", months)}, yearly("0.24", years)},
      {{yearly("0.12", years), yearly("0.01", meters)}, yearly("0.01", meters)},
      {{rate(5, kilometers, hours), rate(3, kilometers, hours)}, rate(8, kilometers, hours)},
      {{rate(5, kilometers, hours), rate(3, kilograms, hours)}, EvaluationResult::none()},
  };
  for (const auto& row : rows) {
    const EvaluationResult got = reduceTo(row.results, StatisticType::total);
    EXPECT_EQ(got, row.want) << (&row - rows) << ": " << toString(got.kind()) << ' '
                             << got.decimalValue().value_or(Decimal::nan()).description();
  }
}

TEST(Statistics, AverageCountsWhatIsThere) {
  expectEach(StatisticType::average, {{"1,2,6", "3"}, {"1,none,2,none", "1.5"}, {"10%,20%", "15%"}});
  expectEach(StatisticType::count, {{"", "0"}, {"1,none,text:a,2", "3"}});
}

TEST(Statistics, MedianTakesTheMiddleByMagnitude) {
  expectEach(StatisticType::median,
             rowsOf<Case>("Multiline/StatisticsTests", "MedianTakesTheMiddleByMagnitude, median"));
}

TEST(Statistics, ExtremesAreResultsOfTheList) {
  expectEach(StatisticType::lesser, rowsOf<Case>("Multiline/StatisticsTests", "ExtremesAreResultsOfTheList, lesser"));
  expectEach(StatisticType::greater, {{"", "none"}, {"4,2,9", "9"}, {"9,none,4", "9"}});
}

TEST(Statistics, CommonMultiplesAreOfWholeNumbers) {
  expectEach(StatisticType::lcm, rowsOf<Case>("Multiline/StatisticsTests", "CommonMultiplesAreOfWholeNumbers, lcm"));
  expectEach(StatisticType::gcd, rowsOf<Case>("Multiline/StatisticsTests", "CommonMultiplesAreOfWholeNumbers, gcd"));
}

TEST(Statistics, VariablesCountWithTheirValue) {
  Variable rent("rent", std::nullopt, Variable::VariableType::local);
  const EvaluationResult without = EvaluationResult::variable(rent);
  rent.definition = std::make_shared<const EvaluationResult>(EvaluationResult::decimal(Decimal(5)));
  const std::vector<EvaluationResult> results{resultOf("2"), EvaluationResult::variable(rent), without};
  EXPECT_EQ(reduceTo(results, StatisticType::total), resultOf("7"));
}

TEST(Statistics, AddingToAListAddsToItsTotal) {
  const Token list(TokenType::list, TokenSubType::notSpecified, "1, 2", NSRange::zero,
                   TokenList::frozen(
                       std::vector<Token>{TokenFactory::numberWith(Decimal(1)), TokenFactory::numberWith(Decimal(2))}));
  const Token four = TokenFactory::numberWith(Decimal(4));
  const auto calculated = [&](TokenSubType operation) {
    return evaluatedPair(list, four, operatorToken(operation, "")).evaluationResult();
  };
  EXPECT_EQ(calculated(TokenSubType::additionOperator), resultOf("7"));
  EXPECT_EQ(calculated(TokenSubType::multiplicationOperator), EvaluationResult::error(EvaluationError::Other));
}

}  // namespace
}  // namespace tavrine::testing
