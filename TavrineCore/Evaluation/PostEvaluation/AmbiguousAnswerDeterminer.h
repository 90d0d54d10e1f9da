#pragma once

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// Picks one answer out of a line that holds values and no operation: the rightmost amount of money, else the
/// rightmost other unit expression, else the rightmost value. "Rent 500 then 3 km and $20" answers $20.
class AmbiguousAnswerDeterminer {
 public:
  explicit AmbiguousAnswerDeterminer(const TokenList& tokenList) : tokenList_(tokenList) {}

  /// The blank token where the line holds no value.
  [[nodiscard]] Token finalValue() const;

 private:
  const TokenList& tokenList_;
};

}  // namespace tavrine
