// "3:45:32 at 24 fps", "1000 frames at 25 fps", "frames between 01:00:00:00 and 01:00:10:05".

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "Foundation/Decimal.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/ArgumentsByKind.h"
#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"
#include "TavrineCore/Parsing/Primitives/BuiltInUnits.h"
#include "TavrineCore/Parsing/Primitives/Frametime.h"
#include "TavrineCore/Parsing/Primitives/Laptime.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"

namespace tavrine {

namespace {

using enum FunctionIdentifier;
using Arguments = std::span<const Token>;
using Answer = std::optional<EvaluationResult>;

constexpr FunctionIdentifierSet kHandled{formFrametime, framesToFrametime, framesBetweenFrametimes};

/// The frame rate among the arguments; nothing for one that no film has.
std::optional<Decimal> frameRateIn(Arguments arguments) {
  const std::optional<UnitExpression> rate = quantityOf(UnitType::frameRate, arguments);
  if (!rate || rate->value.isNaN() || rate->value <= 0) return std::nullopt;
  return rate->value;
}

/// A time code keeps its frames as the part of a second that they are at its own rate.
std::optional<Laptime> readingOf(const Token& token) {
  if (const std::optional<Laptime> laptime = token.laptimeValue()) return laptime;
  const std::optional<Frametime> time = token.frametimeValue();
  if (!time) return std::nullopt;
  return Laptime{time->hour, time->minute, Decimal(time->second) + Decimal(time->frame) / time->fps};
}

Answer frametimeAt(Arguments arguments) {
  const std::optional<Decimal> fps = frameRateIn(arguments);
  if (!fps) return std::nullopt;
  for (const Token& argument : arguments) {
    if (const auto reading = readingOf(argument)) return EvaluationResult::frametime(frametimeValueAt(*fps, *reading));
  }
  return std::nullopt;
}

Answer frametimeOfFrames(Arguments arguments) {
  const std::optional<UnitExpression> frames = quantityOf(UnitType::frames, arguments);
  const std::optional<Decimal> fps = frameRateIn(arguments);
  if (!frames || !fps) return std::nullopt;
  return EvaluationResult::frametime(frametimeFrom(frames->value.rounded(0, RoundingMode::plain), *fps));
}

/// From the earlier to the later, however they were named.
Answer framesBetween(Arguments arguments) {
  std::vector<Frametime> times;
  for (const Token& argument : arguments) {
    if (auto time = argument.frametimeValue()) times.push_back(*std::move(time));
  }
  if (times.size() != 2) return std::nullopt;
  times = standardizedByFPS(times);
  if (totalFramesOf(times[0]) < totalFramesOf(times[1])) std::swap(times[0], times[1]);
  return EvaluationResult::unitExpression(
      {totalFramesOf(times[0] - times[1]), unitOf(UnitIdentifier::frames), /*prefersCompoundUnitFormatting=*/false});
}

Answer evaluateVideoFunction(FunctionIdentifier identifier, Arguments arguments, const EngineCustomization&) {
  switch (identifier) {
    case formFrametime:
      return frametimeAt(arguments);
    case framesToFrametime:
      return frametimeOfFrames(arguments);
    case framesBetweenFrametimes:
      return framesBetween(arguments);
    default:
      return std::nullopt;
  }
}

}  // namespace

constinit const WordFunctionHandler kVideoFunctionHandler{kHandled, evaluateVideoFunction};

}  // namespace tavrine
