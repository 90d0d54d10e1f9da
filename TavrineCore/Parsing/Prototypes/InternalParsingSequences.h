#pragma once

#include <vector>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"

namespace tavrine {

/// The phrases by which the passes themselves recognise values. Read once, when they are first asked for.
struct InternalParsingSequences {
  /// "30 km", "$ 30", "30km".
  std::vector<PrototypeSequenceRef> unitExpressionSequences;
  /// "10%", "10 %".
  std::vector<PrototypeSequenceRef> percentagesSequences;
  /// "3:45:32.431".
  std::vector<PrototypeSequenceRef> laptimeSequences;
  /// "3:45:32:15".
  std::vector<PrototypeSequenceRef> frametimeSequences;
  /// "01-02-20".
  std::vector<PrototypeSequenceRef> slashAndDashDateSequences;

  [[nodiscard]] static const InternalParsingSequences& shared();
};

}  // namespace tavrine
