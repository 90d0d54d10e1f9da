#include "TavrineCore/ResultFormatting/NumberResultFormatters.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Evaluation/EvaluationResult.h"
#include "TavrineCore/Parsing/Primitives/Fraction.h"
#include "TavrineCore/Parsing/Primitives/Multiplier.h"
#include "TavrineCore/Parsing/Primitives/Percentage.h"
#include "TavrineCore/Parsing/Primitives/SalesTax.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/FormattedSymbol.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {

using Case = EvaluationResult::Case;

namespace {

struct Base {
  std::string_view prefix;
  int radix;
};

constexpr Base kHexadecimal{"0x", 16};
constexpr Base kOctal{"0o", 8};
constexpr Base kBinary{"0b", 2};

std::string textIn(const Base& base, std::uint64_t value) {
  std::array<char, 64> digits;
  const std::to_chars_result end = std::to_chars(digits.begin(), digits.end(), value, base.radix);
  for (char* digit = digits.begin(); digit != end.ptr; ++digit) {
    if (*digit >= 'a') *digit = static_cast<char>(*digit - 'a' + 'A');
  }
  std::string text(base.prefix);
  text.append(digits.begin(), end.ptr);
  return text;
}

}  // namespace

std::optional<std::string> PercentageResultFormatter::formattedResult(const EvaluationResult& result,
                                                                      const ResultFormatterContext& context) {
  const Decimal* fraction = nullptr;
  if (const Percentage* percentage = result.as<Case::percentage>()) fraction = &percentage->decimalValue;
  if (const SalesTax* tax = result.as<Case::salesTax>()) fraction = &tax->decimalValue;
  if (fraction == nullptr) return std::nullopt;
  return formatted(*fraction, context);
}

std::optional<std::string> PercentageResultFormatter::formatted(const Decimal& fraction,
                                                                const ResultFormatterContext& context) {
  if (fraction.isNaN()) return std::nullopt;
  NumberFormatter formatter = resultNumberFormatter(context.formattingPreferences, context.locale);
  formatter.numberStyle = NumberStyle::percent;
  return formatter.string(fraction);
}

std::optional<std::string> FractionResultFormatter::formattedResult(const EvaluationResult& result,
                                                                    const ResultFormatterContext& context) {
  const Fraction* fraction = result.as<Case::fraction>();
  if (fraction == nullptr) return std::nullopt;
  const Decimal& value = fraction->decimalValue;
  const FormattingPreferences& preferences = context.formattingPreferences;
  std::optional<std::string> text = DecimalResultFormatter::formattedAsFraction(value, preferences, context.locale);
  if (!text) text = DecimalResultFormatter::formattedAsDecimal(value, preferences, context.locale);
  if (text && fraction->unitValue) text->append(" ").append(formattedSymbol(*fraction->unitValue, value));
  return text;
}

std::optional<std::string> MultiplierResultFormatter::formattedResult(const EvaluationResult& result,
                                                                      const ResultFormatterContext& context) {
  const Multiplier* multiplier = result.as<Case::multiplier>();
  if (multiplier == nullptr || multiplier->decimalValue.isNaN()) return std::nullopt;
  return DecimalResultFormatter::formatted(multiplier->decimalValue, context.formattingPreferences, context.locale) +
         "x";
}

std::optional<std::string> OtherBaseResultFormatter::formattedResult(const EvaluationResult& result,
                                                                     const ResultFormatterContext&) {
  if (const std::uint64_t* value = result.as<Case::hex>()) return textIn(kHexadecimal, *value);
  if (const std::uint64_t* value = result.as<Case::octal>()) return textIn(kOctal, *value);
  if (const std::uint64_t* value = result.as<Case::binary>()) return textIn(kBinary, *value);
  return std::nullopt;
}

}  // namespace tavrine
