#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A key of a keyboard by number: 69 is A4.
struct MidiNumber {
  static constexpr int minimumMidiNumber = 0;
  static constexpr int maximumMidiNumber = 127;

  int number = 0;

  /// The key nearest to the frequency in hertz; absent below 26 Hz and above the last key.
  [[nodiscard]] static std::optional<MidiNumber> fromFrequency(const Decimal& frequency);

  /// The note of the key, in sharps: "A4", "F#9"; absent below 21, the lowest key of a piano.
  [[nodiscard]] std::optional<std::string> notation() const;

  [[nodiscard]] std::size_t hash() const { return hashOf(number); }
  friend bool operator==(const MidiNumber&, const MidiNumber&) = default;
};

}  // namespace tavrine
