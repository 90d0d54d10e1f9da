#pragma once

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

/// Rounds numbers within their tokens.
class RoundingHelper {
 public:
  class RoundingType {
   public:
    /// Half away from zero.
    [[nodiscard]] static RoundingType decimalPlaces(int places) { return {places, RoundingMode::plain}; }
    [[nodiscard]] static RoundingType nearest() { return {0, RoundingMode::plain}; }
    /// To the next whole number towards plus infinity.
    [[nodiscard]] static RoundingType up() { return {0, RoundingMode::up}; }
    /// To the next whole number towards minus infinity.
    [[nodiscard]] static RoundingType down() { return {0, RoundingMode::down}; }

   private:
    friend class RoundingHelper;
    RoundingType(int places, RoundingMode mode) : places_(places), mode_(mode) {}
    int places_;
    RoundingMode mode_;
  };

  /// The token with its number rounded; of a percentage, the figure before the "%". The error `Other` for a token that
  /// can't be made anew with another number.
  [[nodiscard]] static Token round(const Token& token, RoundingType with);
  [[nodiscard]] static Decimal round(const Decimal& value, RoundingType with);
};

}  // namespace tavrine
