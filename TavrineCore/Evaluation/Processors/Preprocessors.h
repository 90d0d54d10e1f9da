#pragma once

#include "TavrineCore/Evaluation/Processors/TokenListProcessor.h"

namespace tavrine {

/// Rewrites the list for its evaluation, by the fixed chain: variables and subsheets, comments, everything else.
void preprocess(EditableTokenList& list, const EngineCustomization& customization);

}  // namespace tavrine
