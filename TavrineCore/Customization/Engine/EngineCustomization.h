#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Calendar.h"
#include "Foundation/Decimal.h"
#include "Foundation/Locale.h"
#include "TavrineCore/Customization/Engine/EngineFeatureFlags.h"
#include "TavrineCore/Customization/Units/UnitMeasurementSystem.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

class CurrencyRateProvider;
class CustomFunction;
class PlaceDataProvider;
class WeatherDataProvider;
struct CustomUnit;
struct Holiday;
struct Place;
struct TraditionalFunction;
struct UnitSymbolReplacement;

/// Which currencies the vocabulary has.
enum class CurrencySet : std::uint8_t { none, forTesting, realWorldPlusCrypto };

/// Whether the signs of currencies ("$", "¥") follow the locale or a list of the host's.
class CurrencySymbolSettings {
 public:
  static CurrencySymbolSettings automatic();
  static CurrencySymbolSettings manualWith(std::vector<UnitSymbolReplacement> symbols);

  bool isAutomatic() const { return symbols_ == nullptr; }
  /// The host's list; null when automatic.
  const std::vector<UnitSymbolReplacement>* symbols() const { return symbols_.get(); }

  friend bool operator==(const CurrencySymbolSettings& left, const CurrencySymbolSettings& right);

 private:
  std::shared_ptr<const std::vector<UnitSymbolReplacement>> symbols_;
};

/// Everything in which one calculator may differ from another: the locale, what the user added, the sources of live
/// data, the feature switches. A value that is cheap to copy: copies share what they hold until one of them is changed.
///
/// Two customizations are equal when a line means the same under both; the calendar takes no part.
class EngineCustomization {
 public:
  /// Without a calendar, the locale's own.
  explicit EngineCustomization(const Locale& locale, std::optional<Calendar> calendar = std::nullopt);

  /// For the current locale, with no currencies. Like the three below one shared value a current locale.
  static EngineCustomization basic();
  /// `basic` with the real currencies.
  static EngineCustomization standard();
  /// `standard` that also understands "x = 5".
  static EngineCustomization tavrine();
  /// For "en_US", with no currencies.
  static EngineCustomization usStandard();
  static EngineCustomization standardWith(const Locale& locale);

  const Locale& locale() const;
  Calendar calendar() const;
  const std::vector<CustomUnit>& customUnits() const;
  const std::shared_ptr<CurrencyRateProvider>& currencyRateProvider() const;
  const std::shared_ptr<WeatherDataProvider>& weatherDataProvider() const;
  const std::shared_ptr<PlaceDataProvider>& placeDataProvider() const;
  const CurrencySymbolSettings& currencySymbolSettings() const;
  const std::vector<Place>& customPlaces() const;
  const std::vector<CustomFunction>& customFunctions() const;
  const std::vector<TraditionalFunction>& javaScriptFunctions() const;
  const std::vector<Holiday>& holidays() const;
  UnitMeasurementSystem unitSystem() const;
  /// In points: what one "em" is.
  const Decimal& baseFontSize() const;
  const EngineFeatureFlags& featureFlags() const;
  CurrencySet currencySet() const;

  void setCustomUnits(std::vector<CustomUnit> units);
  void setCurrencyRateProvider(std::shared_ptr<CurrencyRateProvider> provider);
  void setWeatherDataProvider(std::shared_ptr<WeatherDataProvider> provider);
  void setPlaceDataProvider(std::shared_ptr<PlaceDataProvider> provider);
  void setCurrencySymbolSettings(CurrencySymbolSettings settings);
  void setCustomPlaces(std::vector<Place> places);
  void setCustomFunctions(std::vector<CustomFunction> functions);
  void setJavaScriptFunctions(std::vector<TraditionalFunction> functions);
  void setHolidays(std::vector<Holiday> holidays);
  void setUnitSystem(UnitMeasurementSystem system);
  void setBaseFontSize(const Decimal& size);
  void setFeatureFlags(const EngineFeatureFlags& flags);
  void setCurrencySet(CurrencySet set);

  /// `customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.octal = false; });`
  template <typename Change>
  void changeFeatureFlags(Change edit) {
    EngineFeatureFlags flags = featureFlags();
    edit(flags);
    setFeatureFlags(flags);
  }

  /// The signs of money in force: the host's list, or those of the locale.
  std::vector<UnitSymbolReplacement> customSymbols() const;

  /// The same for another locale and its calendar; itself when the locale is the same.
  EngineCustomization convertTo(const Locale& locale) const;

  /// Whether the text is an operator ("+", "times") to the engine in its basic form.
  static bool isOperator(std::string_view text);
  /// Whether the text is the name of a traditional function ("sqrt").
  static bool isClassicFunction(std::string_view text);

  std::string debugDescription() const;

  std::size_t hash() const;
  friend bool operator==(const EngineCustomization& left, const EngineCustomization& right);

 private:
  struct Fields;
  struct Shared;

  template <typename Change>
  void change(Change change);

  std::shared_ptr<const Shared> shared_;
};

}  // namespace tavrine

template <>
struct std::hash<tavrine::EngineCustomization> {
  std::size_t operator()(const tavrine::EngineCustomization& customization) const { return customization.hash(); }
};
