#include "TavrineCore/Parsing/Helpers/VulgarFractionDetector.h"

#include "Foundation/DecimalMath.h"

namespace tavrine {

std::optional<VulgarFractionDetector::Trailing> VulgarFractionDetector::trailingFractionOf(std::string_view text) {
  // All fraction characters begin and end beyond ASCII: the common number leaves here.
  if (text.empty() || static_cast<unsigned char>(text.back()) < 0x80) return std::nullopt;
  for (const auto& [fraction, character] : foundation::vulgarFractions()) {
    if (!text.ends_with(character)) continue;
    return Trailing{text.substr(0, text.size() - character.size()),
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
