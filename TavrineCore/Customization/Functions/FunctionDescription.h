#pragma once

#include <string>
#include <vector>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"

namespace tavrine {

/// An entry of the resource file "FunctionDescriptions": the phrases that call a built-in function.
struct FunctionDescription {
  FunctionIdentifier identifier = FunctionIdentifier::halfOf;
  std::vector<std::string> prototypeExpressions;
};

}  // namespace tavrine
