#include "Foundation/NumberSymbols.h"

#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>

#include <functional>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <unordered_map>

namespace tavrine::foundation {
namespace {

// A POSIX locale has no grouping at all: fine for machines, not for people.
icu::Locale readableLocale(std::string_view identifier) {
  const icu::Locale locale = icu::Locale::createFromName(std::string(identifier).c_str());
  const std::string_view language = locale.getLanguage();
  const bool isPosix = std::string_view(locale.getVariant()).find("POSIX") != std::string_view::npos;
  if (locale.isBogus() || identifier.empty() || language.empty() || language == "c" || language == "posix" || isPosix) {
    return icu::Locale::getUS();
  }
  return locale;
}

std::string utf8(const icu::UnicodeString& text) {
  std::string result;
  text.toUTF8String(result);
  return result;
}

std::unique_ptr<icu::DecimalFormat> decimalFormat(const icu::Locale& locale, UNumberFormatStyle style) {
  UErrorCode status = U_ZERO_ERROR;
  std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance(locale, style, status));
  if (U_FAILURE(status)) return nullptr;
  auto* decimal = dynamic_cast<icu::DecimalFormat*>(format.get());
  if (decimal != nullptr) static_cast<void>(format.release());
  return std::unique_ptr<icu::DecimalFormat>(decimal);
}

std::string affix(const icu::DecimalFormat& format,
                  icu::UnicodeString& (icu::DecimalFormat::*get)(icu::UnicodeString&) const) {
  icu::UnicodeString text;
  return utf8((format.*get)(text));
}

void readCharacters(const icu::DecimalFormatSymbols& source, NumberSymbols& symbols) {
  using Source = icu::DecimalFormatSymbols;
  const auto read = [&source](Source::ENumberFormatSymbol symbol) { return utf8(source.getConstSymbol(symbol)); };
  symbols.decimalSeparator = read(Source::kDecimalSeparatorSymbol);
  symbols.groupingSeparator = read(Source::kGroupingSeparatorSymbol);
  symbols.minusSign = read(Source::kMinusSignSymbol);
  symbols.plusSign = read(Source::kPlusSignSymbol);
  symbols.exponentSymbol = read(Source::kExponentialSymbol);
  symbols.infinity = read(Source::kInfinitySymbol);
  symbols.notANumber = read(Source::kNaNSymbol);
  for (int digit = 0; digit < 10; ++digit) {
    symbols.digits[static_cast<std::size_t>(digit)] = utf8(source.getConstDigitSymbol(digit));
  }
  symbols.usesLatinDigits = symbols.digits[0] == "0";
}

NumberSymbols readSymbols(const icu::Locale& locale) {
  NumberSymbols symbols;
  const auto decimal = decimalFormat(locale, UNUM_DECIMAL);
  const auto percent = decimalFormat(locale, UNUM_PERCENT);
  if (decimal == nullptr || percent == nullptr) return symbols;  // no locale data at all: the built-in ones serve
  readCharacters(*decimal->getDecimalFormatSymbols(), symbols);
  symbols.negativePrefix = affix(*decimal, &icu::DecimalFormat::getNegativePrefix);
  symbols.negativeSuffix = affix(*decimal, &icu::DecimalFormat::getNegativeSuffix);
  symbols.percentPrefix = affix(*percent, &icu::DecimalFormat::getPositivePrefix);
  symbols.percentSuffix = affix(*percent, &icu::DecimalFormat::getPositiveSuffix);
  symbols.percentNegativePrefix = affix(*percent, &icu::DecimalFormat::getNegativePrefix);
  symbols.percentNegativeSuffix = affix(*percent, &icu::DecimalFormat::getNegativeSuffix);
  if (decimal->isGroupingUsed() && !symbols.groupingSeparator.empty()) {
    symbols.primaryGroupingSize = decimal->getGroupingSize();
    symbols.secondaryGroupingSize = decimal->getSecondaryGroupingSize();
    if (symbols.secondaryGroupingSize <= 0) symbols.secondaryGroupingSize = symbols.primaryGroupingSize;
  } else {
    symbols.primaryGroupingSize = 0;
    symbols.secondaryGroupingSize = 0;
    symbols.groupingSeparator.clear();
  }
  // Unset means 1 here, whatever the locale data recommends: "1.234" in Spanish.
  symbols.minimumGroupingDigits = std::max(1, static_cast<int>(decimal->getMinimumGroupingDigits()));
  return symbols;
}

struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
};

class SymbolsCache {
 public:
  const NumberSymbols& symbols(std::string_view identifier) {
    {
      const std::shared_lock lock(mutex_);
      if (const auto found = byIdentifier_.find(identifier); found != byIdentifier_.end()) return *found->second;
    }
    const icu::Locale locale = readableLocale(identifier);
    auto fresh = std::make_unique<const NumberSymbols>(readSymbols(locale));
    const std::unique_lock lock(mutex_);
    // Identifiers are many, locales few: spellings of one locale share its symbols.
    const auto [owned, isNew] = owned_.try_emplace(locale.getName(), std::move(fresh));
    return *byIdentifier_.try_emplace(std::string(identifier), owned->second.get()).first->second;
  }

 private:
  std::shared_mutex mutex_;
  std::unordered_map<std::string, std::unique_ptr<const NumberSymbols>> owned_;
  std::unordered_map<std::string, const NumberSymbols*, TextHash, std::equal_to<>> byIdentifier_;
};

}  // namespace

const NumberSymbols& NumberSymbols::forLocale(std::string_view identifier) {
  // Never destroyed: references into it are promised for the life of the process.
  static auto& cache = *new SymbolsCache;
  return cache.symbols(identifier);
}

}  // namespace tavrine::foundation
