#pragma once

#include <utility>

#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/Parsing/Tokens/TokenMetadata.h"

namespace tavrine {

/// "3/4".
struct FractionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::fraction> {
  explicit FractionTokenMetadata(Fraction value) : fraction(std::move(value)) {}
  Fraction fraction;
};

/// "2x".
struct MultiplierTokenMetadata final : TokenMetadataOf<TokenMetadataKind::multiplier> {
  explicit MultiplierTokenMetadata(Multiplier value) : multiplier(value) {}
  Multiplier multiplier;
};

/// "20%", held as 0.2.
struct PercentageTokenMetadata final : TokenMetadataOf<TokenMetadataKind::percentage> {
  explicit PercentageTokenMetadata(Percentage value) : percentage(value) {}
  Percentage percentage;
};

/// "VAT", held as a fraction like a percentage.
struct SalesTaxTokenMetadata final : TokenMetadataOf<TokenMetadataKind::salesTax> {
  explicit SalesTaxTokenMetadata(SalesTax value) : salesTax(value) {}
  SalesTax salesTax;
};

}  // namespace tavrine
