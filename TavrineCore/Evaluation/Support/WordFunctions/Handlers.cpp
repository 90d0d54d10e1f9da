#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"

#include <array>

namespace tavrine {

std::span<const WordFunctionHandler* const> allWordFunctionHandlers() {
  static constexpr std::array kHandlers{
      &kBasicFunctionHandler,
      &kChangeFunctionHandler,
      &kDateTimeFunctionHandler,
      &kFinancialFunctionHandler,
      &kLiteralFunctionHandler,
      &kStatisticalFunctionHandler,
      &kUnitFunctionHandler,
      &kVideoFunctionHandler,
  };
  return kHandlers;
}

}  // namespace tavrine
