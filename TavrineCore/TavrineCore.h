#pragma once

/// What a host application includes.
#include "TavrineCore/CalculationResult.h"
#include "TavrineCore/Calculator.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Customization/Variables/VariableList.h"
#include "TavrineCore/DefinedVariablesList.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Evaluation/TokenListForm.h"
#include "TavrineCore/GlobalEngineState.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"
