#pragma once

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

/// The variables that one calculation knows. Look-ups go through `find` and `forEach`, and nobody holds the map, so
/// that another store (a view of a document as of some line) can stand behind them.
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
  /// Whether the variable is one of `multiWordVariables`.
  [[nodiscard]] static bool isMultiWord(const Variable& variable);
  /// Longest names first, in characters.
  static void sortByLength(std::vector<Variable>& variables);
  /// Whether `multiWordVariables` has any: at no cost.
  [[nodiscard]] bool hasMultiWordVariables() const { return multiWordCount_ != 0; }
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
  std::size_t multiWordCount_ = 0;
  StringSet unhashedTags_;
};

}  // namespace tavrine
