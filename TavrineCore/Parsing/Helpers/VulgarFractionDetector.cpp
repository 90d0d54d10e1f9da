#include "TavrineCore/Parsing/Helpers/VulgarFractionDetector.h"

#include <array>

namespace tavrine {

namespace {

struct VulgarFraction {
  std::string_view character;
  int numerator;
  int denominator;
};

constexpr auto kVulgarFractions = std::to_array<VulgarFraction>({
    {"½", 1, 2},
    {"⅓", 1, 3},
    {"⅔", 2, 3},
    {"¼", 1, 4},
    {"¾", 3, 4},
    {"⅕", 1, 5},
    {"⅖", 2, 5},
    {"⅗", 3, 5},
    {"⅘", 4, 5},
    {"⅙", 1, 6},
    {"⅚", 5, 6},
    {"⅛", 1, 8},
    {"⅜", 3, 8},
    {"⅝", 5, 8},
    {"⅞", 7, 8},
});

}  // namespace

std::optional<VulgarFractionDetector::Trailing> VulgarFractionDetector::trailingFractionOf(std::string_view text) {
  // All fraction characters begin and end beyond ASCII: the common number leaves here.
  if (text.empty() || static_cast<unsigned char>(text.back()) < 0x80) return std::nullopt;
  for (const VulgarFraction& fraction : kVulgarFractions) {
    if (!text.ends_with(fraction.character)) continue;
    return Trailing{text.substr(0, text.size() - fraction.character.size()),
                    Decimal(fraction.numerator) / Decimal(fraction.denominator)};
  }
  return std::nullopt;
}

std::optional<Decimal> VulgarFractionDetector::valueOf(std::string_view text) {
  const std::optional<Trailing> trailing = trailingFractionOf(text);
  if (!trailing || !trailing->before.empty()) return std::nullopt;
  return trailing->value;
}

}  // namespace tavrine
