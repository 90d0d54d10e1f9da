#include "TavrineCore/Parsing/Primitives/MidiNumber.h"

#include <array>
#include <cmath>
#include <string_view>

namespace tavrine {

std::optional<MidiNumber> MidiNumber::fromFrequency(const Decimal& frequency) {
  if (frequency.isNaN() || frequency < Decimal(26)) return std::nullopt;
  const double number = std::round(12 * std::log2(frequency.doubleValue() / 440) + 69);
  // Written so that infinity, and what isn't a number, fail too.
  if (!(number >= minimumMidiNumber && number <= maximumMidiNumber)) return std::nullopt;
  return MidiNumber{static_cast<int>(number)};
}

std::optional<std::string> MidiNumber::notation() const {
  constexpr int lowestKeyOfPiano = 21;
  constexpr std::array<std::string_view, 12> kNotes = {"C", "C#", "D", "D#", "E", "F", "F#", "G", "G#", "A", "A#", "B"};
  if (number < lowestKeyOfPiano || number > maximumMidiNumber) return std::nullopt;
  return std::string(kNotes[static_cast<std::size_t>(number % 12)]) + std::to_string(number / 12 - 1);
}

}  // namespace tavrine
