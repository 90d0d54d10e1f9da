#include <cstddef>
#include <cstdint>

#include "Fuzzing/FuzzSupport.h"

/// Any bytes as a line, under any of several customizations: an answer, always the same one, and no lost character.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrine;
  const foundation::ScopedEnvironment world(fuzzing::stillWorld());
  fuzzing::Input input(data, size);
  const EngineCustomization customization = fuzzing::customizationFrom(input);
  fuzzing::checkedAnswer(customization, input.rest());
  return 0;
}
