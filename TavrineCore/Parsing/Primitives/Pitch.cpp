#include "TavrineCore/Parsing/Primitives/Pitch.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "Foundation/DecimalMath.h"

namespace tavrine {

namespace {

constexpr std::string_view kNoteLetters = "CDEFGAB";

/// Semitones from A of the same octave, in the order of the notes.
constexpr std::array kSemitonesFromA = {-9, -7, -5, -4, -2, 0, 2};

}  // namespace

std::optional<Pitch> Pitch::fromNotation(std::string_view notation) {
  if (notation.size() != 2 && notation.size() != 3) return std::nullopt;

  const std::size_t note = kNoteLetters.find(notation.front());
  if (note == std::string_view::npos) return std::nullopt;
  const char digit = notation.back();
  if (digit < '0' || digit > '9') return std::nullopt;

  Pitch pitch;
  pitch.note = static_cast<NoteName>(note);
  pitch.octave = digit - '0';
  if (notation.size() == 3) {
    if (notation[1] != '#' && notation[1] != 'b') return std::nullopt;
    pitch.modifier = notation[1] == '#' ? NoteModifier::sharp : NoteModifier::flat;
  }
  return pitch;
}

std::string Pitch::notationString() const {
  std::string text(toString(note));
  if (modifier) text += toString(*modifier);
  return text + std::to_string(octave);
}

Decimal Pitch::frequencyFor(const Pitch& pitch) {
  int semitones = kSemitonesFromA[static_cast<std::size_t>(pitch.note)];
  if (pitch.modifier) semitones += *pitch.modifier == NoteModifier::sharp ? 1 : -1;

  const std::int64_t n = (std::int64_t{pitch.octave} - 4) * 12 + semitones;

  // (2^(1/12))^n, but the octaves apart: they are whole powers, so that every A comes out without a fraction.
  const std::int64_t semitonesInOctave = ((n % 12) + 12) % 12;
  static const Decimal semitone = DDDecimalNthRoot(Decimal(2), Decimal(12));
  const Decimal frequency = Decimal(440) * TCDecimalPower(Decimal(2), Decimal((n - semitonesInOctave) / 12)) *
                            TCDecimalPower(semitone, Decimal(semitonesInOctave));
  return frequency.isNaN() ? Decimal() : frequency;
}

std::string_view toString(Pitch::NoteName note) { return kNoteLetters.substr(static_cast<std::size_t>(note), 1); }

std::string_view toString(Pitch::NoteModifier modifier) { return modifier == Pitch::NoteModifier::sharp ? "#" : "b"; }

}  // namespace tavrine
