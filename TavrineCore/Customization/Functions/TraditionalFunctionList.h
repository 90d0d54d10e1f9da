#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "Foundation/StringMap.h"
#include "Foundation/WordFilter.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The functions that are called by name, "sqrt(2)": the standard ones and those of the host.
class TraditionalFunctionList {
 public:
  /// The names of the functions that are always there.
  static constexpr std::array<std::string_view, 30> standardFunctionNames = {
      "abs",  "ceil",   "floor", "round",  "exp",  "log",    "log10", "log2",      "ln",       "sqrt",
      "cbrt", "sin",    "sinh",  "sind",   "asin", "arcsin", "atanh", "cos",       "cosh",     "cosd",
      "acos", "arccos", "atan",  "arctan", "tan",  "tanh",   "fact",  "unitstrip", "fromunix", "assert"};

  explicit TraditionalFunctionList(const std::vector<TraditionalFunction>& additionalFunctions);

  /// The function of this name or alias, upper and lower case told apart; null when there is none. Of two functions
  /// with one name the later counts, so that a host can replace a standard one.
  const TraditionalFunction* functionNamed(const HashedWord& name) const;
  /// False for most words that name none.
  bool mayKnow(const HashedWord& word) const { return names_.mayContain(word); }

  /// The standard functions, then the additional ones.
  const std::vector<TraditionalFunction>& traditionalFunctions() const { return traditionalFunctions_; }

 private:
  std::vector<TraditionalFunction> traditionalFunctions_;
  StringMap<std::size_t> functionNameCache_;  // index into traditionalFunctions_
  WordFilter names_;
};

}  // namespace tavrine
