#include "TavrineCore/Customization/Variables/Variable.h"

#include <utility>

#include "TavrineCore/Parsing/Primitives/ResultSeam.h"

namespace tavrine {

Variable::Variable(std::string theName, std::optional<std::string> theValue, VariableType theType)
    : name(std::move(theName)), value(std::move(theValue)), type(theType) {}

bool operator==(const Variable& left, const Variable& right) {
  if (left.name != right.name) return false;
  if (left.definition == nullptr && right.definition == nullptr) return left.value == right.value;
  return areEqualResults(left.definition, right.definition);
}

std::size_t Variable::hash() const {
  // Only what equality looks at: of two variables with equal definitions the values may differ.
  const std::size_t content = definition != nullptr ? hashOfResult(*definition) : hashOf(value);
  return hashCombine(hashOf(name, definition != nullptr), content);
}

std::string Variable::debugDescription() const {
  std::string text = name + " = " + value.value_or("?") + " (" + std::string(toString(type));
  if (definition != nullptr) text += ", defined";
  if (isPhrase.value_or(false)) text += ", phrase";
  return text + ")";
}

std::string_view toString(Variable::VariableType type) {
  switch (type) {
    case Variable::VariableType::undefined:
      return "undefined";
    case Variable::VariableType::local:
      return "local";
    case Variable::VariableType::global:
      return "global";
    case Variable::VariableType::lineReference:
      return "lineReference";
    case Variable::VariableType::relativeLineReference:
      return "relativeLineReference";
    case Variable::VariableType::tag:
      return "tag";
  }
  return {};
}

}  // namespace tavrine
