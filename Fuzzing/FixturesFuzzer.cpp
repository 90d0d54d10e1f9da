#include <cstddef>
#include <cstdint>
#include <string_view>

#include "Fuzzing/FuzzSupport.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.h"

/// Any bytes as a file of words: the words, or what is wrong with the file; and whatever the words are, they can be
/// laid over others and looked up.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrine;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto decoded = StaticResouces::localizedFixtureSetFrom(text);
  if (decoded.content.has_value() != decoded.error.empty()) {
    fuzzing::fail("neither words nor an error, or both", text);
  }
  if (!decoded.content) return 0;
  LocalizableFixtureSet under;
  under.layOver(*decoded.content);
  if (under.fixtures() != decoded.content->fixtures()) fuzzing::fail("words were lost", text);
  return 0;
}
