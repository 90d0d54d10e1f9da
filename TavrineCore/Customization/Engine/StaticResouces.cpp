#include "TavrineCore/Customization/Engine/StaticResouces.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Foundation/Bundle.h"
#include "Foundation/Json.h"
#include "Foundation/SerialQueue.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/FlatRows.h"
#include "TavrineCore/Customization/Places/PlaceRows.h"
#include "TavrineCore/Customization/Places/PlaceWords.h"

namespace tavrine {

namespace {

template <typename Element>
void append(std::vector<Element>& english, const std::vector<Element>& localized) {
  english.insert(english.end(), localized.begin(), localized.end());
}

constexpr std::string_view kUnitDescriptionsFailure = "Failed to decode unit descriptions JSON: ";
void appendRows(PlaceRows& english, const PlaceRows& localized) { english.append(localized); }

struct Readers {
  SerialQueue accessQueue{"Static Resources Access Queue"};
  ResourceReader<LocalizableFixtureSet> fixtures{
      "Failed to decode LocalizableFixtureSet from JSON: ", &StaticResouces::localizedFixtureSetFrom,
      [](LocalizableFixtureSet& english, const LocalizableFixtureSet& localized) { english.layOver(localized); }};
  ResourceReader<std::vector<CurrencyDescription>> currencyDescriptions{
      "Failed to decode currency descriptions JSON: ", &currencyDescriptionsFrom,
      [](std::vector<CurrencyDescription>& english, const std::vector<CurrencyDescription>& localized) {
        english.insert(english.end(), localized.begin(), localized.end());
      }};
  ResourceReader<DefaultCurrencyRates> defaultCurrencyRates{
      "Failed to decode default currency rates: ", &defaultCurrencyRatesFrom,
      [](DefaultCurrencyRates& english, const DefaultCurrencyRates& localized) { english = localized; }};
  ResourceReader<std::vector<UnitDescription>> unitDescriptions{
      kUnitDescriptionsFailure, &StaticResouces::unitDescriptionsFrom, &append<UnitDescription>};
  ResourceReader<std::vector<UnitShorthand>> unitShorthands{
      kUnitDescriptionsFailure, &StaticResouces::unitShorthandsFrom, &append<UnitShorthand>};
  ResourceReader<PlaceRows> countries{"Failed to decode countries: ", &PlaceRows::from, appendRows};
  ResourceReader<PlaceRows> cities{"Failed to decode cities: ", &PlaceRows::from, appendRows};
  ResourceReader<PlaceRows> airports{"Failed to decode airports: ", &PlaceRows::from, appendRows};
  ResourceReader<PlaceWords> placeWords{"Failed to decode place words: ", &PlaceWords::from,
                                        [](PlaceWords& english, const PlaceWords& localized) { english = localized; }};
  ResourceReader<std::vector<SpecialDay>> specialDays{
      "Failed to decode special days: ", &StaticResouces::specialDaysFrom,
      [](std::vector<SpecialDay>& english, const std::vector<SpecialDay>& localized) {
        english.insert(english.end(), localized.begin(), localized.end());
      }};
  ResourceReader<StringMap<std::string>> timeZoneAbbreviations{
      "Could not load timezones from the file: ", &StaticResouces::timeZoneAbbreviationsFrom,
      [](StringMap<std::string>& english, const StringMap<std::string>& localized) {
        for (const auto& [abbreviation, hours] : localized) english[abbreviation] = hours;
      }};
  ResourceReader<std::vector<FunctionDescription>> functions{
      "Failed to function descriptions JSON: ", &StaticResouces::functionsFrom, &append<FunctionDescription>};
};

Readers& readers() {
  // Never destroyed: the memory of a process ends with it, all at once.
  static auto& all = *new Readers;
  return all;
}

/// The content of the file, or an empty one.
template <typename Content>
std::shared_ptr<const Content> contentNamed(std::string_view fileName, ResourceReader<Content> Readers::*reader) {
  Readers& all = readers();
  auto content = all.accessQueue.sync([&] { return (all.*reader).localized(Bundle::foundationBundle(), fileName); });
  return content == nullptr ? std::make_shared<const Content>() : content;
}

std::vector<std::string> stringsOf(const std::vector<std::string_view>& views) { return {views.begin(), views.end()}; }

std::optional<UnitDescription> unitDescriptionFrom(const FlatRow& row) {
  const auto* const symbol = row.stringOf("symbol");
  const auto* const aliases = row.stringsOf("aliases");
  const auto* const name = row.stringOf("identifier");
  const auto identifier = name == nullptr ? std::nullopt : unitIdentifierNamed(*name);
  if (symbol == nullptr || aliases == nullptr || !identifier) return std::nullopt;

  UnitDescription result{
      .symbol = std::string(*symbol), .aliases = stringsOf(*aliases), .associatedUnitIdentifier = *identifier};
  const FlatMember* const equivalence = row.find("equivalence");
  if (equivalence != nullptr && equivalence->kind != FlatMember::Kind::null) {
    if (equivalence->kind == FlatMember::Kind::number) result.equivalence = Decimal::parse(equivalence->texts.front());
    if (!result.equivalence) return std::nullopt;
  }
  return result;
}

std::optional<UnitShorthand> unitShorthandFrom(const FlatRow& row) {
  const auto* const aliases = row.stringsOf("aliases");
  const auto* const identifier = row.stringOf("identifier");
  if (aliases == nullptr || identifier == nullptr) return std::nullopt;
  return UnitShorthand{.aliases = stringsOf(*aliases), .identifier = std::string(*identifier)};
}

/// A text of the row: a part of the file where it stands there as it is.
SharedText sharedText(std::string_view text, const std::shared_ptr<const std::string>& file) {
  return isPartOf(text, *file) ? SharedText(file, text) : SharedText(text);
}

std::optional<FunctionDescription> functionDescriptionFrom(const FlatRow& row,
                                                           const std::shared_ptr<const std::string>& file) {
  const auto* const phrases = row.stringsOf("prototypeExpressions");
  const auto* const name = row.stringOf("identifier");
  const auto identifier = name == nullptr ? std::nullopt : functionIdentifierNamed(*name);
  if (phrases == nullptr || !identifier) return std::nullopt;
  FunctionDescription description{.identifier = *identifier, .prototypeExpressions = {}};
  description.prototypeExpressions.reserve(phrases->size());
  for (const std::string_view phrase : *phrases) description.prototypeExpressions.push_back(sharedText(phrase, file));
  return description;
}

std::string errorOf(const JsonParseResult& parsed) {
  return parsed.error + " at byte " + std::to_string(parsed.errorOffset);
}

/// A file that is an array, each element of which `decode` understands.
template <typename Element, typename Decode>
DecodedResource<std::vector<Element>> elementsFrom(std::string_view bytes, Decode decode) {
  std::vector<Element> result;
  std::string error = readFlatRows(bytes, [&](const FlatRow& row) {
    std::optional<Element> decoded = decode(row);
    if (decoded) result.push_back(*std::move(decoded));
    return decoded.has_value();
  });
  if (!error.empty()) return {std::nullopt, std::move(error)};
  return {std::move(result), {}};
}

LocalizableFixtureSet fixturesNamed(std::string_view fileName) {
  Readers& all = readers();
  return all.accessQueue.sync([&] {
    const auto content = all.fixtures.localized(Bundle::foundationBundle(), fileName);
    return content == nullptr ? LocalizableFixtureSet{} : *content;
  });
}

}  // namespace

LocalizableFixtureSet StaticResouces::localizedFixtures() { return fixturesNamed("LocalizedFixtures"); }

LocalizableFixtureSet StaticResouces::localizedShorthandFixtures() {
  return fixturesNamed("LocalizedFixtureShorthands");
}

std::vector<CurrencyDescription> StaticResouces::currencyDescriptions() {
  Readers& all = readers();
  return all.accessQueue.sync([&] {
    const auto content = all.currencyDescriptions.localized(Bundle::foundationBundle(), "CurrencyDescriptions");
    return content == nullptr ? std::vector<CurrencyDescription>{} : *content;
  });
}

DefaultCurrencyRates StaticResouces::defaultCurrencyRates() {
  Readers& all = readers();
  return all.accessQueue.sync([&] {
    const auto content = all.defaultCurrencyRates.localized(Bundle::foundationBundle(), "DefaultCurrencyRates");
    return content == nullptr ? DefaultCurrencyRates{} : *content;
  });
}

std::shared_ptr<const std::vector<UnitDescription>> StaticResouces::localizedUnitDescriptions() {
  return contentNamed("UnitDescriptions", &Readers::unitDescriptions);
}

std::shared_ptr<const std::vector<UnitShorthand>> StaticResouces::localizedUnitShorthands() {
  return contentNamed("LocalizedUnitShorthands", &Readers::unitShorthands);
}

DecodedResource<std::vector<UnitDescription>> StaticResouces::unitDescriptionsFrom(std::string_view bytes) {
  return elementsFrom<UnitDescription>(bytes, &unitDescriptionFrom);
}

DecodedResource<std::vector<UnitShorthand>> StaticResouces::unitShorthandsFrom(std::string_view bytes) {
  return elementsFrom<UnitShorthand>(bytes, &unitShorthandFrom);
}

std::shared_ptr<const PlaceRows> StaticResouces::localizedCities() { return contentNamed("Cities", &Readers::cities); }

std::shared_ptr<const PlaceRows> StaticResouces::localizedCountries() {
  return contentNamed("Countries", &Readers::countries);
}

std::shared_ptr<const PlaceRows> StaticResouces::localizedStates() {
  return contentNamed("States", &Readers::countries);
}

std::shared_ptr<const PlaceRows> StaticResouces::airports() { return contentNamed("Airports", &Readers::airports); }

PlaceWords StaticResouces::localizedPlaceWords() { return *contentNamed("PlaceWords", &Readers::placeWords); }

std::vector<SpecialDay> StaticResouces::localizedSpecialDays() {
  return *contentNamed("SpecialDays", &Readers::specialDays);
}

StringMap<std::string> StaticResouces::timeZoneAbbreviations() {
  return *contentNamed("TimeZoneAbbrieviations", &Readers::timeZoneAbbreviations);
}

DecodedResource<std::vector<SpecialDay>> StaticResouces::specialDaysFrom(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return {std::nullopt, parsed.error + " at byte " + std::to_string(parsed.errorOffset)};
  const Json::Array* const rows = parsed.value->asArray();
  if (rows == nullptr) return {std::nullopt, "no array"};

  std::vector<SpecialDay> result;
  for (const Json& row : *rows) {
    const Json* const type = row.find("type");
    const Json* const aliases = row.find("aliases");
    const std::string* const typeName = type == nullptr ? nullptr : type->asString();
    const Json::Array* const words = aliases == nullptr ? nullptr : aliases->asArray();
    if (typeName == nullptr || words == nullptr) return {std::nullopt, "a day without \"type\" or \"aliases\""};
    const auto known = specialDayTypeNamed(*typeName);
    if (!known) continue;
    SpecialDay day{*known, {}};
    for (const Json& word : *words) {
      if (const std::string* const text = word.asString()) day.aliases.push_back(*text);
    }
    result.push_back(std::move(day));
  }
  return {std::move(result), {}};
}

DecodedResource<StringMap<std::string>> StaticResouces::timeZoneAbbreviationsFrom(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  const Json::Object* const members = parsed ? parsed.value->asObject() : nullptr;
  if (members == nullptr) return {std::nullopt, "invalid format"};
  StringMap<std::string> result;
  for (const Json::Member& member : *members) {
    const std::string* const hours = member.value.asString();
    if (hours == nullptr) return {std::nullopt, "invalid format"};
    result[lowercased(member.key)] = *hours;
  }
  return {std::move(result), {}};
}

std::shared_ptr<const std::vector<FunctionDescription>> StaticResouces::localizedFunctions() {
  return contentNamed("FunctionDescriptions", &Readers::functions);
}

DecodedResource<std::vector<FunctionDescription>> StaticResouces::functionsFrom(std::string bytes) {
  const auto file = std::make_shared<const std::string>(std::move(bytes));
  return elementsFrom<FunctionDescription>(*file,
                                           [&file](const FlatRow& row) { return functionDescriptionFrom(row, file); });
}

DecodedResource<LocalizableFixtureSet> StaticResouces::localizedFixtureSetFrom(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return {std::nullopt, errorOf(parsed)};
  const Json* const fixtures = parsed.value->find("fixtures");
  const Json::Object* const members = fixtures == nullptr ? nullptr : fixtures->asObject();
  if (members == nullptr) return {std::nullopt, "no object \"fixtures\""};

  LocalizableFixtureSet result;
  for (const Json::Member& member : *members) {
    const auto key = localizableFixtureNamed(member.key);
    if (!key) continue;
    const Json::Array* const words = member.value.asArray();
    if (words == nullptr) return {std::nullopt, "\"" + member.key + "\" is no array"};
    auto& strings = result.stringsForLocalizableFixture[static_cast<std::size_t>(*key)];
    for (const Json& word : *words) {
      const std::string* const text = word.asString();
      if (text == nullptr) return {std::nullopt, "\"" + member.key + "\" holds something other than strings"};
      strings.push_back(*text);
    }
  }
  return {std::move(result), {}};
}

}  // namespace tavrine
