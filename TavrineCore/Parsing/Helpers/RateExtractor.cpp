#include "TavrineCore/Parsing/Helpers/RateExtractor.h"

#include "TavrineCore/Parsing/Tokens/Token.h"

namespace tavrine {

std::optional<RateType> RateExtractor::from(const Token& token) {
  if (!token.is(TokenType::rate)) return std::nullopt;
  switch (token.subType) {
    case TokenSubType::decimalRate:
      return token.decimalRateValue();
    case TokenSubType::percentageRate:
      return token.percentageRateValue();
    case TokenSubType::unitRate:
      return token.unitRateValue();
    default:
      return std::nullopt;
  }
}

}  // namespace tavrine
