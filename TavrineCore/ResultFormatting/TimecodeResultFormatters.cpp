#include "TavrineCore/ResultFormatting/TimecodeResultFormatters.h"

#include <cstdint>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

void appendTwoDigits(std::int64_t number, std::string& text) {
  const Decimal magnitude = Decimal(number).magnitude();
  if (magnitude < Decimal(10)) text += '0';
  text += magnitude.description();
}

}  // namespace

std::optional<std::string> LaptimeResultFormatter::formattedResult(const EvaluationResult& result,
                                                                   const ResultFormatterContext& context) {
  const Laptime* laptime = result.as<Case::laptime>();
  if (laptime == nullptr) return std::nullopt;
  std::string text;
  if (isNegative(*laptime)) text += '-';
  appendTwoDigits(laptime->hour.value_or(0), text);
  text += ':';
  appendTwoDigits(laptime->minute, text);
  if (!laptime->seconds) return text;
  const auto shown = [&context](const Decimal& number) {
    return DecimalResultFormatter::formatted(number, context.formattingPreferences, context.locale);
  };
  const Decimal seconds = laptime->seconds->magnitude();
  const std::string shownSeconds = shown(seconds);
  text += ':';
  // 9.999 may be shown as 10, which has its two digits.
  if (seconds < Decimal(10) && shownSeconds != shown(10)) text += '0';
  return text += shownSeconds;
}

std::optional<std::string> FrametimeResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext&) {
  const Frametime* frametime = result.as<Case::frametime>();
  if (frametime == nullptr) return std::nullopt;
  std::string text;
  for (const std::int64_t part : {frametime->hour, frametime->minute, frametime->second, frametime->frame}) {
    if (!text.empty()) text += ':';
    appendTwoDigits(part, text);
  }
  return text;
}

}  // namespace tavrine
