#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"

namespace tavrine {

class TokenList;

/// Phrases are read once a process. What is kept is the phrase alone; what it calls is put to it at each use, so that
/// a function that a host has edited never meets its old handler. May be used from any thread; nothing is parsed while
/// a cache is locked.
class PrototypeSequenceCache {
 public:
  /// How many phrases of hosts and users are kept, each: past it, the keeping starts anew.
  static constexpr std::size_t kMaximumCustomPhrases = 2'000;
  static constexpr std::size_t kMaximumVariablePhrases = 2'000;

  /// A sequence for each function, in their order; with a list, but for those whose gaps it can't fill.
  [[nodiscard]] static std::vector<PrototypeSequenceRef> sequencesFor(std::span<const Function* const> functions,
                                                                      const TokenList* list = nullptr);
  /// A sequence for each phrase of each function: its own, then its aliases.
  [[nodiscard]] static std::vector<PrototypeSequenceRef> sequencesFor(std::span<const CustomFunction> functions);
  /// The words of the variable's name; null for a name that no phrase can be made of.
  [[nodiscard]] static PrototypeSequenceRef sequenceFor(const Variable& variable);

  /// How many phrases are kept: built-in, custom, of variables.
  struct Counts {
    std::size_t wordFunctions = 0;
    std::size_t customFunctions = 0;
    std::size_t variables = 0;
  };
  [[nodiscard]] static Counts counts();
};

}  // namespace tavrine
