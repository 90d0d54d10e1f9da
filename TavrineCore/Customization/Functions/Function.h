#pragma once

#include <cstddef>

#include "Foundation/SharedText.h"
#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// One phrase that calls a built-in function: "half of __decimal".
struct Function {
  SharedText prototypeExpression;
  FunctionIdentifier identifier = FunctionIdentifier::halfOf;

  [[nodiscard]] std::size_t hash() const { return hashOf(prototypeExpression, identifier); }
  friend bool operator==(const Function&, const Function&) = default;
};

}  // namespace tavrine
