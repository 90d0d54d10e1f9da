#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A note of the scale in its octave: "A4", "C#3", "Bb2".
struct Pitch {
  enum class NoteName : std::uint8_t { C, D, E, F, G, A, B };
  enum class NoteModifier : std::uint8_t { sharp, flat };

  NoteName note = NoteName::A;
  std::optional<NoteModifier> modifier;
  int octave = 4;

  /// Reads a letter, perhaps "#" or "b", and one digit; nothing else makes a pitch.
  [[nodiscard]] static std::optional<Pitch> fromNotation(std::string_view notation);

  /// The same text again.
  [[nodiscard]] std::string notationString() const;

  /// The frequency in hertz, A4 being 440, in equal temperament. 0 where the number can't be held.
  [[nodiscard]] static Decimal frequencyFor(const Pitch& note);

  [[nodiscard]] std::size_t hash() const { return hashOf(note, modifier, octave); }
  friend bool operator==(const Pitch&, const Pitch&) = default;
};

/// "C" to "B".
std::string_view toString(Pitch::NoteName note);
/// "#" or "b".
std::string_view toString(Pitch::NoteModifier modifier);

}  // namespace tavrine
