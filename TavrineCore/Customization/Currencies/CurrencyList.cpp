#include "TavrineCore/Customization/Currencies/CurrencyList.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <utility>

#include "Foundation/Text.h"
#include "TavrineCore/Customization/Currencies/CurrencyAliasesProvider.h"
#include "TavrineCore/Customization/Engine/PerCurrentLocale.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"

namespace tavrine {

namespace {

using enum UnitIdentifier;

constexpr std::string_view kIdentifierPrefix = "currency";

constexpr auto kFractionalCurrencies = std::to_array<FractionalCurrency>({
    {currencyBTC, "Satoshi", currencySatoshi, 100'000'000},
    {currencyEUR, "euro cents", currencyEuroCents, 100},
    {currencyGBP, "pence", currencyBritishPence, 100},
    {currencyUSD, "cents", currencyDollarCents, 100},
});

constexpr UnitIdentifierSet kFractions = {currencySatoshi, currencyEuroCents, currencyBritishPence,
                                          currencyDollarCents};

constexpr UnitIdentifierSet kCrypto = {
    currencyBTC,  currencyADA, currencyAVAX, currencyBCH,  currencyBNB, currencyBSV,  currencyDASH,  currencyDOGE,
    currencyDOT,  currencyEOS, currencyETC,  currencyETH,  currencyLTC, currencyLUNA, currencyMATIC, currencyNEO,
    currencySHIB, currencySOL, currencyTRX,  currencyUSDT, currencyXLM, currencyXMR,  currencyXRP,
};

constexpr UnitIdentifierSet kAllMoney = UnitIdentifierSet::fromTo(currencyADA, currencyEuroCents);

constexpr UnitIdentifierSet allMoneyWithout(std::initializer_list<UnitIdentifierSet> others) {
  UnitIdentifierSet result = kAllMoney;
  for (const UnitIdentifierSet& other : others) other.forEach([&result](UnitIdentifier i) { result.remove(i); });
  return result;
}

// Names and codes of money that people write before a number with another meaning, as a verb or as somebody's name.
constexpr auto kOrdinaryWords = std::to_array<std::string_view>({
    "ada", "bam", "bnb",   "buck", "cad", "cop", "dash", "gel", "imp",   "luna", "mad", "mop",
    "neo", "pen", "penny", "php",  "ron", "sol", "sos",  "std", "terra", "try",  "won",
});
static_assert(std::ranges::is_sorted(kOrdinaryWords));

std::string_view withoutPrefix(UnitIdentifier identifier) {
  return toString(identifier).substr(kIdentifierPrefix.size());
}

/// Units of the currency that a dollar buys, from the provider; nothing where it doesn't know, or what it says is no
/// price.
std::optional<Decimal> rateFrom(CurrencyRateProvider& provider, UnitIdentifier identifier, std::string_view code) {
  CurrencyRateRequest request;
  request.unitIdentifier = identifier;
  request.currencyCode = code;
  try {
    const std::optional<Decimal> rate = provider.rateFor(request);
    return rate && *rate > Decimal() ? rate : std::nullopt;
  } catch (...) {
    // A host's source of rates that fails knows no rate.
    return std::nullopt;
  }
}

std::shared_ptr<const std::vector<UnitDescription>> unitDescriptions() {
  const CurrencyAliasesProvider provider{StaticResouces::currencyDescriptions()};
  auto result = std::make_shared<std::vector<UnitDescription>>();
  kAllMoney.forEach([&](UnitIdentifier identifier) {
    const FractionalCurrency* const fraction = CurrencyList::fractionalCurrencyFor(identifier);
    const std::string_view code = fraction != nullptr ? fraction->name : withoutPrefix(identifier);
    if (!provider.describes(code)) return;
    result->push_back({.symbol = std::string(code),
                       .aliases = provider.aliasesForCurrency(code),
                       .associatedUnitIdentifier = identifier});
  });
  return result;
}

}  // namespace

constinit const UnitIdentifierSet CurrencyList::realWorldCurrencies = allMoneyWithout({kCrypto, kFractions});
constinit const UnitIdentifierSet CurrencyList::cryptoCurrencies = kCrypto;
constinit const UnitIdentifierSet CurrencyList::commodities = {currencyXAG, currencyXAU};
constinit const UnitIdentifierSet CurrencyList::fractionalCurrencies = kFractions;
constinit const UnitIdentifierSet CurrencyList::currenciesThatMustBeUppercased = {currencyTOP, currencyBOB,
                                                                                  currencyDOT};

bool CurrencyList::isOrdinaryWordBeforeNumbers(std::string_view text) {
  return !unitIdentifierFor(text) && std::ranges::binary_search(kOrdinaryWords, lowercased(text));
}

std::span<const FractionalCurrency> CurrencyList::fractionalCurrencyRecords() { return kFractionalCurrencies; }

CurrencyList& CurrencyList::shared() {
  static CurrencyList list;
  return list;
}

CurrencyList::CurrencyList() {
  DefaultCurrencyRates content = StaticResouces::defaultCurrencyRates();
  date_ = std::move(content.date);
  rates_ = std::move(content.rates);
}

const StringMap<UnitIdentifier>& CurrencyList::currencyIdentifiersByCode() {
  static const StringMap<UnitIdentifier> identifiers = [] {
    StringMap<UnitIdentifier> result;
    allMoneyWithout({kFractions}).forEach([&result](UnitIdentifier identifier) {
      result.try_emplace(std::string(withoutPrefix(identifier)), identifier);
    });
    for (const FractionalCurrency& record : kFractionalCurrencies) {
      result.try_emplace(std::string(record.name), record.identifier);
    }
    return result;
  }();
  return identifiers;
}

std::optional<UnitIdentifier> CurrencyList::unitIdentifierFor(std::string_view code) {
  const auto found = currencyIdentifiersByCode().find(code);
  if (found == currencyIdentifiersByCode().end()) return std::nullopt;
  return found->second;
}

std::optional<std::string_view> CurrencyList::currencyCodeFor(UnitIdentifier unitIdentifier) {
  if (unitTypeOf(unitIdentifier) != UnitType::currency) return std::nullopt;
  const std::string_view code = withoutPrefix(unitIdentifier);
  if (unitIdentifierFor(code) != unitIdentifier) return std::nullopt;
  return code;
}

const FractionalCurrency* CurrencyList::fractionalCurrencyFor(UnitIdentifier identifier) {
  const auto found = std::ranges::find(kFractionalCurrencies, identifier, &FractionalCurrency::identifier);
  return found == kFractionalCurrencies.end() ? nullptr : &*found;
}

std::optional<Decimal> CurrencyList::rateFor(const CurrencyRateRequest& request) {
  const auto found = rates_.find(request.currencyCode);
  if (found == rates_.end()) return std::nullopt;
  return found->second;
}

std::optional<Decimal> CurrencyList::worthInDollars(UnitIdentifier identifier, CurrencyRateProvider* provider) const {
  if (identifier == currencyUSD) return Decimal(1);
  if (const FractionalCurrency* const record = fractionalCurrencyFor(identifier)) {
    const std::optional<Decimal> mother = worthInDollars(record->motherCurrencyIdentifier, provider);
    if (!mother) return std::nullopt;
    return *mother / Decimal(record->fraction);
  }
  if (unitTypeOf(identifier) != UnitType::currency) return std::nullopt;
  const std::string_view code = withoutPrefix(identifier);
  if (provider != nullptr) {
    if (const std::optional<Decimal> rate = rateFrom(*provider, identifier, code)) return Decimal(1) / *rate;
  }
  const auto found = rates_.find(code);
  if (found == rates_.end()) return std::nullopt;
  return Decimal(1) / found->second;
}

std::shared_ptr<const std::vector<UnitDescription>> CurrencyList::localizedUnitDescriptions() {
  static PerCurrentLocale<std::shared_ptr<const std::vector<UnitDescription>>> lists;
  return lists.get([](const Locale&) { return unitDescriptions(); });
}

}  // namespace tavrine
