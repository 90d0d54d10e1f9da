#pragma once

#include <cstddef>
#include <string>

#include "TavrineCore/Customization/Functions/FunctionIdentifier.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// One phrase that calls a built-in function: "half of __decimal".
struct Function {
  std::string prototypeExpression;
  FunctionIdentifier identifier = FunctionIdentifier::halfOf;

  [[nodiscard]] std::size_t hash() const { return hashOf(prototypeExpression, identifier); }
  friend bool operator==(const Function&, const Function&) = default;
};

}  // namespace tavrine
