#include "TavrineCore/Customization/Variables/VariableList.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "Foundation/Text.h"

namespace tavrine {

namespace {

/// The sigma at the end of a word, and the one that a capital sigma stands for alone.
constexpr char32_t kFinalSigma = U'ς';
constexpr std::string_view kSigma = "σ";

/// Whether the parser looks for the variable among the words of a line: line references are met as characters.
bool isMatchedByWords(const Variable& variable) { return variable.type != Variable::VariableType::lineReference; }

bool isMultiWord(const Variable& variable) {
  return isMatchedByWords(variable) && variable.isPhrase.value_or(false) && !variable.name.empty();
}

bool isTagWithHash(const Variable& variable) {
  return variable.type == Variable::VariableType::tag && variable.name.starts_with('#');
}

}  // namespace

std::string VariableList::phraseKey(std::string_view text) {
  std::string key;
  key.reserve(text.size());
  for (std::size_t offset = 0; offset < text.size();) {
    const DecodedScalar decoded = decodeScalar(text, offset);
    const std::string_view scalar = text.substr(offset, decoded.length);
    offset += decoded.length;
    if (isWhitespace(decoded.scalar)) {
      if (!key.ends_with(' ')) key += ' ';
    } else if (decoded.scalar == kFinalSigma) {
      key += kSigma;
    } else {
      // One by one, since what stands around a letter must not change its small form.
      key += lowercased(scalar);
    }
  }
  return key;
}

VariableList::VariableList(std::vector<Variable> variables) { setVariables(std::move(variables)); }

std::shared_ptr<VariableList> VariableList::copy() const {
  auto list = std::make_shared<VariableList>();
  list->variableMap_ = variableMap_;
  list->phrases_ = phrases_;
  list->unhashedTags_ = unhashedTags_;
  return list;
}

const Variable* VariableList::find(std::string_view name) const {
  const auto found = variableMap_.find(name);
  return found != variableMap_.end() ? found->second.get() : nullptr;
}

void VariableList::setVariable(Variable variable) { store(std::make_shared<const Variable>(std::move(variable))); }

void VariableList::setVariables(std::vector<Variable> variables) {
  for (Variable& variable : variables) setVariable(std::move(variable));
}

void VariableList::store(std::shared_ptr<const Variable> variable) {
  // The key is a view into the variable, so that a replaced variable takes its key with it.
  clearVariable(variable->name);
  if (isMultiWord(*variable)) phrases_[phraseKey(variable->name)].push_back(variable);
  if (isTagWithHash(*variable)) unhashedTags_.insert(variable->name);
  const std::string_view name = variable->name;
  variableMap_.emplace(name, std::move(variable));
}

void VariableList::clearVariable(std::string_view name) {
  const auto found = variableMap_.find(name);
  if (found == variableMap_.end()) return;
  if (isTagWithHash(*found->second)) unhashedTags_.erase(found->second->name);
  // The name handed in may be the key itself, which must outlive the node.
  const std::shared_ptr<const Variable> variable = found->second;
  variableMap_.erase(found);
  if (!isMultiWord(*variable)) return;
  const auto phrases = phrases_.find(phraseKey(variable->name));
  std::erase(phrases->second, variable);
  if (phrases->second.empty()) phrases_.erase(phrases);
}

std::vector<Variable> VariableList::allVariables() const {
  std::vector<Variable> variables;
  variables.reserve(count());
  forEach([&](const Variable& variable) { variables.push_back(variable); });
  return variables;
}

std::vector<Variable> VariableList::singleWordVariables() const {
  std::vector<Variable> variables;
  forEach([&](const Variable& variable) {
    if (isMatchedByWords(variable) && !isMultiWord(variable)) variables.push_back(variable);
  });
  return variables;
}

std::vector<Variable> VariableList::multiWordVariables(bool reverseSortByLength) const {
  std::vector<Variable> variables;
  if (phrases_.empty()) return variables;
  forEach([&](const Variable& variable) {
    if (isMultiWord(variable)) variables.push_back(variable);
  });
  if (!reverseSortByLength) return variables;

  std::vector<std::pair<std::size_t, std::size_t>> lengthsAndIndexes;
  lengthsAndIndexes.reserve(variables.size());
  for (std::size_t i = 0; i < variables.size(); ++i) {
    lengthsAndIndexes.emplace_back(clusterCount(variables[i].name), i);
  }
  std::stable_sort(lengthsAndIndexes.begin(), lengthsAndIndexes.end(),
                   [](const auto& left, const auto& right) { return left.first > right.first; });
  std::vector<Variable> sorted;
  sorted.reserve(variables.size());
  for (const auto& [length, index] : lengthsAndIndexes) sorted.push_back(std::move(variables[index]));
  return sorted;
}

std::vector<Variable> VariableList::variablesExludingLineReferences() const {
  std::vector<Variable> variables;
  forEach([&](const Variable& variable) {
    if (variable.type == Variable::VariableType::local || variable.type == Variable::VariableType::global) {
      variables.push_back(variable);
    }
  });
  return variables;
}

bool VariableList::isFullyDefined() const {
  return std::all_of(variableMap_.begin(), variableMap_.end(),
                     [](const auto& entry) { return entry.second->definition != nullptr; });
}

void VariableList::provideDefinitionsForValuesWith(const DefinitionBlock& definitionBlock) {
  // The block may ask this very list, so nothing is changed while the map is walked.
  std::vector<std::shared_ptr<const Variable>> undefined;
  for (const auto& [name, variable] : variableMap_) {
    if (variable->value && variable->definition == nullptr) undefined.push_back(variable);
  }
  for (const auto& variable : undefined) {
    Variable defined = *variable;
    defined.definition = definitionBlock(*variable->value);
    setVariable(std::move(defined));
  }
}

std::size_t VariableList::hash() const {
  std::size_t seed = 0;
  forEach([&](const Variable& variable) { seed = hashCombine(seed, variable.hash()); });
  return seed;
}

bool operator==(const VariableList& left, const VariableList& right) {
  return std::equal(
      left.variableMap_.begin(), left.variableMap_.end(), right.variableMap_.begin(), right.variableMap_.end(),
      [](const auto& one, const auto& other) { return one.second == other.second || *one.second == *other.second; });
}

std::string VariableList::debugDescription() const {
  char address[2 + 2 * sizeof(void*) + 1];
  std::snprintf(address, sizeof address, "%p", static_cast<const void*>(this));
  std::string text =
      "VariableList (" + std::string(address) + ")) with " + std::to_string(count()) + " variables: \n\n";
  forEach([&](const Variable& variable) { text += variable.name + ": " + variable.debugDescription() + "\n"; });
  return text;
}

}  // namespace tavrine
