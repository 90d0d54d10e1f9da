#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

class Token;

/// What a token of a user's text stands for in the phrase that is made of the text.
enum class PrototypeExpressionMatchType : std::uint8_t {
  literally,
  byType,      ///< any token of the type: "20%" becomes "__percentage"
  byUnitType,  ///< any unit of the kind: "5 km" becomes "__length_expression"
};

/// Makes phrases with gaps of what users write: "area of 5 m by 3 m" → "area of __length_expression by
/// __length_expression".
class PrototypeExpressionGenerator {
 public:
  using MatchTypeHandler = FunctionRef<PrototypeExpressionMatchType(const Token&)>;

  /// The phrase, without white space at its ends. The handler is asked for everything but words, numbers, operators
  /// and white space, which stay as they are. Nothing for a text with the call of a function in it.
  [[nodiscard]] static std::optional<std::string> prototypeStringFrom(std::string_view expression,
                                                                      MatchTypeHandler matchTypeHandler);

  /// The same for a text that is to define a function: it must hold a gap, and something beside its gaps.
  [[nodiscard]] static std::optional<std::string> validCustomFunctionPrototypeStringFrom(
      std::string_view expression, MatchTypeHandler matchTypeHandler);
};

}  // namespace tavrine
