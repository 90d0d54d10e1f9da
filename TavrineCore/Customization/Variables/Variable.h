#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Utility/Hashable.h"
#include "TavrineCore/Utility/IndexSet.h"

namespace tavrine {

class EvaluationResult;

/// A name that a line may mention, with what it stands for.
struct Variable {
  enum class VariableType : std::uint8_t { undefined, local, global, lineReference, relativeLineReference, tag };

  /// The text that the parser matches; for a line reference its one character.
  std::string name;
  /// The text that the value is to be calculated from, if the variable was given as text.
  std::optional<std::string> value;
  /// The calculated value; null until there is one.
  std::shared_ptr<const EvaluationResult> definition;
  VariableType type = VariableType::undefined;
  /// Whether the name is made of several words; absent until known.
  std::optional<bool> isPhrase;
  /// The line that declares the variable.
  std::optional<std::size_t> declaringLineIndex;
  /// The lines that a tag or reference stands for; null when unknown.
  std::shared_ptr<const IndexSet> relatedLineIndexes;
  /// The results of those lines, for statistics over a tag; null when unknown.
  std::shared_ptr<const std::vector<EvaluationResult>> representedResults;

  Variable() = default;
  Variable(std::string theName, std::optional<std::string> theValue, VariableType theType);

  /// Names, and then the definitions where both have one, the values where neither has. The rest doesn't count.
  friend bool operator==(const Variable& left, const Variable& right);
  [[nodiscard]] std::size_t hash() const;

  /// "area = 12 (local)", for dumps.
  [[nodiscard]] std::string debugDescription() const;
};

/// The raw name: "lineReference".
std::string_view toString(Variable::VariableType type);

}  // namespace tavrine
