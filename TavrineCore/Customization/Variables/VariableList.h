#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Variables/Variable.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The variables that one calculation knows. Look-ups go through `find`, `forEach` and `forEachPhraseAtStartOf`, and
/// nobody holds the map, so that another store (a view of a document as of some line) can stand behind them.
///
/// Takes no lock: a list belongs to one calculation, or is built once and then only read, from any thread.
class VariableList {
 public:
  /// Calculates the text of a variable; null when it comes to nothing.
  using DefinitionBlock = std::function<std::shared_ptr<const EvaluationResult>(const std::string& value)>;

  VariableList() = default;
  /// Of two variables with one name the later counts.
  explicit VariableList(std::vector<Variable> variables);
  VariableList(const VariableList&) = delete;
  VariableList& operator=(const VariableList&) = delete;

  /// A list of its own with the same variables, which are shared.
  [[nodiscard]] std::shared_ptr<VariableList> copy() const;

  /// The variable of this name; null when there is none. Valid until the list changes.
  [[nodiscard]] const Variable* find(std::string_view name) const;

  /// Calls `visit(variable)` for each, by name, descending: a name comes before any shorter one that it begins with.
  template <class Visit>
  void forEach(Visit&& visit) const {
    for (const auto& [name, variable] : variableMap_) visit(*variable);
  }

  /// A text as phrases are looked for: letter case and the kind and length of blanks make no difference.
  [[nodiscard]] static std::string phraseKey(std::string_view text);

  /// Calls `visit(variable)` with a shared pointer for each phrase whose key the text begins with, the longest key
  /// first. Takes about as many steps as there are such phrases, however many others the list holds.
  template <class Visit>
  void forEachPhraseAtStartOf(std::string_view textKey, Visit&& visit) const {
    while (!textKey.empty()) {
      auto found = phrases_.upper_bound(textKey);
      if (found == phrases_.begin()) return;
      // All that the text begins with comes at or before this key in the order, and shares what both begin with.
      const auto& [key, variables] = *--found;
      const auto end = std::mismatch(key.begin(), key.end(), textKey.begin(), textKey.end()).first;
      auto common = static_cast<std::size_t>(end - key.begin());
      if (common == key.size()) {
        for (const auto& variable : variables) visit(variable);
        --common;
      }
      textKey = textKey.substr(0, common);
    }
  }

  /// Stores the variable under its name.
  void setVariable(Variable variable);
  void setVariables(std::vector<Variable> variables);
  /// Nothing happens if there is none.
  void clearVariable(std::string_view name);

  /// In the order of `forEach`.
  [[nodiscard]] std::vector<Variable> allVariables() const;
  /// Those that are no phrases as far as is known, without line references.
  [[nodiscard]] std::vector<Variable> singleWordVariables() const;
  /// Those that are phrases, without line references; longest first (in characters) when `reverseSortByLength`.
  [[nodiscard]] std::vector<Variable> multiWordVariables(bool reverseSortByLength) const;
  /// Whether `multiWordVariables` has any: at no cost.
  [[nodiscard]] bool hasMultiWordVariables() const { return !phrases_.empty(); }
  /// The names of the tags that a line may mention without their "#" where it asks for a statistic: "#food".
  [[nodiscard]] const StringSet& unhashedTags() const { return unhashedTags_; }
  /// The local and global ones, in the order of `forEach`.
  [[nodiscard]] std::vector<Variable> variablesExludingLineReferences() const;

  [[nodiscard]] std::size_t count() const { return variableMap_.size(); }
  [[nodiscard]] bool isEmpty() const { return variableMap_.empty(); }
  [[nodiscard]] bool isNotEmpty() const { return !isEmpty(); }

  /// Whether every variable has a definition.
  [[nodiscard]] bool isFullyDefined() const;

  /// Gives a definition to each variable that has a text and none yet.
  void provideDefinitionsForValuesWith(const DefinitionBlock& definitionBlock);

  [[nodiscard]] std::size_t hash() const;
  /// Whether both hold equal variables.
  friend bool operator==(const VariableList& left, const VariableList& right);

  [[nodiscard]] std::string debugDescription() const;

 private:
  void store(std::shared_ptr<const Variable> variable);

  // Sorted at all times, so that reading never has to fill a cache. The keys lie in the variables.
  std::map<std::string_view, std::shared_ptr<const Variable>, std::greater<>> variableMap_;
  // The phrases by their keys, none of which is empty.
  std::map<std::string, std::vector<std::shared_ptr<const Variable>>, std::less<>> phrases_;
  StringSet unhashedTags_;
};

}  // namespace tavrine
