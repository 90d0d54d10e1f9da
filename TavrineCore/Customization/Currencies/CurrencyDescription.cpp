#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"

#include <optional>
#include <utility>

#include "Foundation/Json.h"

namespace tavrine {

namespace {

template <typename Content>
DecodedResource<Content> refused(std::string error) {
  return {std::nullopt, std::move(error)};
}

template <typename Content>
DecodedResource<Content> refused(const JsonParseResult& parsed) {
  return refused<Content>(parsed.error + " at byte " + std::to_string(parsed.errorOffset));
}

const std::string* stringIn(const Json& object, std::string_view key) {
  const Json* const member = object.find(key);
  return member == nullptr ? nullptr : member->asString();
}

std::optional<CurrencyDescription> descriptionFrom(const Json& json) {
  const std::string* const symbol = stringIn(json, "symbol");
  const Json* const words = json.find("aliases");
  const Json::Array* const aliases = words == nullptr ? nullptr : words->asArray();
  if (symbol == nullptr || aliases == nullptr) return std::nullopt;
  CurrencyDescription result{*symbol, {}};
  for (const Json& word : *aliases) {
    const std::string* const text = word.asString();
    if (text == nullptr) return std::nullopt;
    result.aliases.push_back(*text);
  }
  return result;
}

}  // namespace

DecodedResource<std::vector<CurrencyDescription>> currencyDescriptionsFrom(std::string_view bytes) {
  using Content = std::vector<CurrencyDescription>;
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return refused<Content>(parsed);
  const Json::Array* const rows = parsed.value->asArray();
  if (rows == nullptr) return refused<Content>("no array");
  Content result;
  for (const Json& row : *rows) {
    std::optional<CurrencyDescription> description = descriptionFrom(row);
    if (!description) return refused<Content>("row " + std::to_string(result.size()) + " has no symbol or no aliases");
    result.push_back(*std::move(description));
  }
  return {std::move(result), {}};
}

DecodedResource<DefaultCurrencyRates> defaultCurrencyRatesFrom(std::string_view bytes) {
  const JsonParseResult parsed = Json::parse(bytes);
  if (!parsed) return refused<DefaultCurrencyRates>(parsed);
  const std::string* const date = stringIn(*parsed.value, "date");
  const std::string* const base = stringIn(*parsed.value, "base");
  const Json* const rates = parsed.value->find("rates");
  const Json::Object* const members = rates == nullptr ? nullptr : rates->asObject();
  if (date == nullptr || members == nullptr) return refused<DefaultCurrencyRates>("no \"date\" or no \"rates\"");
  if (base == nullptr || *base != "USD") return refused<DefaultCurrencyRates>("\"base\" is not \"USD\"");
  DefaultCurrencyRates result{*date, {}};
  for (const Json::Member& member : *members) {
    const std::string* const text = member.value.asNumberText();
    const std::optional<Decimal> rate = text == nullptr ? std::nullopt : Decimal::parse(*text);
    if (!rate || !(*rate > Decimal())) {
      return refused<DefaultCurrencyRates>("\"" + member.key + "\" is no rate");
    }
    result.rates[member.key] = *rate;
  }
  return {std::move(result), {}};
}

}  // namespace tavrine
