#include "TavrineCore/Customization/Engine/StaticResouces.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "Foundation/Bundle.h"
#include "Foundation/Json.h"
#include "Foundation/SerialQueue.h"

namespace tavrine {

namespace {

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
};

Readers& readers() {
  static Readers all;
  return all;
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

DecodedResource<LocalizableFixtureSet> StaticResouces::localizedFixtureSetFrom(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return {std::nullopt, parsed.error + " at byte " + std::to_string(parsed.errorOffset)};
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
