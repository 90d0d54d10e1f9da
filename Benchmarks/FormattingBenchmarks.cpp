#include <benchmark/benchmark.h>

#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/TimeZone.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Datestamp.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/Timespan.h"
#include "TavrineCore/ResultFormatting/CommonFormattedResultsCache.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/ResultFormatting/ModernResultFactory.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {
namespace {

ResultFormatterContext contextFor(std::string_view locale) {
  return {nullptr, nullptr,
          Calendar(Calendar::Identifier::gregorian, Locale(locale),
                   TimeZone::gmt()),
          Locale(locale), FormattingPreferences(),
          CurrencySymbolSettings::automatic()};
}

/// From a result to its text, with the context that a line would have made.
void format(benchmark::State &state, const EvaluationResult &result,
            std::string_view locale = "en_US") {
  const ResultFormatterContext context = contextFor(locale);
  for (auto _ : state)
    benchmark::DoNotOptimize(
        ModernResultFactory::formattedResultFor(result, context));
}

EvaluationResult decimal(std::string_view text) {
  return EvaluationResult::decimal(*Decimal::parse(text));
}

BENCHMARK_CAPTURE(format, SmallDecimal, decimal("12.5"))
    ->Name("BM_Format/SmallDecimal");
BENCHMARK_CAPTURE(format, GermanDecimal, decimal("1234.5"), "de_DE")
    ->Name("BM_Format/GermanDecimal");
BENCHMARK_CAPTURE(format, LongDecimal,
                  decimal("0.33333333333333333333333333333333333333"))
    ->Name("BM_Format/LongDecimal");
BENCHMARK_CAPTURE(format, Abbreviated, decimal("1500000"))
    ->Name("BM_Format/Abbreviated");
BENCHMARK_CAPTURE(format, Scientific, decimal("1e20"))
    ->Name("BM_Format/Scientific");
BENCHMARK_CAPTURE(format, Percentage,
                  EvaluationResult::percentage({*Decimal::parse("0.125")}))
    ->Name("BM_Format/Percentage");
BENCHMARK_CAPTURE(format, Fraction,
                  EvaluationResult::fraction({*Decimal::parse("1.375"),
                                              std::nullopt}))
    ->Name("BM_Format/Fraction");
BENCHMARK_CAPTURE(format, Hexadecimal, EvaluationResult::hex(0xDEADBEEF))
    ->Name("BM_Format/Hexadecimal");

EvaluationResult amount(std::string_view value, UnitIdentifier unit,
                        bool compound = false) {
  return EvaluationResult::unitExpression(
      {*Decimal::parse(value), TCUnitFor(unit), compound});
}

BENCHMARK_CAPTURE(format, Length, amount("1234.5", UnitIdentifier::kilometers))
    ->Name("BM_Format/Length");
BENCHMARK_CAPTURE(format, Duration, amount("2.5", UnitIdentifier::days))
    ->Name("BM_Format/Duration");
BENCHMARK_CAPTURE(format, FeetAndInches,
                  amount("5.25", UnitIdentifier::feet, true))
    ->Name("BM_Format/FeetAndInches");
BENCHMARK_CAPTURE(format, Money, amount("1234.5", UnitIdentifier::currencyUSD))
    ->Name("BM_Format/Money");

// What a thread keeps is made in the first round.
EvaluationResult date(DatestampType type, std::string_view zone, bool isExplicit) {
  return EvaluationResult::date({.date = Date(1'700'000'000),
                                 .type = type,
                                 .timezone = TimeZone(zone),
                                 .hasExplicitTimeZone = isExplicit});
}

BENCHMARK_CAPTURE(format, Date, date(DatestampType::dayMonthYear, "GMT", false))
    ->Name("BM_Format/Date");
BENCHMARK_CAPTURE(format, TimeElsewhere,
                  date(DatestampType::clockTime, "Asia/Tokyo", true))
    ->Name("BM_Format/TimeElsewhere");
BENCHMARK_CAPTURE(format, UnixTimestamp,
                  date(DatestampType::unixTimestamp, "America/New_York", false))
    ->Name("BM_Format/UnixTimestamp");
BENCHMARK_CAPTURE(format, Timespan,
                  EvaluationResult::timespan({DateComponents{.minute = 90},
                                              std::nullopt}))
    ->Name("BM_Format/Timespan");

void commonResult(benchmark::State &state) {
  const Decimal value(42);
  for (auto _ : state) {
    auto text = CommonFormattedResultsCache::find(value);
    benchmark::DoNotOptimize(text);
  }
}
BENCHMARK(commonResult)->Name("BM_Format/CommonResult");

// One result in one locale, the next in another: what a host with mixed sheets
// pays.
void alternatingLocales(benchmark::State &state) {
  const EvaluationResult result = decimal("1234.5");
  const ResultFormatterContext contexts[] = {contextFor("en_US"),
                                             contextFor("de_DE")};
  unsigned i = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(
        ModernResultFactory::formattedResultFor(result, contexts[i++ & 1]));
}
BENCHMARK(alternatingLocales)->Name("BM_Format/AlternatingLocales");

} // namespace
} // namespace tavrine
