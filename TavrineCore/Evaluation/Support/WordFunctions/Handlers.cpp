#include "TavrineCore/Evaluation/Support/WordFunctions/Handlers.h"

#include <array>

namespace tavrine {

std::span<const WordFunctionHandler* const> allWordFunctionHandlers() {
  static constexpr std::array kHandlers{
      &kBasicFunctionHandler,
      &kDateTimeFunctionHandler,
  };
  return kHandlers;
}

}  // namespace tavrine
