#include "TavrineCore/Evaluation/Support/Converters/TokenConverterFactory.h"

#include <array>

#include "TavrineCore/Evaluation/Support/Converters/Conversions.h"
#include "TavrineCore/Evaluation/Support/RuleObserver.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"

namespace tavrine {

namespace {

using enum TokenType;
using Subtype = TokenSubType;

constexpr TokenTypeSet kNumeric{unitExpression, rate,   fraction,     percentage,        boolean,
                                multiplier,     number, binaryNumber, hexadecimalNumber, octalNumber};
constexpr TokenTypeSet kIntoNumber = kNumeric | TokenTypeSet{timespan, datestamp};
constexpr TokenTypeSet kIntoUnit{number, unitExpression, rate,  unixTimestamp, laptime,
                                 unit,   frametime,      pitch, literal,       degreesMinutesSeconds};
constexpr TokenTypeSet kCompoundTime{unitExpression, laptime, datestamp, timespan, datespan};
constexpr TokenTypeSet kMonthsAndLess{unitExpression, laptime, datestamp, timespan};
constexpr TokenTypeSet kRounding{unitExpression, fraction, number, percentage, rate};

constexpr auto kConverterClasses = std::to_array<TokenConverter>({
    {"IntoNumberTokenConverter", Subtype::numberConverter, kIntoNumber, conversions::intoNumber},
    {"IntoFractionTokenConverter",
     Subtype::fractionConverter,
     {number, percentage, unitExpression, multiplier},
     conversions::intoFraction},
    {"IntoUnitTokenConverter", Subtype::unitConverter, kIntoUnit, conversions::intoUnit},
    {"IntoUnitWithSpecifiedRateTokenConverter",
     Subtype::unitConverterWithExplicitRate,
     {unitExpression},
     conversions::intoUnitWithSpecifiedRate},
    {"IntoScientificNotationTokenConverter",
     Subtype::scientificNotationConverter,
     {number},
     conversions::intoScientificNotation},
    {"IntoPercentTokenConverter",
     Subtype::percentageConverter,
     {number, rate, unitExpression, fraction, multiplier},
     conversions::intoPercent},
    {"ApplyingPercentTokenConverter",
     Subtype::percentageApplier,
     {number, rate, unitExpression, fraction},
     conversions::applyingPercent},
    {"IntoMultiplierTokenConverter",
     Subtype::multiplierConveter,
     {number, percentage, fraction, multiplier},
     conversions::intoMultiplier},
    {"IntoBinaryTokenConverter", Subtype::binaryConverter, kNumeric, conversions::intoBinary},
    {"IntoOctalTokenConverter", Subtype::octalConverter, kNumeric, conversions::intoOctal},
    {"IntoHexTokenConverter", Subtype::hexadecimalConverter, kNumeric, conversions::intoHex},
    {"IntoRateTokenConverter", Subtype::rateConverter, {rate, unitExpression}, conversions::intoRate},
    {"IntoFrequencyRateTokenConverter",
     Subtype::frequencyRateConverter,
     {rate, unitExpression},
     conversions::intoFrequencyRate},
    // Shares its subtype with the third row: the operand decides between them.
    {"TimespanIntoUnitTokenConverter", Subtype::unitConverter, {timespan, datespan}, conversions::timespanIntoUnit},
    {"IntoTimespanTokenConverter",
     Subtype::timespanConverter,
     {unitExpression, laptime, datestamp, frametime, timespan},
     conversions::intoTimespan},
    {"IntoYearsAndMonthsTokenConverter", Subtype::yearsAndMonthsConverter, kCompoundTime,
     conversions::intoYearsAndMonths},
    {"IntoMonthsAndWeeksTokenConverter", Subtype::monthsAndWeeksConverter, kMonthsAndLess,
     conversions::intoMonthsAndWeeks},
    {"IntoMonthsAndDaysTokenConverter", Subtype::monthsAndDaysConverter, kMonthsAndLess,
     conversions::intoMonthsAndDays},
    {"IntoWeeksAndDaysTokenConverter", Subtype::weeksAndDaysConverter, kCompoundTime, conversions::intoWeeksAndDays},
    {"IntoDaysAndHoursTokenConverter", Subtype::daysAndHoursConverter, kCompoundTime, conversions::intoDaysAndHours},
    {"IntoHoursAndMinutesTokenConverter", Subtype::hoursAndMinutesConverter, kCompoundTime,
     conversions::intoHoursAndMinutes},
    {"IntoLaptimeTokenConverter",
     Subtype::laptimeConverter,
     {unitExpression, timespan, laptime, frametime},
     conversions::intoLaptime},
    {"IntoTimestampTokenConverter",
     Subtype::timestampConverter,
     {unitExpression, unixTimestamp, number, datestamp, iso8601},
     conversions::intoTimestamp},
    {"IntoDateTokenConverter",
     Subtype::dateConverter,
     {number, unixTimestamp, iso8601, unitExpression, timespan},
     conversions::intoDate},
    {"IntoIso8601TokenConverter", Subtype::iso8601Converter, {datestamp, unixTimestamp}, conversions::intoIso8601},
    {"IntoDateFormatTemplateConverter",
     Subtype::dateFormatTemplateConverter,
     {datestamp, unixTimestamp},
     conversions::intoDateFormatTemplate},
    {"IntoTimezoneTokenConverter", Subtype::timezoneConverter, {datestamp}, conversions::intoTimezone},
    {"IntoDpRoundedNumberTokenConverter", Subtype::roundingToDpConverter, kRounding, conversions::intoDpRoundedNumber},
    {"IntoFeetAndInchesTokenConverter",
     Subtype::feetAndInchesConverter,
     {unitExpression},
     conversions::intoFeetAndInches},
    {"IntoPoundAndOuncesTokenConverter",
     Subtype::poundsAndOuncesConverter,
     {unitExpression},
     conversions::intoPoundsAndOunces},
    {"IntoMidiTokenConverter", Subtype::midiConverter, {pitch, unitExpression}, conversions::intoMidi},
    {"IntoPitchTokenConverter", Subtype::pitchConverter, {unitExpression, number}, conversions::intoPitch},
    {"IntoDMSTokenConverter", Subtype::dmsConverter, {number, unitExpression}, conversions::intoDMS},
    {"RoundingTokenConverter", Subtype::roundingConverter, kRounding, conversions::rounding},
    {"RoundingUpTokenConverter", Subtype::roundingUpConverter, kRounding, conversions::roundingUp},
    {"RoundingDownTokenConverter", Subtype::roundingDownConverter, kRounding, conversions::roundingDown},
    {"IntoUnitExpressionTokenConverter", Subtype::unitExpressionConverter, kIntoUnit, conversions::intoUnitExpression},
});
static_assert(kConverterClasses.size() == 37);

const Token* firstOfType(const TokenListRef& tokens, TokenType type) {
  return tokens ? tokens->firstTokenOfType(type) : nullptr;
}

}  // namespace

std::span<const TokenConverter> TokenConverterFactory::converterClasses() { return kConverterClasses; }

const TokenConverter* TokenConverterFactory::converterFor(const Token& operand, const Token& converter) {
  const ConverterOperands operands{operand, converter};
  for (const TokenConverter& candidate : kConverterClasses) {
    if (candidate.accepts(operands)) return &candidate;
  }
  return nullptr;
}

std::optional<Token> TokenConverterFactory::converted(const Token& operand, const Token& converter) {
  const TokenConverter* conversion = converterFor(operand, converter);
  if (conversion == nullptr) return std::nullopt;
  noteRule(conversion->name);
  return conversion->performConversion({operand, converter});
}

const Token* converterOperandOf(const Token& converter, TokenType type) {
  if (const Token* operand = firstOfType(converter.subtokens, type)) return operand;
  if (!converter.subtokens) return nullptr;
  const Token* last = converter.subtokens->getLastToken(true);
  return last != nullptr ? firstOfType(last->subtokens, type) : nullptr;
}

}  // namespace tavrine
