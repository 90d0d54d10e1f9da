#include "TavrineCore/Customization/Currencies/CurrencyDescription.h"

#include <optional>
#include <utility>

#include "Foundation/Json.h"
#include "TavrineCore/Customization/Engine/FlatRows.h"

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

}  // namespace

DecodedResource<std::vector<CurrencyDescription>> currencyDescriptionsFrom(std::string_view bytes) {
  using Content = std::vector<CurrencyDescription>;
  Content result;
  std::string error = readFlatRows(bytes, [&result](const FlatRow& row) {
    const auto* const symbol = row.stringOf("symbol");
    const auto* const aliases = row.stringsOf("aliases");
    if (symbol == nullptr || aliases == nullptr) return false;
    result.push_back({.symbol = std::string(*symbol), .aliases = {aliases->begin(), aliases->end()}});
    return true;
  });
  if (!error.empty()) return refused<Content>(std::move(error));
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
