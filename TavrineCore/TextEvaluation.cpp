#include "TavrineCore/Evaluation/TextEvaluation.h"

#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Calculator.h"

namespace tavrine {

EvaluationResult resultOfText(std::string_view text) {
  Calculator calculator(EngineCustomization::basic());
  return calculator.calculate(text).evaluationResult;
}

}  // namespace tavrine
