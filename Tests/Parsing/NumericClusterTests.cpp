#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Foundation/Locale.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;

constexpr std::string_view kNothing = "nothing";

std::string describePart(const std::optional<NumericClusterComponent>& part, const std::optional<Decimal>& value) {
  if (!part) return "";
  const std::string place = std::to_string(part->range.location) + "+" + std::to_string(part->range.length);
  return std::string(part->text) + "@" + place + (value ? "=" + value->description() : "") + " ";
}

std::string describeCluster(std::string_view text, std::string_view locale) {
  const auto cluster = NumericClusterComponents::make(
      text, NumberDetector(Locale(locale), MisplacedThousandsSeparatorBehavior::disallow));
  if (!cluster) return std::string(kNothing);
  std::string result = describePart(cluster->leadingComponent, cluster->leadingDecimal) +
                       describePart(cluster->sandwichComponent, cluster->sandwichDecimal) +
                       describePart(cluster->trailingComponent, cluster->trailingDecimal) + "names";
  for (const NumericClusterComponent& name : cluster->potentialVariableNames()) {
    result += " " + std::string(name.text) + "@" + std::to_string(name.range.location);
  }
  return result;
}

struct Case {
  std::string_view text, want, locale = "en_US";
};

TEST(NumericCluster, SplitsWhereLettersAndDigitsMeet) {
  for (const Case& c : rowsOf<Case>("Parsing/NumericClusterTests", "cases"))
    EXPECT_EQ(describeCluster(c.text, c.locale), c.want) << c.text;
}

}  // namespace
}  // namespace tavrine
