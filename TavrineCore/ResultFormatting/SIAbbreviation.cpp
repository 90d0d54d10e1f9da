#include "TavrineCore/ResultFormatting/SIAbbreviation.h"

#include <array>

#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "Foundation/NumberFormatter.h"
#include "TavrineCore/Parsing/Primitives/SIThreshold.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"
#include "TavrineCore/ResultFormatting/ResultFormatter.h"

namespace tavrine {
namespace {

struct Suffix {
  SIThreshold threshold;
  char text;
};

// The largest first. Thresholds that aren't here may say when abbreviation starts, but have no letter.
constexpr auto kSuffixes = std::to_array<Suffix>({
    {SIThreshold::trillion, 'T'},
    {SIThreshold::billion, 'G'},
    {SIThreshold::million, 'M'},
    {SIThreshold::thousand, 'k'},
});

}  // namespace

std::optional<std::string> siFormattedNumber(const Decimal& number, const Locale& locale,
                                             const FormattingPreferences& preferences) {
  for (const Suffix& suffix : kSuffixes) {
    const std::optional<Decimal> quotient = numberForFormatting(suffix.threshold, number);
    if (!quotient) continue;
    // Not `resultNumberFormatter`: an abbreviation is never padded with zeros.
    NumberFormatter formatter(numberSymbolsFor(locale));
    formatter.maximumFractionDigits = preferences.dp;
    std::string text = formatter.string(*quotient);
    text += suffix.text;
    return text;
  }
  return std::nullopt;
}

}  // namespace tavrine
