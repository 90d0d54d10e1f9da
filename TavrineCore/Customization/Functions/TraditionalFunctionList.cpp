#include "TavrineCore/Customization/Functions/TraditionalFunctionList.h"

#include <string>

namespace tavrine {

TraditionalFunctionList::TraditionalFunctionList(const std::vector<TraditionalFunction>& additionalFunctions) {
  traditionalFunctions_.reserve(standardFunctionNames.size() + additionalFunctions.size());
  for (const std::string_view name : standardFunctionNames) {
    TraditionalFunction& function = traditionalFunctions_.emplace_back();
    function.name = name;
  }
  traditionalFunctions_.insert(traditionalFunctions_.end(), additionalFunctions.begin(), additionalFunctions.end());

  for (std::size_t i = 0; i < traditionalFunctions_.size(); ++i) {
    const TraditionalFunction& function = traditionalFunctions_[i];
    functionNameCache_[function.name] = i;
    if (!function.aliases) continue;
    for (const std::string& alias : *function.aliases) functionNameCache_[alias] = i;
  }
  names_ = WordFilter::ofKeys(functionNameCache_);
}

const TraditionalFunction* TraditionalFunctionList::functionNamed(const HashedWord& name) const {
  if (!mayKnow(name)) return nullptr;
  const auto found = functionNameCache_.find(name.text);
  return found == functionNameCache_.end() ? nullptr : &traditionalFunctions_[found->second];
}

}  // namespace tavrine
