#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Variables/VariableList.h"

namespace tavrine {

/// What it takes to know a variable fully. Both stand on upper floors.
struct VariableDefinitionBlocks {
  /// Of how many lexemes the name is made, in the current locale.
  std::function<std::size_t(std::string_view name)> lexemeCount;
  /// Calculates a text under the variables that are known so far.
  VariableList::DefinitionBlock definition;
};

/// A list of the variables, each with its definition and with `isPhrase` told.
[[nodiscard]] std::shared_ptr<VariableList> makeDefinedVariablesList(std::vector<Variable> variables,
                                                                     const VariableDefinitionBlocks& blocks);

}  // namespace tavrine
