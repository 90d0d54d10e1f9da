#include "TavrineCore/ResultFormatting/ModernResultFactory.h"

#include <array>
#include <cstdint>

#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/ResultFormatting/CoordinateResultFormatters.h"
#include "TavrineCore/ResultFormatting/DatestampResultFormatter.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/NumberResultFormatters.h"
#include "TavrineCore/ResultFormatting/RateResultFormatters.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"
#include "TavrineCore/ResultFormatting/TextResultFormatters.h"
#include "TavrineCore/ResultFormatting/TimecodeResultFormatters.h"
#include "TavrineCore/ResultFormatting/TimespanFormatter.h"
#include "TavrineCore/ResultFormatting/UnitResultFormatters.h"

namespace tavrine {
namespace {

using enum EvaluationResultCase;

// A result is shown by the first row whose cases hold it. What no row holds is never shown: `none`, a unit or a place
// alone, a resolution, a substance, a custom type or unit, a kind of statistic, a list, a variable without a value.
constexpr auto kRows = std::to_array<ModernResultFactory::Row>({
    {"Decimal", "DecimalResultFormatter", DecimalResultFormatter::formattedResult, {decimal, scientificNotation}},
    {"UnitExpression",
     "UnitExpressionResultFormatter",
     UnitExpressionResultFormatter::formattedResult,
     {unitExpression}},
    {"Percentage", "PercentageResultFormatter", PercentageResultFormatter::formattedResult, {percentage}},
    {"Fraction", "FractionResultFormatter", FractionResultFormatter::formattedResult, {fraction}},
    {"UnitRate", "UnitRateResultFormatter", UnitRateResultFormatter::formattedResult, {unitRate}},
    {"DecimalRate", "DecimalRateResultFormatter", DecimalRateResultFormatter::formattedResult, {decimalRate}},
    {"PercentageRate",
     "PercentageRateResultFormatter",
     PercentageRateResultFormatter::formattedResult,
     {percentageRate}},
    {"Datestamp", "DatestampResultFormatter", DatestampResultFormatter::formattedResult, {date}},
    {"iso8601", "iso8601ResultFormatter", iso8601ResultFormatter::formattedResult, {iso8601}},
    {"EvaluationError", "ErrorResultFormatter", ErrorResultFormatter::formattedResult, {error}},
    {"Timestamp", "TimestampResultFormatter", TimestampResultFormatter::formattedResult, {timestamp}},
    {"Timespan", "TimespanResultFormatter", TimespanResultFormatter::formattedResult, {timespan}},
    {"Laptime", "LaptimeResultFormatter", LaptimeResultFormatter::formattedResult, {laptime}},
    {"Frametime", "FrametimeResultFormatter", FrametimeResultFormatter::formattedResult, {frametime}},
    {"boolean", "BooleanResultFormatter", BooleanResultFormatter::formattedResult, {boolean}},
    {"Multiplier", "MultiplierResultFormatter", MultiplierResultFormatter::formattedResult, {multiplier}},
    {"Pitch", "PitchResultFormatter", PitchResultFormatter::formattedResult, {pitch}},
    {"GPSCoordinates",
     "GPSCoordinatesResultFormatter",
     GPSCoordinatesResultFormatter::formattedResult,
     {gpsCoordinates}},
    {"DegreesMinutesSeconds",
     "DegreesMinutesSecondsResultFormatter",
     DegreesMinutesSecondsResultFormatter::formattedResult,
     {degreesMinutesSeconds}},
    {"unsigned integer", "OtherBaseResultFormatter", OtherBaseResultFormatter::formattedResult, {binary, octal, hex}},
    {"Datespan", "DatespanResultFormatter", DatespanResultFormatter::formattedResult, {datespan}},
    {"String", "RawStringResultFormatter", RawStringResultFormatter::formattedResult, {rawString, dynamicPlace}},
    {"SalesTax", "PercentageResultFormatter", PercentageResultFormatter::formattedResult, {salesTax}},
    {"UnitRange", "UnitRangeResultFormatter", UnitRangeResultFormatter::formattedResult, {unitRange}},
    {"pending", "PendingResultFormatter", PendingResultFormatter::formattedResult, {pending}},
    {"failed", "FailedResultFormatter", FailedResultFormatter::formattedResult, {failed}},
});
static_assert(kRows.size() == 26);

constexpr std::uint8_t kNoRow = 0xFF;

// For each case the index of the first row that holds it.
constexpr auto kRowOfCase = [] {
  std::array<std::uint8_t, kEvaluationResultCaseCount> rows{};
  rows.fill(kNoRow);
  for (std::size_t row = kRows.size(); row-- > 0;) {
    kRows[row].cases.forEach([&rows, row](EvaluationResultCase resultCase) {
      rows[static_cast<std::size_t>(resultCase)] = static_cast<std::uint8_t>(row);
    });
  }
  return rows;
}();

}  // namespace

std::span<const ModernResultFactory::Row> ModernResultFactory::rows() noexcept { return kRows; }

const ModernResultFactory::Row* ModernResultFactory::rowFor(EvaluationResult::Case resultCase) noexcept {
  const std::uint8_t row = kRowOfCase[static_cast<std::size_t>(resultCase)];
  return row == kNoRow ? nullptr : &kRows[row];
}

std::optional<CalculationResult> ModernResultFactory::formattedResultFor(const EvaluationResult& evaluationResult,
                                                                         const ResultFormatterContext& context) {
  const EvaluationResult* shown = &evaluationResult;
  for (const Variable* variable = shown->variableValue(); variable != nullptr && variable->definition != nullptr;
       variable = shown->variableValue()) {
    shown = variable->definition.get();
  }
  const Row* row = rowFor(shown->kind());
  if (row == nullptr || row->function == nullptr) return std::nullopt;
  return CalculationResult{row->function(*shown, context).value_or(std::string()), *shown, context.originalTokenList};
}

}  // namespace tavrine
