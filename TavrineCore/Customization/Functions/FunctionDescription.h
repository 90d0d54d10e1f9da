#pragma once

#include <vector>

#include "Foundation/SharedText.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// An entry of the resource file "FunctionDescriptions": the phrases that call a built-in function. They are parts of
/// the text of the file.
struct FunctionDescription {
  FunctionIdentifier identifier = FunctionIdentifier::halfOf;
  std::vector<SharedText> prototypeExpressions;
};

}  // namespace tavrine
