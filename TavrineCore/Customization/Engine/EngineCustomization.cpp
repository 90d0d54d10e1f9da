#include "TavrineCore/Customization/Engine/EngineCustomization.h"

#include <atomic>
#include <utility>

#include "Foundation/CalendarSymbols.h"
#include "Foundation/Hashing.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/PerCurrentLocale.h"
#include "TavrineCore/Customization/Functions/CustomFunction.h"
#include "TavrineCore/Customization/Functions/TraditionalFunction.h"
#include "TavrineCore/Customization/Places/Place.h"
#include "TavrineCore/Customization/Units/CustomUnit.h"
#include "TavrineCore/Customization/Units/UnitSymbolReplacement.h"
#include "TavrineCore/Parsing/Primitives/Holiday.h"

namespace tavrine {

namespace {

constexpr std::int64_t kBrowserFontSize = 16;

template <typename Element>
std::size_t hashOfAll(const std::vector<Element>& elements) {
  std::size_t result = elements.size();
  for (const Element& element : elements) result = hashCombine(result, std::hash<Element>{}(element));
  return result;
}

}  // namespace

CurrencySymbolSettings CurrencySymbolSettings::automatic() { return {}; }

CurrencySymbolSettings CurrencySymbolSettings::manualWith(std::vector<UnitSymbolReplacement> symbols) {
  CurrencySymbolSettings result;
  result.symbols_ = std::make_shared<const std::vector<UnitSymbolReplacement>>(std::move(symbols));
  return result;
}

bool operator==(const CurrencySymbolSettings& left, const CurrencySymbolSettings& right) {
  if (left.symbols_ == right.symbols_) return true;
  if (left.symbols_ == nullptr || right.symbols_ == nullptr) return false;
  return *left.symbols_ == *right.symbols_;
}

struct EngineCustomization::Fields {
  Locale locale;
  std::optional<Calendar> calendar;
  std::vector<CustomUnit> customUnits;
  std::shared_ptr<CurrencyRateProvider> currencyRateProvider;
  std::shared_ptr<WeatherDataProvider> weatherDataProvider;
  std::shared_ptr<PlaceDataProvider> placeDataProvider;
  CurrencySymbolSettings currencySymbolSettings;
  std::vector<Place> customPlaces;
  std::vector<CustomFunction> customFunctions;
  std::vector<TraditionalFunction> javaScriptFunctions;
  std::vector<Holiday> holidays;
  UnitMeasurementSystem unitSystem = UnitMeasurementSystem::customaryUS;
  Decimal baseFontSize{kBrowserFontSize};
  EngineFeatureFlags featureFlags;
  CurrencySet currencySet = CurrencySet::none;

  // The calendar follows the locale unless the host chose another; no line reads differently under it.
  friend bool operator==(const Fields& l, const Fields& r) {
    return l.locale == r.locale && l.unitSystem == r.unitSystem && l.featureFlags == r.featureFlags &&
           l.customUnits == r.customUnits && l.customPlaces == r.customPlaces && l.holidays == r.holidays &&
           l.customFunctions == r.customFunctions && l.javaScriptFunctions == r.javaScriptFunctions &&
           l.currencyRateProvider == r.currencyRateProvider && l.weatherDataProvider == r.weatherDataProvider &&
           l.placeDataProvider == r.placeDataProvider && l.baseFontSize == r.baseFontSize &&
           l.currencySymbolSettings == r.currencySymbolSettings && l.currencySet == r.currencySet;
  }

  std::size_t hash() const {
    const std::vector<UnitSymbolReplacement>* const symbols = currencySymbolSettings.symbols();
    return hashOf(locale, static_cast<int>(unitSystem), featureFlags.hash(), hashOfAll(customUnits),
                  hashOfAll(customPlaces), hashOfAll(holidays), hashOfAll(customFunctions),
                  hashOfAll(javaScriptFunctions), currencyRateProvider, weatherDataProvider, placeDataProvider,
                  baseFontSize, symbols == nullptr ? std::size_t{1} : hashOfAll(*symbols),
                  static_cast<int>(currencySet));
  }
};

// What the copies of a customization share. The hash and the locale's calendar, which the Unicode library is slow to
// tell, are worked out when first asked for; two threads that do so at once write the same number.
struct EngineCustomization::Shared {
  explicit Shared(Fields f) : fields(std::move(f)) {}

