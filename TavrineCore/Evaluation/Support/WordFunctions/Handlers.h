#pragma once

#include <span>

#include "TavrineCore/Evaluation/Support/WordFunctions/WordFunctionHandler.h"

namespace tavrine {

/// The families, each in a source file of its own.
extern const WordFunctionHandler kBasicFunctionHandler;
extern const WordFunctionHandler kChangeFunctionHandler;
extern const WordFunctionHandler kDateTimeFunctionHandler;
extern const WordFunctionHandler kFinancialFunctionHandler;
extern const WordFunctionHandler kGeographicFunctionHandler;
extern const WordFunctionHandler kLiteralFunctionHandler;
extern const WordFunctionHandler kStatisticalFunctionHandler;
extern const WordFunctionHandler kUnitFunctionHandler;
extern const WordFunctionHandler kVideoFunctionHandler;
extern const WordFunctionHandler kWeatherFunctionHandler;

/// All of them; no function is in two.
std::span<const WordFunctionHandler* const> allWordFunctionHandlers();

}  // namespace tavrine
