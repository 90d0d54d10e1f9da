#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Foundation/Environment.h"
#include "TavrineCore/Customization/Engine/EngineCustomization.h"

/// What the fuzz targets of whole lines share.
namespace tavrine::fuzzing {

/// Takes an input apart from its start. Past the end it gives zeros and empty texts.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

  std::uint8_t byte();
  std::uint64_t word();
  std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
};

/// A world that stands still, with the same chance each time that it is made.
foundation::Environment stillWorld();

/// The customization that the input's next two bytes ask for: the first is the locale, the second says whether the
/// flags are the usual, all on, all off, or as the eight bytes behind it have them. Printable digits will do for seeds.
EngineCustomization customizationFrom(Input& input);

/// Reports what is wrong and ends the program, which is how a fuzzer learns of a find.
[[noreturn]] void fail(std::string_view what, std::string_view line);

/// Calculates the line in every way that has to come to the same answer; fails where two differ, or where the tokens
/// don't tile the line behind some stage. Returns the answer.
std::string checkedAnswer(const EngineCustomization& customization, std::string_view line);

}  // namespace tavrine::fuzzing
