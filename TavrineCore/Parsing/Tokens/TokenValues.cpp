// What tokens know of their values by themselves: mostly one field of one kind of metadata.

#include <algorithm>
#include <cassert>
#include <utility>

#include "Foundation/DecimalMath.h"
#include "Foundation/Diagnostics.h"
#include "Foundation/Locale.h"
#include "Foundation/Text.h"
#include "TavrineCore/Evaluation/EvaluationError.h"
#include "TavrineCore/Parsing/Primitives/DatestampArithmetic.h"
#include "TavrineCore/Parsing/Primitives/LaptimeArithmetic.h"
#include "TavrineCore/Parsing/Primitives/SIThreshold.h"
#include "TavrineCore/Parsing/Primitives/UnitArithmetic.h"
#include "TavrineCore/Parsing/Primitives/UnitExpressionDurations.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Tokens/AmountMetadata.h"
#include "TavrineCore/Parsing/Tokens/DateMetadata.h"
#include "TavrineCore/Parsing/Tokens/FunctionMetadata.h"
#include "TavrineCore/Parsing/Tokens/OtherMetadata.h"
#include "TavrineCore/Parsing/Tokens/PlaceMetadata.h"
#include "TavrineCore/Parsing/Tokens/Token.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/Parsing/Tokens/UnitMetadata.h"
#include "TavrineCore/Parsing/Tokens/VariableMetadata.h"

