#include "TavrineCore/Parsing/Tokens/TokenFactory.h"

#include <memory>
#include <utility>

#include "TavrineCore/Parsing/Primitives/UnitRange.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/NumberMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"

namespace tavrine {

namespace {

Token made(TokenType type, TokenSubType subType, std::string text, TokenMetadataRef metadata = nullptr) {
  return {type, subType, std::move(text), NSRange::zero, nullptr, std::move(metadata)};
}

template <class Metadata, class... Arguments>
Token madeWith(TokenType type, std::string text, Arguments&&... arguments) {
  return made(type, TokenSubType::notSpecified, std::move(text),
              std::make_shared<const Metadata>(std::forward<Arguments>(arguments)...));
}

/// A token over the parts, with their texts joined.
Token compound(TokenType type, TokenSubType subType, std::vector<Token> parts, TokenMetadataRef metadata = nullptr) {
  TokenListRef subtokens = TokenList::frozen(std::move(parts));
  std::string text = subtokens->rebuiltExpression();
  return {type, subType, std::move(text), NSRange::zero, std::move(subtokens), std::move(metadata)};
}

Token blank() { return made(TokenType::whitespace, TokenSubType::notSpecified, " "); }
Token percentSign() { return made(TokenType::percentageSymbol, TokenSubType::notSpecified, "%"); }

Token signedNumber(std::string text, const Decimal& value, TokenSubType unsignedSubType, TokenMetadataRef metadata) {
  return made(TokenType::number, value.isSignMinus() ? TokenSubType::negativeNumber : unsignedSubType, std::move(text),
              std::move(metadata));
}

}  // namespace

// --- Numbers --------------------------------------------------------------------------------------------------------

Token TokenFactory::binaryWith(std::uint64_t value) {
  return madeWith<BinaryTokenMetadata>(TokenType::binaryNumber, std::to_string(value), value);
}

Token TokenFactory::octalWith(std::uint64_t value) {
  return madeWith<OctalTokenMetadata>(TokenType::octalNumber, std::to_string(value), value);
}

Token TokenFactory::hexWith(std::uint64_t value) {
  return madeWith<HexTokenMetadata>(TokenType::hexadecimalNumber, std::to_string(value), value);
}

Token TokenFactory::numberWith(const Decimal& value, std::optional<std::string> scalar) {
  std::string text = value.description();
  if (scalar) text += *scalar;
  return signedNumber(std::move(text), value, TokenSubType::positiveNumber,
                      std::make_shared<const NumberTokenMetadata>(value, std::move(scalar)));
}

Token TokenFactory::scientificNotationWith(const Decimal& value) {
  return signedNumber(value.description(), value, TokenSubType::notSpecified,
                      std::make_shared<const NumberTokenMetadata>(value, std::nullopt, /*isNumberWord=*/false,
                                                                  /*isScientific=*/true));
}

Token TokenFactory::fractionWith(const Fraction& fraction) {
  return madeWith<FractionTokenMetadata>(TokenType::fraction, fraction.decimalValue.description(), fraction);
}

Token TokenFactory::booleanWith(bool value) {
  return made(TokenType::boolean, value ? TokenSubType::true_ : TokenSubType::false_, value ? "true" : "false");
}

Token TokenFactory::multiplierWith(const Decimal& value) {
  return madeWith<MultiplierTokenMetadata>(TokenType::multiplier, value.description(), Multiplier{value});
}

Token TokenFactory::percentageWith(const Decimal& fraction) {
  return compound(TokenType::percentage, TokenSubType::notSpecified, {numberWith(fraction * 100), percentSign()},
                  std::make_shared<const PercentageTokenMetadata>(Percentage{fraction}));
}

Token TokenFactory::salesTaxWith(const SalesTax& salesTax) {
  return madeWith<SalesTaxTokenMetadata>(TokenType::salesTax, "SALES_TAX", salesTax);
}

// --- Units and rates ------------------------------------------------------------------------------------------------

Token TokenFactory::unitWith(const TCUnit& unit) {
  return madeWith<UnitTokenMetadata>(TokenType::unit, unit.symbol(), unit);
}

Token TokenFactory::unitRangeWith(const UnitRange& unitRange) {
  return madeWith<UnitRangeTokenMetadata>(TokenType::unitRange, "UNIT_RANGE", UnitTokenMetadata(unitRange.unit),
                                          NumberTokenMetadata(unitRange.lowerBound),
                                          NumberTokenMetadata(unitRange.upperBound));
}

Token TokenFactory::unitExpressionWith(const Decimal& numericValue, const TCUnit& unit,
                                       bool prefersCompoundFormatting) {
  return unitExpressionWith(numericValue, std::nullopt, unit, prefersCompoundFormatting);
}

Token TokenFactory::unitExpressionWith(const Decimal& numericValue, std::optional<std::string> scalar,
                                       const TCUnit& unit, bool prefersCompoundFormatting) {
  auto metadata = std::make_shared<const UnitExpressionTokenMetadata>(
      UnitTokenMetadata(unit), NumberTokenMetadata(numericValue, scalar), prefersCompoundFormatting);
  return compound(TokenType::unitExpression, TokenSubType::notSpecified,
                  {numberWith(numericValue, std::move(scalar)), blank(), unitWith(unit)}, std::move(metadata));
}

Token TokenFactory::customUnitWith(const CustomUnit& customUnit) {
  return madeWith<CustomUnitTokenMetadata>(TokenType::customUnit, customUnit.name, customUnit);
}

Token TokenFactory::substanceWith(const Substance& value) {
  return madeWith<SubstanceTokenMetadata>(TokenType::substance, value.name, value);
}

Token TokenFactory::rateWith(TokenMetadataRef metadata) {
  const auto rateOf = [&metadata](TokenSubType subType, Token numerator, const TCUnit& perUnit) {
    return compound(
        TokenType::rate, subType,
        {std::move(numerator), made(TokenType::operator_, TokenSubType::divisionOperator, "/"), unitWith(perUnit)},
        std::move(metadata));
  };
  if (!metadata) return {};
  if (const auto* it = metadata->as<UnitRateTokenMetadata>()) {
    const UnitRate& rate = it->rate;
    // A frequency counts nothing that has a unit.
    Token numerator = rate.ofUnit ? unitExpressionWith(rate.value, *rate.ofUnit, rate.prefersCompoundUnitFormatting)
                                  : numberWith(rate.value);
    return rateOf(TokenSubType::unitRate, std::move(numerator), rate.perUnit);
  }
  if (const auto* it = metadata->as<PercentageRateTokenMetadata>()) {
    return rateOf(TokenSubType::percentageRate, percentageWith(it->percentageRate.percentage.decimalValue),
                  it->percentageRate.perUnit);
  }
  if (const auto* it = metadata->as<DecimalRateTokenMetadata>()) {
    return rateOf(TokenSubType::decimalRate, numberWith(it->decimalRate.value), it->decimalRate.perUnit);
  }
  return {};
}

// --- Dates, times and places ----------------------------------------------------------------------------------------

Token TokenFactory::iso8601With(const Datestamp& datestamp) {
  return madeWith<DatestampTokenMetadata>(TokenType::iso8601, "_ISO8601_DATESTAMP_", datestamp, Date::now(),
                                          CalendarEnvironment(Calendar::current()));
}

Token TokenFactory::datestampWith(const Datestamp& datestamp, const CalendarEnvironment& environment) {
  return madeWith<DatestampTokenMetadata>(TokenType::datestamp, "_DATESTAMP_", datestamp, Date::now(), environment);
}

Token TokenFactory::datespanWith(const Datespan& datespan) {
  return madeWith<DatespanTokenMetadata>(TokenType::datespan, "_DATESPAN_", datespan, std::nullopt, Date::now());
}

Token TokenFactory::timestampWith(const Decimal& value, const CalendarEnvironment& environment) {
  return compound(TokenType::unixTimestamp, TokenSubType::notSpecified, {numberWith(value)},
                  std::make_shared<const TimestampTokenMetadata>(Timestamp{value}, environment));
}

Token TokenFactory::timespanWith(const Timespan& timespan) {
  return madeWith<TimespanTokenMetadata>(TokenType::timespan, "__timespan", timespan);
}

Token TokenFactory::laptimeWith(const Laptime& laptime) {
  return madeWith<LaptimeTokenMetadata>(TokenType::laptime, "LAPTIME", laptime);
}

Token TokenFactory::frametimeWith(const Frametime& frametime) {
  return madeWith<FrametimeTokenMetadata>(TokenType::frametime, "FRAMETIME", frametime);
}

Token TokenFactory::placeWith(const Place& place) {
  return madeWith<TimezoneTokenMetadata>(TokenType::timezone, place.name, place.timeZone, place);
}

Token TokenFactory::timezoneWith(const TimeZone& timezone) {
  return madeWith<TimezoneTokenMetadata>(TokenType::timezone, "", timezone);
}

Token TokenFactory::gpsCoordinatesWith(const GPSCoordinates& gpsCoordinates) {
  return madeWith<GPSCoordinatesTokenMetadata>(TokenType::gpsCoordinates, "GPS_Location", gpsCoordinates);
}

Token TokenFactory::dmsWith(const DegreesMinutesSeconds& dms) {
  return madeWith<DMSTokenMetadata>(TokenType::degreesMinutesSeconds, "DMS", dms);
}

// --- The rest -------------------------------------------------------------------------------------------------------

Token TokenFactory::pitchWith(const Pitch& pitch) {
  return madeWith<PitchTokenMetadata>(TokenType::pitch, pitch.notationString(), pitch);
}

Token TokenFactory::statisticTypeWith(StatisticType statistic) {
  return made(TokenType::statisticType, subTypeOf(statistic), "STATISTIC");
}

Token TokenFactory::functionExpressionWith(std::string_view functionName, const Token& bodySubexpression) {
  return compound(
      TokenType::functionExpression, TokenSubType::notSpecified,
      {made(TokenType::functionName, TokenSubType::notSpecified, std::string(functionName)), bodySubexpression});
}

Token TokenFactory::subexpressionWith(std::vector<Token> tokens) {
  tokens.insert(tokens.begin(), made(TokenType::bracket, TokenSubType::openBracket, "("));
  tokens.push_back(made(TokenType::bracket, TokenSubType::closeBracket, ")"));
  return compound(TokenType::subexpression, TokenSubType::notSpecified, std::move(tokens));
}

std::optional<Token> TokenFactory::tokenWith(const Decimal& decimalValue, const Token& matchingTypeOf) {
  const Token& model = matchingTypeOf;
  switch (model.type) {
    case TokenType::number:
      return numberWith(decimalValue);
    case TokenType::fraction:
      return fractionWith({decimalValue, std::nullopt});
    case TokenType::percentage:
      return percentageWith(decimalValue / 100);
    case TokenType::unitExpression: {
      const auto* it = model.metadataAs<UnitExpressionTokenMetadata>();
      if (it == nullptr) return std::nullopt;
      return unitExpressionWith(decimalValue, it->unitMetaData.underlyingTCUnit, it->prefersCompoundFormatting);
    }
    case TokenType::rate: {
      if (const auto* it = model.metadataAs<UnitRateTokenMetadata>()) {
        UnitRate rate = it->rate;
        rate.value = decimalValue;
        return rateWith(std::make_shared<const UnitRateTokenMetadata>(std::move(rate)));
      }
      if (const auto* it = model.metadataAs<PercentageRateTokenMetadata>()) {
        return rateWith(std::make_shared<const PercentageRateTokenMetadata>(
            PercentageRate{Percentage{decimalValue}, it->percentageRate.perUnit}));
      }
      if (const auto* it = model.metadataAs<DecimalRateTokenMetadata>()) {
        return rateWith(
            std::make_shared<const DecimalRateTokenMetadata>(DecimalRate{decimalValue, it->decimalRate.perUnit}));
      }
      return std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

// --- Converters -----------------------------------------------------------------------------------------------------

namespace {

Token converter(TokenSubType subType, Token target) {
  return compound(
      TokenType::converter, subType,
      {blank(), made(TokenType::converterSymbol, TokenSubType::notSpecified, "in"), blank(), std::move(target)});
}

Token typeName(std::string text, TokenSubType subType) { return made(TokenType::typeName, subType, std::move(text)); }

}  // namespace

Token TokenFactory::converterToUnitWith(const TokenMetadataRef& metadata) {
  const auto* it = metadata ? metadata->as<UnitTokenMetadata>() : nullptr;
  return it != nullptr ? converter(TokenSubType::unitConverter, unitWith(it->underlyingTCUnit)) : Token();
}

Token TokenFactory::converterToDurationUnitWith(const TCUnit& unit) {
  return converter(TokenSubType::unitConverter, unitWith(unit));
}

Token TokenFactory::converterToNumber() {
  return converter(TokenSubType::numberConverter, typeName("number", TokenSubType::numberTypeName));
}

Token TokenFactory::converterToMultiplier() {
  return converter(TokenSubType::multiplierConveter, typeName("x", TokenSubType::multiplierTypeName));
}

Token TokenFactory::converterToDate() {
  return converter(TokenSubType::dateConverter, typeName("date", TokenSubType::dateTypeName));
}

Token TokenFactory::converterToTimezone(const TimeZone& timezone) {
  return converter(TokenSubType::timezoneConverter, timezoneWith(timezone));
}

Token TokenFactory::converterToPercentage() { return converter(TokenSubType::percentageConverter, percentSign()); }

Token TokenFactory::converterToRate(const UnitRate& unitRate) {
  return converter(TokenSubType::rateConverter, rateWith(std::make_shared<const UnitRateTokenMetadata>(unitRate)));
}

Token TokenFactory::converterThatAppliesPercent() {
  return converter(TokenSubType::percentageApplier, typeName("percent", TokenSubType::notSpecified));
}

Token TokenFactory::converterWith(TokenSubType subType) {
  return converter(subType, typeName(std::string(toString(subType)), TokenSubType::notSpecified));
}

}  // namespace tavrine
