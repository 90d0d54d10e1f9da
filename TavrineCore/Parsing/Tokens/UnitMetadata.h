#pragma once

#include <string>
#include <utility>

#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Parsing/Primitives/DecimalRate.h"
#include "TavrineCore/Parsing/Primitives/PercentageRate.h"
#include "TavrineCore/Parsing/Primitives/Substance.h"
#include "TavrineCore/Parsing/Primitives/TCUnit.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitRate.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"

namespace tavrine {

/// "km".
struct UnitTokenMetadata final : TokenMetadataOf<TokenMetadataKind::unit> {
  explicit UnitTokenMetadata(TCUnit unit) : underlyingTCUnit(std::move(unit)) {}
  TCUnit underlyingTCUnit;
};

/// "20 km".
struct UnitExpressionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::unitExpression> {
  UnitExpressionTokenMetadata(UnitTokenMetadata unit, NumberTokenMetadata value, bool prefersCompound = false)
      : unitMetaData(std::move(unit)), numericValue(std::move(value)), prefersCompoundFormatting(prefersCompound) {}

  /// With the scalar of the number applied: $5000 of "$5k".
  [[nodiscard]] UnitExpression unitExpression() const {
    return {numericValue.scaledValue(), unitMetaData.underlyingTCUnit, prefersCompoundFormatting};
  }

  UnitTokenMetadata unitMetaData;
  NumberTokenMetadata numericValue;
  bool prefersCompoundFormatting;
};

/// "5 ft 3 in", in terms of the first unit.
struct CompoundUnitExpressionTokenMetadata final : TokenMetadataOf<TokenMetadataKind::compoundUnitExpression> {
  explicit CompoundUnitExpressionTokenMetadata(UnitTokenMetadata unit) : primaryUnitMetadata(std::move(unit)) {}
  UnitTokenMetadata primaryUnitMetadata;
};

/// "10-20 km".
struct UnitRangeTokenMetadata final : TokenMetadataOf<TokenMetadataKind::unitRange> {
  UnitRangeTokenMetadata(UnitTokenMetadata unit, NumberTokenMetadata lower, NumberTokenMetadata upper)
      : unitMetadata(std::move(unit)), lowerBound(std::move(lower)), upperBound(std::move(upper)) {}
  UnitTokenMetadata unitMetadata;
  NumberTokenMetadata lowerBound;
  NumberTokenMetadata upperBound;
};

/// A unit that the host or the user has defined.
struct CustomUnitTokenMetadata final : TokenMetadataOf<TokenMetadataKind::customUnit> {
  explicit CustomUnitTokenMetadata(CustomUnit unit) : customUnit(std::move(unit)) {}
  CustomUnit customUnit;
};

/// "1 sprint = 2 weeks".
struct UnitDeclarationTokenMetadata final : TokenMetadataOf<TokenMetadataKind::unitDeclaration> {
  UnitDeclarationTokenMetadata(std::string unitName, Decimal amount, UnitExpression equivalent)
      : name(std::move(unitName)), value(amount), equivalentUnitExpression(std::move(equivalent)) {}
  std::string name;
  Decimal value;
  UnitExpression equivalentUnitExpression;
};

/// "butter".
struct SubstanceTokenMetadata final : TokenMetadataOf<TokenMetadataKind::substance> {
  explicit SubstanceTokenMetadata(Substance value) : substance(std::move(value)) {}
  Substance substance;
};

/// "5 / day".
struct DecimalRateTokenMetadata final : TokenMetadataOf<TokenMetadataKind::decimalRate> {
  explicit DecimalRateTokenMetadata(DecimalRate rate) : decimalRate(std::move(rate)) {}
  DecimalRate decimalRate;
};

/// "5% / year".
struct PercentageRateTokenMetadata final : TokenMetadataOf<TokenMetadataKind::percentageRate> {
  explicit PercentageRateTokenMetadata(PercentageRate rate) : percentageRate(std::move(rate)) {}
  PercentageRate percentageRate;
};

/// "$5 / hour".
struct UnitRateTokenMetadata final : TokenMetadataOf<TokenMetadataKind::unitRate> {
  explicit UnitRateTokenMetadata(UnitRate value) : rate(std::move(value)) {}
  UnitRate rate;
};

}  // namespace tavrine
