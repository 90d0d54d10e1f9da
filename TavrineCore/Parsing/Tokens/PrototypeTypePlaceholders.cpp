#include "TavrineCore/Parsing/Tokens/PrototypeTypePlaceholders.h"

#include <array>

namespace tavrine {

namespace {

struct TypeRow {
  std::string_view placeholder;
  TokenType type;
};

using enum TokenType;

constexpr auto kTypes = std::to_array<TypeRow>({
    {"__decimal", number},
    {"__percentage", percentage},
    {"__timespan", timespan},
    {"__laptime", laptime},
    {"__unit_expression", unitExpression},
    {"__unit", unit},
    {"__rate", rate},
    {"__datestamp", datestamp},
    {"__datespan", datespan},
    {"__timestamp", unixTimestamp},
    {"__converter_symbol", converterSymbol},
    {"__timezone", timezone},
    {"__substance", substance},
    {"__tag", hashtag},
    {"__frametime", frametime},
    {"__resolution", resolution},
    {"__sales_tax", salesTax},
    {"__gpsCoordinates", gpsCoordinates},
    {"__list", list},
    {"__statistic_type", statisticType},
    {"__any_word", anyWord},
    {"__dynamic_place", dynamicPlace},
    {"__literal", literal},
});

struct SubTypeRow {
  std::string_view placeholder;
  TokenSubType subType;
};

constexpr auto kSubTypes = std::to_array<SubTypeRow>({
    {"__times", TokenSubType::multiplicationOperator},
    {"__unit_rate", TokenSubType::unitRate},
    {"__decimal_rate", TokenSubType::decimalRate},
    {"__percentage_rate", TokenSubType::percentageRate},
    {"__at", TokenSubType::prepositionWordAt},
});

std::optional<std::string_view> withoutPrefix(std::string_view placeholder) {
  if (!PrototypeTypePlaceholders::isPlaceholder(placeholder)) return std::nullopt;
  return placeholder.substr(PrototypeTypePlaceholders::prototypePrefix.size());
}

std::string prefixed(std::string_view text) {
  return std::string(PrototypeTypePlaceholders::prototypePrefix).append(text);
}

}  // namespace

std::optional<TokenType> PrototypeTypePlaceholders::typeFor(std::string_view placeholder) {
  for (const TypeRow& row : kTypes) {
    if (row.placeholder == placeholder) return row.type;
  }
  return std::nullopt;
}

std::optional<TokenSubType> PrototypeTypePlaceholders::subTypeFor(std::string_view placeholder) {
  for (const SubTypeRow& row : kSubTypes) {
    if (row.placeholder == placeholder) return row.subType;
  }
  return std::nullopt;
}

std::optional<UnitType> PrototypeTypePlaceholders::unitTypeFor(std::string_view placeholder) {
  const std::optional<std::string_view> name = withoutPrefix(placeholder);
  return name ? unitTypeNamed(*name) : std::nullopt;
}

std::optional<UnitType> PrototypeTypePlaceholders::unitExpressionTypeFor(std::string_view placeholder) {
  std::optional<std::string_view> name = withoutPrefix(placeholder);
  if (!name || !name->ends_with(expressionSuffix)) return std::nullopt;
  name->remove_suffix(expressionSuffix.size());
  return unitTypeNamed(*name);
}

std::optional<std::string_view> PrototypeTypePlaceholders::placeholderFor(TokenType type) {
  for (const TypeRow& row : kTypes) {
    if (row.type == type) return row.placeholder;
  }
  return std::nullopt;
}

std::string PrototypeTypePlaceholders::placeholderForUnit(UnitType type) { return prefixed(toString(type)); }

std::string PrototypeTypePlaceholders::placeholderForUnitExpression(UnitType type) {
  return prefixed(toString(type)).append(expressionSuffix);
}

}  // namespace tavrine
