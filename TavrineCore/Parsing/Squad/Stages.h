#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"

namespace tavrine {

class TokenList;
struct PassContext;

/// Where a stage stands on the road of a line.
enum class ParsePhase : std::uint8_t {
  simple,     // S: lexemes to a flat list of simple tokens
  variables,  // V: multi-word variables, and variables giving way to their values
  groups,     // G: runs of tokens fuse into larger ones
  restoring,  // V: the variables' names come back
  cleanUp,    // C: what nothing used turns back into comments
  guard,      // L: the list must still be the line
};

/// One row of the chain: a pass and its gate. The pass runs when every condition of the row holds.
struct Stage {
  std::string_view name;  // "S3", "G13": the name in dumps, tests and timings
  std::string_view pass;  // the name of the pass
  ParsePhase phase;
  TokenTypeSet needsAll;  // types that must all have been present in the list
  TokenTypeSet needsAny;  // at least one of these must have been; an empty set asks nothing
  /// A gate beyond the types: a feature flag, a character of the line. Null asks nothing.
  bool (*alsoRequires)(const TokenList& list, const PassContext& context);
  /// Null for a pass that the engine does not have yet.
  void (*run)(TokenList& list, const PassContext& context);
};

/// The whole chain, in its order. Each pass counts on what ran before it.
std::span<const Stage> parserStages();

/// Called behind every row of the chain that applies to the line: dumps, golden files and the tiling check hang on it.
/// `ran` is false when the gate was shut.
using StageObserver = std::function<void(const Stage& stage, const TokenList& list, bool ran)>;

/// Runs the rows of the phases up to and including `last`.
void runStages(ParsePhase first, ParsePhase last, TokenList& list, const PassContext& context,
               const StageObserver* observer);

}  // namespace tavrine
