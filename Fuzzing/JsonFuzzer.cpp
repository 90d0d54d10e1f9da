#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "Foundation/Json.h"
#include "Fuzzing/FuzzSupport.h"

/// Any bytes as JSON: what can be read is written so that it reads as the same value, in both forms; what can't be
/// read says where.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tavrine::foundation::Json;
  using tavrine::foundation::JsonParseResult;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const JsonParseResult parsed = Json::parse(text);
  if (!parsed) {
    if (parsed.error.empty() || parsed.errorOffset > size) tavrine::fuzzing::fail("an error without a place", text);
    return 0;
  }
  for (const std::string& written : {parsed.value->compact(), parsed.value->pretty()}) {
    const JsonParseResult again = Json::parse(written);
    if (!again) tavrine::fuzzing::fail("can't read what was written: " + again.error, written);
    if (*again.value != *parsed.value) tavrine::fuzzing::fail("reads as another value", written);
  }
  return 0;
}
