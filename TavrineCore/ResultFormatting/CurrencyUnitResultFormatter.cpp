#include "TavrineCore/ResultFormatting/CurrencyUnitResultFormatter.h"

#include <algorithm>
#include <string_view>

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/NumberSymbols.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Parsing/Primitives/UnitExpression.h"
#include "TavrineCore/Parsing/Primitives/UnitFamilies.h"
#include "TavrineCore/Parsing/Tokens/TokenList.h"
#include "TavrineCore/ResultFormatting/CurrencySigns.h"
#include "TavrineCore/ResultFormatting/DecimalResultFormatter.h"
#include "TavrineCore/ResultFormatting/FormattedSymbol.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"
#include "TavrineCore/ResultFormatting/ResultFormatterContext.h"

namespace tavrine {
namespace {

using enum DecimalResultFormatter::DecimalFormattingStyle;

constexpr int kPlaces = 2;
constexpr int kThreePlaces = 3;
// From here on places are no longer those of a currency, and zeros at their end say nothing.
constexpr int kMostPaddedPlaces = 4;

bool declaresVariable(const TokenList* list) {
  return list != nullptr && list->firstTokenOfType({TokenType::variableDeclaration}) != nullptr;
}

/// The decimal places as they were typed, so that "1,230" has three; 0 for a whole value.
std::size_t fractionalDigitCountOf(const Token& token, const Locale& locale) {
  const Token* number = &token;
  if (token.subtokens != nullptr) number = token.subtokens->firstTokenOfType({TokenType::number});
  if (number == nullptr) return 0;
  const std::optional<Decimal> value = number->ownDecimalValue();
  if (!value || value->isWhole()) return 0;
  const std::string_view text = number->stringValue;
  const std::string& separator = locale.decimalSeparator();
  std::size_t position = separator == "." ? std::string_view::npos : text.find(separator);
  std::size_t length = separator.size();
  if (position == std::string_view::npos) {
    position = text.find('.');
    length = 1;
  }
  return position == std::string_view::npos ? 0 : text.size() - position - length;
}

std::size_t maximumFractionalDigitsSpecifiedInTopLevelCurrencies(const TokenList& list, const Locale& locale) {
  std::size_t most = 0;
  for (const Token& token : list) {
    if (!token.is(TokenType::unitExpression)) continue;
    const std::optional<TCUnit> unit = token.unitValue();
    if (unit && CurrencyUnitResultFormatter::isMoney(*unit)) {
      most = std::max(most, fractionalDigitCountOf(token, locale));
    }
  }
  return most;
}

/// People who write a decimal comma write fuel and share prices with three places.
bool wasTypedWithThreePlaces(const TokenList* list, const FormattingPreferences& preferences, const Locale& locale) {
  return list != nullptr && preferences.dp > kPlaces && locale.decimalSeparator() == "," &&
         maximumFractionalDigitsSpecifiedInTopLevelCurrencies(*list, locale) == kThreePlaces;
}

std::string formattedDecimal(const UnitExpression& amount, const ResultFormatterContext& context) {
  FormattingPreferences preferences = context.formattingPreferences;
  const TokenList* line = context.originalTokenList.get();
  const int places = CurrencyUnitResultFormatter::decimalPointsToDisplayFor(line, amount, preferences, context.locale);
  if (places <= kMostPaddedPlaces) {
    preferences.minimumFractionDigits = places;
  } else if (places == preferences.dp && declaresVariable(line)) {
    preferences.minimumFractionDigits = kPlaces;
  }
  preferences.dp = places;
  return DecimalResultFormatter::formatted(amount.value, preferences, context.locale);
}

std::string withSign(std::string number, const UnitSymbolReplacement& sign, const Locale& locale) {
  const std::string& symbol = sign.replacementSymbol;
  switch (sign.position) {
    case UnitSymbolReplacementPosition::before: {
      const std::string& minus = numberSymbolsFor(locale).negativePrefix;
      return number.insert(number.starts_with(minus) ? minus.size() : 0, symbol);
    }
    case UnitSymbolReplacementPosition::beforeWithSpace:
      return number.insert(0, symbol + " ");
    case UnitSymbolReplacementPosition::after:
      return number.append(symbol);
    case UnitSymbolReplacementPosition::afterWithSpace:
      return number.append(" ").append(symbol);
  }
  return number;
}

}  // namespace

bool CurrencyUnitResultFormatter::isMoney(const TCUnit& unit) noexcept { return unit.unitType() == UnitType::currency; }

int CurrencyUnitResultFormatter::decimalPointsToDisplayFor(const TokenList* originalExpression,
                                                           const UnitExpression& unitExpression,
                                                           const FormattingPreferences& preferences,
                                                           const Locale& locale) {
  const Decimal& value = unitExpression.value;
  const UnitIdentifier currency = unitExpression.unit.identifier();
  if (!preferences.currencyFormattingPreferences.showTrailingZeros && value.isWhole()) return 0;
  if (DecimalResultFormatter::formattingStyleFor(value, preferences.notationPreferences) == si) return kThreePlaces;
  if (!preferences.currencyFormattingPreferences.roundResults) return preferences.dp;
  if (!value.isSignMinus() && value * Decimal(100) < Decimal(1)) return preferences.dp;
  if (zeroDPformattingCurrencies.contains(currency)) return 0;
  if (threeDPformattingCurrencies.contains(currency)) return kThreePlaces;
  if (cryptoCurrencies.contains(currency)) return preferences.dp;
  if (declaresVariable(originalExpression)) return preferences.dp;
  return wasTypedWithThreePlaces(originalExpression, preferences, locale) ? kThreePlaces : kPlaces;
}

std::optional<std::string> CurrencyUnitResultFormatter::formatted(const UnitExpression& unitExpression,
                                                                  const ResultFormatterContext& context) {
  if (unitExpression.value.isNaN()) return std::nullopt;
  std::string number = formattedDecimal(unitExpression, context);
  const std::string& code = unitExpression.unit.symbol();
  if (context.formattingPreferences.currencyFormattingPreferences.useCurrencySymbols) {
    if (const UnitSymbolReplacement* sign = shownSignReplacing(code, context)) {
      return withSign(std::move(number), *sign, context.locale);
    }
  }
  return number.append(" ").append(pluralForm(code, unitExpression.value));
}

}  // namespace tavrine
