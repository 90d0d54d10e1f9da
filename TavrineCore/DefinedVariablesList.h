#pragma once

#include <memory>
#include <vector>

namespace tavrine {

struct Variable;
class VariableList;

/// A list of the variables, each with its definition and with `isPhrase` told: ready for any number of calculations.
/// Values that are given as text are calculated under `EngineCustomization::basic()`, each by itself. Any thread may
/// call it.
[[nodiscard]] std::shared_ptr<VariableList> makeDefinedVariablesList(std::vector<Variable> variables);

}  // namespace tavrine
