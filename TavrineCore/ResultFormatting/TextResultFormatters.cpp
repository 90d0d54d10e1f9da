#include "TavrineCore/ResultFormatting/TextResultFormatters.h"

#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Pitch.h"

namespace tavrine {

using Case = EvaluationResult::Case;

std::optional<std::string> BooleanResultFormatter::formattedResult(const EvaluationResult& result,
                                                                   const ResultFormatterContext&) {
  const bool* value = result.as<Case::boolean>();
  if (value == nullptr) return std::nullopt;
  return *value ? "true" : "false";
}

std::optional<std::string> ErrorResultFormatter::formattedResult(const EvaluationResult& result,
                                                                 const ResultFormatterContext&) {
  const EvaluationError* error = result.as<Case::error>();
  if (error == nullptr) return std::nullopt;
  return std::string(stringValue(*error));
}

std::optional<std::string> RawStringResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext&) {
  const std::string* text = result.as<Case::rawString>();
  if (text == nullptr) text = result.as<Case::dynamicPlace>();
  if (text == nullptr) return std::nullopt;
  return *text;
}

std::optional<std::string> PitchResultFormatter::formattedResult(const EvaluationResult& result,
                                                                 const ResultFormatterContext&) {
  const Pitch* pitch = result.as<Case::pitch>();
  if (pitch == nullptr) return std::nullopt;
  return pitch->notationString();
}

std::optional<std::string> PendingResultFormatter::formattedResult(const EvaluationResult& result,
                                                                   const ResultFormatterContext&) {
  if (!result.is(Case::pending)) return std::nullopt;
  return "pending…";
}

std::optional<std::string> FailedResultFormatter::formattedResult(const EvaluationResult& result,
                                                                  const ResultFormatterContext&) {
  if (!result.is(Case::failed)) return std::nullopt;
  return "⚠️";
}

}  // namespace tavrine
