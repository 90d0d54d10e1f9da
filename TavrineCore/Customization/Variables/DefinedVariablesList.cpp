#include "TavrineCore/Customization/Variables/DefinedVariablesList.h"

#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

namespace {

bool consistsOfLowercaseLetters(std::string_view name) {
  for (std::size_t offset = 0; offset < name.size();) {
    const DecodedScalar decoded = decodeScalar(name, offset);
    if (!isLowercaseLetter(decoded.scalar)) return false;
    offset += decoded.length;
  }
  return true;
}

}  // namespace

std::shared_ptr<VariableList> makeDefinedVariablesList(std::vector<Variable> variables,
                                                       const VariableDefinitionBlocks& blocks) {
  auto list = std::make_shared<VariableList>();
  for (Variable& variable : variables) {
    if (!variable.isPhrase) {
      // Most names are plain words, which needn't be lexed.
      variable.isPhrase = !consistsOfLowercaseLetters(variable.name) && blocks.lexemeCount(variable.name) > 1;
    }
    list->setVariable(std::move(variable));
  }
  list->provideDefinitionsForValuesWith(blocks.definition);
  return list;
}

}  // namespace tavrine
