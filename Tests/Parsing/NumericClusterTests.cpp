#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "Foundation/Locale.h"
#include "TavrineCore/Parsing/Helpers/NumberDetector.h"
#include "TavrineCore/Parsing/Helpers/NumericClusterComponents.h"

namespace tavrine {
namespace {

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

constexpr Case kCases[] = {
    // A number, then a word.
    {"5km", "5@0+1=5 km@1+2 names km@1"},
    {"1.5km", "1.5@0+3=1.5 km@3+2 names km@3"},
    {".5km", ".5@0+2=0.5 km@2+2 names km@2"},
    {",5km", ",5@0+2=0.5 km@2+2 names km@2", "de_DE"},
    {"5x3km", kNothing},
    // A word, then a number. The point in between is the number's.
    {"x2", "x@0+1 2@1+1=2 names x@0"},
    {"abc.5", "abc@0+3 .5@3+2=0.5 names abc@0"},
    {"abc,5", "abc@0+3 ,5@3+2=0.5 names abc@0", "de_DE"},
    {"größe12", "größe@0+5 12@5+2=12 names größe@0"},
    {"😀7", "😀@0+2 7@2+1=7 names 😀@0"},
    {"a1b2", kNothing},
    {"a1.2.3", kNothing},
    // A word between two numbers.
    {"2x3", "2@0+1=2 x@1+1 3@2+1=3 names x3@1 2x@0 x@1"},
    {"1.5é2.5", "1.5@0+3=1.5 é@3+1 2.5@4+3=2.5 names é2.5@3 1.5é@0 é@3"},
    {"2x3x4", kNothing},
    {"23", kNothing},
    // Digits between a word and one letter.
    {"h2m", "h@0+1 2@1+1=2 m@2+1 names h@0 m@2"},
    {"abc12é", "abc@0+3 12@3+2=12 é@5+1 names abc@0 é@5"},
    {"h2mm", kNothing},
    {"a1b2c", kNothing},
    // No digits, or digits that no number is read from.
    {"abc", kNothing},
    {"", kNothing},
    {"x٣", kNothing},
    {"x٣5", kNothing},
    {".5", kNothing},
};

TEST(NumericCluster, SplitsWhereLettersAndDigitsMeet) {
  for (const Case& c : kCases) EXPECT_EQ(describeCluster(c.text, c.locale), c.want) << c.text;
}

}  // namespace
}  // namespace tavrine
