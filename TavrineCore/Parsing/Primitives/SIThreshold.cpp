#include "TavrineCore/Parsing/Primitives/SIThreshold.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tavrine {

namespace {

struct Row {
  std::string_view name;
  std::string_view digits;
};

constexpr std::array<Row, 10> kRows = {{
    {"pentillion", "1000000000000000000000000000"},
    {"septillion", "1000000000000000000000000"},
    {"sextillion", "1000000000000000000000"},
    {"quintillion", "1000000000000000000"},
    {"quadrillion", "1000000000000000"},
    {"trillion", "1000000000000"},
    {"billion", "1000000000"},
    {"million", "1000000"},
    {"hundredThousand", "100000"},
    {"thousand", "1000"},
}};

struct Prefix {
  std::string_view text;
  SIThreshold threshold;
};

constexpr std::array<Prefix, 13> kPrefixes = {{
    {"k", SIThreshold::thousand},
    {"K", SIThreshold::thousand},
    {"Ki", SIThreshold::thousand},
    {"kibi", SIThreshold::thousand},
    {"kilo", SIThreshold::thousand},
    {"M", SIThreshold::million},
    {"mega", SIThreshold::million},
    {"G", SIThreshold::billion},
    {"Gi", SIThreshold::billion},
    {"gibi", SIThreshold::billion},
    {"giga", SIThreshold::billion},
    {"T", SIThreshold::trillion},
    {"tera", SIThreshold::trillion},
}};

}  // namespace

std::string_view toString(SIThreshold threshold) { return kRows[static_cast<std::size_t>(threshold)].name; }

std::string_view rawValueOf(SIThreshold threshold) { return kRows[static_cast<std::size_t>(threshold)].digits; }

std::optional<SIThreshold> siThresholdFromRawValue(std::string_view digits) {
  const auto found =
      std::find_if(kRows.begin(), kRows.end(), [digits](const Row& row) { return row.digits == digits; });
  if (found == kRows.end()) return std::nullopt;
  return static_cast<SIThreshold>(found - kRows.begin());
}

std::optional<SIThreshold> thresholdForSIPrefix(std::string_view prefix) {
  const auto found =
      std::find_if(kPrefixes.begin(), kPrefixes.end(), [prefix](const Prefix& row) { return row.text == prefix; });
  if (found == kPrefixes.end()) return std::nullopt;
  return found->threshold;
}

const Decimal& valueOf(SIThreshold threshold) {
  static const auto values = [] {
    std::array<Decimal, kRows.size()> parsed;
    for (std::size_t i = 0; i < kRows.size(); ++i) parsed[i] = Decimal::parse(kRows[i].digits).value();
    return parsed;
  }();
  return values[static_cast<std::size_t>(threshold)];
}

std::optional<Decimal> numberForFormatting(SIThreshold threshold, const Decimal& number) {
  if (number.isNaN()) return std::nullopt;
  // Every threshold is at least 1, and so a multiple of it is too.
  if (number.magnitude() < Decimal(1)) return std::nullopt;
  const Decimal multiple = number / valueOf(threshold);
  if (multiple.magnitude() < Decimal(1)) return std::nullopt;
  return multiple;
}

}  // namespace tavrine
