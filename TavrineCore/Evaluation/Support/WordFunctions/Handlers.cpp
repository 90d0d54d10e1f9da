#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"

#include <array>

namespace tavrine {

std::span<const WordFunctionHandler* const> allWordFunctionHandlers() {
  static constexpr std::array kHandlers{
      &kBasicFunctionHandler,
      &kChangeFunctionHandler,
      &kDateTimeFunctionHandler,
      &kFinancialFunctionHandler,
      &kGeographicFunctionHandler,
      &kLiteralFunctionHandler,
      &kStatisticalFunctionHandler,
      &kUnitFunctionHandler,
      &kVideoFunctionHandler,
      &kWeatherFunctionHandler,
  };
  return kHandlers;
}

}  // namespace tavrine
