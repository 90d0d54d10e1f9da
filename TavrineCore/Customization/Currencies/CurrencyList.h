#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Decimal.h"
#include "Foundation/StringMap.h"
#include "TavrineCore/Customization/Currencies/CurrencyRateProvider.h"
#include "TavrineCore/Customization/Units/UnitDescription.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Parsing/Primitives/UnitIdentifier.h"

namespace tavrine {

/// Small money that goes by a name of its own: 100 pence are a pound.
struct FractionalCurrency {
  UnitIdentifier motherCurrencyIdentifier;
  std::string_view name;
  UnitIdentifier identifier;
  /// How many make one of the mother currency.
  int fraction;
};

/// The currencies that the engine knows: their codes, words and, for want of better ones, rates. One shared object,
/// read from any thread.
class CurrencyList final : public CurrencyRateProvider {
 public:
  static CurrencyList& shared();

  /// Metals included.
  static const UnitIdentifierSet realWorldCurrencies;
  /// Without their fractions.
  static const UnitIdentifierSet cryptoCurrencies;
  static const UnitIdentifierSet commodities;
  static const UnitIdentifierSet fractionalCurrencies;
  /// Those whose codes are ordinary words in lower case: "top", "Bob", "dot".
  static const UnitIdentifierSet currenciesThatMustBeUppercased;

  /// Whether the text names money only behind a number: "5000 won", but not "we won 5 games", "Try 5" or "Ada 5". A
  /// code in capitals is money on either side.
  static bool isOrdinaryWordBeforeNumbers(std::string_view text);

  static std::span<const FractionalCurrency> fractionalCurrencyRecords();
  /// "EUR" to `currencyEUR`, "cents" to `currencyDollarCents`.
  static const StringMap<UnitIdentifier>& currencyIdentifiersByCode();

  /// The currency of the code, which is told in the letters that it is written with: "usd" is none.
  static std::optional<UnitIdentifier> unitIdentifierFor(std::string_view code);
  /// Absent for what is no money, and for small money whose name is not its identifier's.
  static std::optional<std::string_view> currencyCodeFor(UnitIdentifier unitIdentifier);
  /// Null for all other money.
  static const FractionalCurrency* fractionalCurrencyFor(UnitIdentifier identifier);

  /// Units of a currency per US dollar, by code.
  [[nodiscard]] const StringMap<Decimal>& defaultCurrencyRates() const { return rates_; }
  /// The day of those rates: "2026-09-29"; empty when there are none.
  [[nodiscard]] const std::string& dateOfDefaultCurrencyRates() const { return date_; }
  [[nodiscard]] std::optional<Decimal> rateFor(const CurrencyRateRequest& request) override;

  /// What one of the currency is worth in US dollars. The provider, which may be null, is asked first, then the default
  /// rates; small money has its share of its mother's worth. Nothing when nobody knows a rate.
  [[nodiscard]] std::optional<Decimal> worthInDollars(UnitIdentifier identifier, CurrencyRateProvider* provider) const;

  /// The vocabulary of money in the language of the current locale. One shared list a locale.
  static std::shared_ptr<const std::vector<UnitDescription>> localizedUnitDescriptions();

 private:
  CurrencyList();

  std::string date_;
  StringMap<Decimal> rates_;
};

}  // namespace tavrine
