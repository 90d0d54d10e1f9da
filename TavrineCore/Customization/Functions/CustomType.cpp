#include "TavrineCore/Customization/Functions/CustomType.h"

#include <utility>

#include "Foundation/Diagnostics.h"

namespace tavrine {

CustomType::CustomType(std::string prototypePlaceholder, std::vector<std::string> symbols, std::any associatedObject) {
  if (!prototypePlaceholder.starts_with(requiredPrefix)) {
    fatalError("The prototype placeholder " + prototypePlaceholder +
               " does not meet the required format (must be prefixed with '" + std::string(requiredPrefix) + "'");
  }
  fields_ = std::make_shared<const Fields>(
      Fields{std::move(prototypePlaceholder), std::move(symbols), std::move(associatedObject)});
}

std::size_t CustomType::hash() const { return hashCombine(hashOf(prototypePlaceholder()), hashOfRange(symbols())); }

bool operator==(const CustomType& left, const CustomType& right) {
  return left.fields_ == right.fields_ ||
         (left.prototypePlaceholder() == right.prototypePlaceholder() && left.symbols() == right.symbols());
}

}  // namespace tavrine
