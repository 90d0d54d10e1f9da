#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzzing/FuzzSupport.h"
#include "TavrineCore/Calculator.h"

namespace {

constexpr std::size_t kMaximumLines = 50;

std::vector<std::string> answersTo(std::string_view page, const tavrine::EngineCustomization& customization) {
  const tavrine::foundation::ScopedEnvironment world(tavrine::fuzzing::stillWorld());
  tavrine::Calculator calculator(customization);
  std::vector<std::string> answers;
  while (!page.empty() && answers.size() < kMaximumLines) {
    const std::size_t end = page.find('\n');
    answers.push_back(calculator.calculate(page.substr(0, end)).stringValue);
    page.remove_prefix(end == std::string_view::npos ? page.size() : end + 1);
  }
  return answers;
}

}  // namespace

/// Lines that declare variables and lines that use them, through one calculator: a second one that sees the same page
/// answers the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrine;
  const foundation::ScopedEnvironment world(fuzzing::stillWorld());
  fuzzing::Input input(data, size);
  EngineCustomization customization = fuzzing::customizationFrom(input);
  customization.changeFeatureFlags([](EngineFeatureFlags& flags) { flags.variableDeclarations = true; });
  const std::vector<std::string> answers = answersTo(input.rest(), customization);
  if (answersTo(input.rest(), customization) != answers) fuzzing::fail("two answers to one page", input.rest());
  return 0;
}
