#pragma once

#include <cstdint>
#include <string_view>

#include "TavrineCore/Parsing/Prototypes/PrototypeSequence.h"

namespace tavrine {

/// Reads phrases that are written as text: "half of __decimal", "30 __unit".
class PrototypeSequenceGenerator {
 public:
  /// What a plain number in the text stands for.
  enum class NumberInterpretationMode : std::uint8_t {
    literalNumber,     ///< itself
    typedNumber,       ///< any number
    arithmeticEntity,  ///< whatever can be calculated with
  };

  /// White space counts: "30 __unit" and "30__unit" are two phrases. Brackets stand for brackets. A placeholder of an
  /// unknown name is one of a host's own types.
  [[nodiscard]] static PrototypeSequenceRef sequenceFor(std::string_view string, NumberInterpretationMode mode);
};

}  // namespace tavrine