  std::size_t hash() const {
    std::size_t value = cachedHash.load(std::memory_order_relaxed);
    if (value == kUnknown) {
      value = fields.hash();
      if (value == kUnknown) ++value;
      cachedHash.store(value, std::memory_order_relaxed);
    }
    return value;
  }

  Calendar::Identifier localeCalendar() const {
    int value = cachedCalendar.load(std::memory_order_relaxed);
    if (value == kUnknownCalendar) {
      value = static_cast<int>(preferredCalendarFor(fields.locale));
      cachedCalendar.store(value, std::memory_order_relaxed);
    }
    return static_cast<Calendar::Identifier>(value);
  }

  static constexpr std::size_t kUnknown = 0;
  static constexpr int kUnknownCalendar = -1;
  const Fields fields;
  mutable std::atomic<std::size_t> cachedHash{kUnknown};
  mutable std::atomic<int> cachedCalendar{kUnknownCalendar};
};

EngineCustomization::EngineCustomization(const Locale& locale, std::optional<Calendar> calendar) {
  Fields fields;
  fields.locale = locale;
  fields.calendar = std::move(calendar);
  shared_ = std::make_shared<const Shared>(std::move(fields));
}

namespace {

using SharedCustomization = PerCurrentLocale<EngineCustomization>;

}  // namespace

EngineCustomization EngineCustomization::basic() {
  static SharedCustomization shared;
  return shared.get([](const Locale& locale) { return EngineCustomization(locale); });
}

EngineCustomization EngineCustomization::standard() {
  static SharedCustomization shared;
  return shared.get([](const Locale&) {
    EngineCustomization result = basic();
    result.setCurrencySet(CurrencySet::realWorldPlusCrypto);
    return result;
  });
}

EngineCustomization EngineCustomization::tavrine() {
  static SharedCustomization shared;
  return shared.get([](const Locale&) {
    EngineCustomization result = standard();
    result.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
    return result;
  });
}

EngineCustomization EngineCustomization::usStandard() {
  static const EngineCustomization customization{Locale("en_US")};
  return customization;
}

EngineCustomization EngineCustomization::standardWith(const Locale& locale) {
  EngineCustomization result = basic().convertTo(locale);
  result.setCurrencySet(CurrencySet::realWorldPlusCrypto);
  return result;
}

const Locale& EngineCustomization::locale() const { return shared_->fields.locale; }

Calendar EngineCustomization::calendar() const {
  if (const auto& calendar = shared_->fields.calendar) return *calendar;
  return Calendar(shared_->localeCalendar(), locale(), TimeZone::current());
}

const std::vector<CustomUnit>& EngineCustomization::customUnits() const { return shared_->fields.customUnits; }
const std::shared_ptr<CurrencyRateProvider>& EngineCustomization::currencyRateProvider() const {
  return shared_->fields.currencyRateProvider;
}
const std::shared_ptr<WeatherDataProvider>& EngineCustomization::weatherDataProvider() const {
  return shared_->fields.weatherDataProvider;
}
const std::shared_ptr<PlaceDataProvider>& EngineCustomization::placeDataProvider() const {
  return shared_->fields.placeDataProvider;
}
const CurrencySymbolSettings& EngineCustomization::currencySymbolSettings() const {
  return shared_->fields.currencySymbolSettings;
}
const std::vector<Place>& EngineCustomization::customPlaces() const { return shared_->fields.customPlaces; }
const std::vector<CustomFunction>& EngineCustomization::customFunctions() const {
  return shared_->fields.customFunctions;
}
const std::vector<TraditionalFunction>& EngineCustomization::javaScriptFunctions() const {
  return shared_->fields.javaScriptFunctions;
}
const std::vector<Holiday>& EngineCustomization::holidays() const { return shared_->fields.holidays; }
UnitMeasurementSystem EngineCustomization::unitSystem() const { return shared_->fields.unitSystem; }
const Decimal& EngineCustomization::baseFontSize() const { return shared_->fields.baseFontSize; }
const EngineFeatureFlags& EngineCustomization::featureFlags() const { return shared_->fields.featureFlags; }
CurrencySet EngineCustomization::currencySet() const { return shared_->fields.currencySet; }

template <typename Change>
void EngineCustomization::change(Change change) {
  Fields fields = shared_->fields;
  change(fields);
  shared_ = std::make_shared<const Shared>(std::move(fields));
}

void EngineCustomization::setCustomUnits(std::vector<CustomUnit> units) {
  change([&](Fields& fields) { fields.customUnits = std::move(units); });
}
void EngineCustomization::setCurrencyRateProvider(std::shared_ptr<CurrencyRateProvider> provider) {
  change([&](Fields& fields) { fields.currencyRateProvider = std::move(provider); });
}
void EngineCustomization::setWeatherDataProvider(std::shared_ptr<WeatherDataProvider> provider) {
  change([&](Fields& fields) { fields.weatherDataProvider = std::move(provider); });
}
void EngineCustomization::setPlaceDataProvider(std::shared_ptr<PlaceDataProvider> provider) {
  change([&](Fields& fields) { fields.placeDataProvider = std::move(provider); });
}
void EngineCustomization::setCurrencySymbolSettings(CurrencySymbolSettings settings) {
  change([&](Fields& fields) { fields.currencySymbolSettings = std::move(settings); });
}
void EngineCustomization::setCustomPlaces(std::vector<Place> places) {
  change([&](Fields& fields) { fields.customPlaces = std::move(places); });
}
void EngineCustomization::setCustomFunctions(std::vector<CustomFunction> functions) {
  change([&](Fields& fields) { fields.customFunctions = std::move(functions); });
}
void EngineCustomization::setJavaScriptFunctions(std::vector<TraditionalFunction> functions) {
  change([&](Fields& fields) { fields.javaScriptFunctions = std::move(functions); });
}
void EngineCustomization::setHolidays(std::vector<Holiday> holidays) {
  change([&](Fields& fields) { fields.holidays = std::move(holidays); });
}
void EngineCustomization::setUnitSystem(UnitMeasurementSystem system) {
  change([&](Fields& fields) { fields.unitSystem = system; });
}
void EngineCustomization::setBaseFontSize(const Decimal& size) {
  change([&](Fields& fields) { fields.baseFontSize = size; });
}
void EngineCustomization::setFeatureFlags(const EngineFeatureFlags& flags) {
  change([&](Fields& fields) { fields.featureFlags = flags; });
}
void EngineCustomization::setCurrencySet(CurrencySet set) {
  change([&](Fields& fields) { fields.currencySet = set; });
}

std::vector<UnitSymbolReplacement> EngineCustomization::customSymbols() const {
  const std::vector<UnitSymbolReplacement>* const own = currencySymbolSettings().symbols();
  return own != nullptr ? *own : UnitSymbolReplacement::standardCustomSymbolsFor(locale());
}

EngineCustomization EngineCustomization::convertTo(const Locale& locale) const {
  if (locale == this->locale()) return *this;
  EngineCustomization result = *this;
  result.change([&](Fields& fields) {
    fields.locale = locale;
    fields.calendar.reset();
  });
  return result;
}

bool EngineCustomization::isOperator(std::string_view text) {
  const auto fixture = EngineContent::basic()->fixturesList->find(text);
  return fixture.has_value() && fixtureSets::operatorTypes.contains(*fixture);
}

bool EngineCustomization::isClassicFunction(std::string_view text) {
  return EngineContent::basic()->traditionalFunctionList->functionNamed(text) != nullptr;
}

std::string EngineCustomization::debugDescription() const { return "Customization with " + locale().identifier(); }

std::size_t EngineCustomization::hash() const { return shared_->hash(); }

bool operator==(const EngineCustomization& left, const EngineCustomization& right) {
  if (left.shared_ == right.shared_) return true;
  return left.hash() == right.hash() && left.shared_->fields == right.shared_->fields;
}

}  // namespace tavrine