namespace tavrine {

namespace {

/// More digits than a decimal holds: the last one that fits is rounded.
Decimal constant(std::string_view digits) { return Decimal::parse(digits).value_or(Decimal::nan()); }

}  // namespace

NumberTokenMetadata NumberTokenMetadata::forConstant(TokenSubType subType) {
  if (subType == TokenSubType::pi) {
    static const Decimal pi = constant(
        "3.1415926535897932384626433832795028841971693993751058209749445923078164062862089986280348253421170679");
    return NumberTokenMetadata(pi);
  }
  if (subType == TokenSubType::tau) return NumberTokenMetadata(DDDecimal2Pi());
  if (subType == TokenSubType::phi) {
    static const Decimal phi =
        constant("1.61803398874989484820458683436563811772030917980576286213544862270526046281890");
    return NumberTokenMetadata(phi);
  }
  assert(false && "only pi, tau and phi are constants");
  return NumberTokenMetadata(Decimal());
}

Decimal NumberTokenMetadata::scaledValue() const {
  if (!scalar) return decimalValue;
  const auto threshold = thresholdForSIPrefix(*scalar);
  return threshold ? decimalValue * valueOf(*threshold) : decimalValue;
}

namespace {

/// The field of the metadata if the token carries such.
template <class Metadata, class Field>
std::optional<Field> fieldOf(const Token& token, Field Metadata::*field) {
  const auto* metadata = token.metadataAs<Metadata>();
  return metadata != nullptr ? std::optional<Field>(metadata->*field) : std::nullopt;
}

}  // namespace

// --- Numbers --------------------------------------------------------------------------------------------------------

std::optional<Decimal> Token::ownDecimalValue() const {
  if (!metadata) return std::nullopt;
  if (const auto* it = metadata->as<PercentageTokenMetadata>(); it != nullptr && is(TokenType::percentage)) {
    return it->percentage.decimalValue;
  }
  if (const auto* it = metadata->as<NumberTokenMetadata>()) return it->scaledValue();
  if (const auto* it = metadata->as<UnitExpressionTokenMetadata>()) return it->numericValue.scaledValue();
  if (const auto* it = metadata->as<UnitRateTokenMetadata>()) return it->rate.value;
  if (const auto* it = metadata->as<PercentageRateTokenMetadata>()) return it->percentageRate.percentage.decimalValue;
  if (const auto* it = metadata->as<DecimalRateTokenMetadata>()) return it->decimalRate.value;
  if (const auto* it = metadata->as<MultiplierTokenMetadata>()) return it->multiplier.decimalValue;
  if (const auto* it = metadata->as<FractionTokenMetadata>()) return it->fraction.decimalValue;
  if (const auto* it = metadata->as<BinaryTokenMetadata>()) return Decimal(it->intValue);
  if (const auto* it = metadata->as<OctalTokenMetadata>()) return Decimal(it->intValue);
  if (const auto* it = metadata->as<HexTokenMetadata>()) return Decimal(it->intValue);
  return std::nullopt;
}

Decimal Token::unscaledDecimalValue() const {
  if (is(TokenType::percentage)) {
    const auto* metadataOfPercentage = metadataAs<PercentageTokenMetadata>();
    return metadataOfPercentage != nullptr ? metadataOfPercentage->percentage.decimalValue : Decimal();
  }
  return fieldOf(*this, &NumberTokenMetadata::decimalValue).value_or(Decimal());
}

std::optional<std::string> Token::scalar() const {
  const auto* number = metadataAs<NumberTokenMetadata>();
  return number != nullptr ? number->scalar : std::nullopt;
}

std::optional<std::uint64_t> Token::binaryValue() const { return fieldOf(*this, &BinaryTokenMetadata::intValue); }
std::optional<std::uint64_t> Token::hexValue() const { return fieldOf(*this, &HexTokenMetadata::intValue); }
std::optional<std::uint64_t> Token::octalValue() const { return fieldOf(*this, &OctalTokenMetadata::intValue); }
std::optional<Fraction> Token::fractionValue() const { return fieldOf(*this, &FractionTokenMetadata::fraction); }
std::optional<SalesTax> Token::salesTaxValue() const { return fieldOf(*this, &SalesTaxTokenMetadata::salesTax); }

// --- Units and rates ------------------------------------------------------------------------------------------------

std::optional<DecimalRate> Token::decimalRateValue() const {
  return fieldOf(*this, &DecimalRateTokenMetadata::decimalRate);
}
std::optional<PercentageRate> Token::percentageRateValue() const {
  return fieldOf(*this, &PercentageRateTokenMetadata::percentageRate);
}
std::optional<UnitRate> Token::unitRateValue() const { return fieldOf(*this, &UnitRateTokenMetadata::rate); }

std::optional<TCUnit> Token::unitValue() const {
  if (const auto* it = metadataAs<UnitExpressionTokenMetadata>()) return it->unitMetaData.underlyingTCUnit;
  if (const auto* it = metadataAs<UnitTokenMetadata>()) return it->underlyingTCUnit;
  if (!subtokens) return std::nullopt;
  const Token* holder = nullptr;
  if (is(TokenType::converter)) holder = subtokens->getLastToken(/*ignoringWhitespace=*/true);
  if (is(TokenType::subexpression)) holder = subtokens->firstTokenOfType(TokenType::unit);
  return holder != nullptr ? holder->unitValue() : std::nullopt;
}

std::optional<UnitExpression> Token::unitExpressionValue() const {
  if (const auto* it = metadataAs<UnitExpressionTokenMetadata>()) return it->unitExpression();
  if (const auto* it = metadataAs<TimespanTokenMetadata>()) return tavrine::unitExpressionValue(it->timespan);
  if (const auto* it = metadataAs<FrametimeTokenMetadata>()) {
    return with(UnitIdentifier::seconds, totalSecondsOf(it->frametime));
  }
  if (!is(TokenType::subexpression) || !subtokens) return std::nullopt;
  const Token* only = subtokens->onlyToken();
  return only != nullptr ? only->unitExpressionValue() : std::nullopt;
}

std::optional<Substance> Token::substanceValue() const { return fieldOf(*this, &SubstanceTokenMetadata::substance); }

std::optional<Calendar::Component> Token::calendarComponentValue() const {
  const std::optional<TCUnit> unit = unitValue();
  return unit ? calendarUnitOf(unit->identifier()) : std::nullopt;
}

// --- Dates, times and places ----------------------------------------------------------------------------------------

std::optional<Timespan> Token::timespanValue() const {
  if (const auto* it = metadataAs<TimespanTokenMetadata>()) return it->timespan;
  if (const auto* it = metadataAs<DatespanTokenMetadata>()) {
    return timespanIn(it->calendarEnvironment ? it->calendarEnvironment->calendar() : Calendar::current(),
                      it->datespan);
  }
  const std::optional<UnitExpression> expression = unitExpressionValue();
  return expression ? timespanOf(*expression) : std::nullopt;
}
std::optional<Datespan> Token::datespanValue() const { return fieldOf(*this, &DatespanTokenMetadata::datespan); }

std::optional<DateInterval> Token::dateIntervalValue() const {
  const auto* it = metadataAs<DatespanTokenMetadata>();
  return it != nullptr ? std::optional(DateInterval(it->datespan.startDate, it->datespan.endDate)) : std::nullopt;
}

std::optional<Laptime> Token::laptimeValue() const { return fieldOf(*this, &LaptimeTokenMetadata::laptime); }
std::optional<Frametime> Token::frametimeValue() const { return fieldOf(*this, &FrametimeTokenMetadata::frametime); }

std::optional<DateComponents> Token::dateComponentsValue() const {
  if (const auto* it = metadataAs<DateComponentsTokenMetadata>()) return it->dateComponents;
  if (const auto* it = metadataAs<DatestampTokenMetadata>()) {
    const Datestamp& datestamp = it->datestamp;
    return it->environment.calendar()
        .in(datestamp.timezone)
        .dateComponents(calendarComponentsRepresentedBy(datestamp.type), datestamp.date);
  }
  const std::optional<Timespan> span = timespanValue();
  return span ? std::optional(span->dateComponents) : std::nullopt;
}

std::optional<TimeZone> Token::timeZoneValue() const { return fieldOf(*this, &TimezoneTokenMetadata::timeZone); }

std::optional<Place> Token::placeValue() const {
  const auto* it = metadataAs<TimezoneTokenMetadata>();
  return it != nullptr ? it->representedPlace : std::nullopt;
}

std::optional<GPSCoordinates> Token::gpsCoordinatesValue() const {
  if (const auto* it = metadataAs<GPSCoordinatesTokenMetadata>()) return it->gpsCoordinates;
  const std::optional<Place> place = placeValue();
  return place ? place->gpsCoordinates() : std::nullopt;
}

std::optional<DegreesMinutesSeconds> Token::dmsValue() const { return fieldOf(*this, &DMSTokenMetadata::dms); }

// --- The rest -------------------------------------------------------------------------------------------------------

std::optional<Pitch> Token::pitchValue() const { return fieldOf(*this, &PitchTokenMetadata::pitch); }
std::optional<Resolution> Token::resolutionValue() const {
  return fieldOf(*this, &ResolutionTokenMetadata::resolutionValue);
}
std::optional<StatisticType> Token::statisticType() const {
  return fieldOf(*this, &StatisticTypeTokenMetadata::statisticType);
}
std::optional<Subsheet> Token::subsheetValue() const { return fieldOf(*this, &SubsheetTokenMetadata::subsheet); }
std::optional<std::string> Token::urlValue() const { return fieldOf(*this, &URLTokenMetadata::url); }

std::optional<std::string> Token::functionName() const {
  const auto* it = metadataAs<JavascriptFunctionTokenMetadata>();
  return it != nullptr ? std::optional(it->function.name) : std::nullopt;
}

std::optional<FunctionIdentifier> Token::functionIdentifier() const {
  const auto* it = metadataAs<WordFunctionTokenMetadata>();
  return it != nullptr ? std::optional(it->function.identifier) : std::nullopt;
}

std::optional<EvaluationError> Token::errorValue() const {
  if (is(TokenType::error)) return evaluationErrorWithSubtype(subType);
  // Decimals have no infinity: what would be one is not a number.
  const std::optional<Decimal> value = is(TokenType::number) ? ownDecimalValue() : std::nullopt;
  return value && value->isNaN() ? std::optional(EvaluationError::Infinity) : std::nullopt;
}

// --- Other tokens from this one -------------------------------------------------------------------------------------

Token Token::withCalendarEnvironment(const CalendarEnvironment& environment) const {
  Token result = *this;
  const auto* it = is(TokenType::datestamp) ? metadataAs<DatestampTokenMetadata>() : nullptr;
  if (it != nullptr) {
    result.metadata = std::make_shared<DatestampTokenMetadata>(it->datestamp, Date::now(), environment, it->place);
  }
  return result;
}

namespace {

/// The number without what only helps the eye, with "." before its fraction.
std::string plainNumberText(std::string_view text, const Locale& locale) {
  std::string digits =
      locale.groupingSeparator() ? replacingAll(text, *locale.groupingSeparator(), "") : std::string(text);
  std::string result;
  for (ClusterIterator it(digits); !it.atEnd(); it.advance()) {
    if (it.cluster() != "_" && !isWhitespace(firstScalar(it.cluster()))) result += it.cluster();
  }
  return replacingAll(result, locale.decimalSeparator(), ".");
}

/// The zeros that end the fraction: 1 of "1.50", 2 of "3.00".
std::size_t trailingZeros(std::string_view plainText) {
  if (plainText.find('.') == std::string_view::npos) return 0;
  return plainText.size() - 1 - std::min(plainText.find_last_not_of('0'), plainText.size() - 1);
}

}  // namespace

std::optional<Token> Token::convertedFrom(const Locale& from, const Locale& to) const {
  const auto* it = is(TokenType::number) ? metadataAs<NumberTokenMetadata>() : nullptr;
  if (it == nullptr || it->representsNumberWord) return std::nullopt;
  const std::string plainText = plainNumberText(stringValue, from);
  const std::optional<Decimal> value = Decimal::parse(plainText);
  if (!value || value->isNaN()) return std::nullopt;

  std::string text = value->description();
  if (const std::size_t zeros = trailingZeros(plainText); zeros > 0) {
    if (text.find('.') == std::string::npos) text += '.';
    text.append(zeros, '0');
  }
  text = replacingAll(text, ".", to.decimalSeparator());
  const NSRange newRange{range.location, static_cast<std::uint32_t>(utf16Length(text))};
  return Token(type, subType, std::move(text), hasNoRange() ? range : newRange, subtokens, metadata);
}

}  // namespace tavrine
