#include "TavrineCore/Customization/Variables/SingleCharacterUIDGenerator.h"

#include <array>
#include <cstdint>

#include "Foundation/Environment.h"
#include "Foundation/Text.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

namespace {

/// The circled numbers stand in three runs: 1 to 20, 21 to 35, 36 to 50.
struct Run {
  char32_t first;
  std::size_t count;
};
constexpr std::array<Run, 3> kCircledNumbers = {{{0x2460, 20}, {0x3251, 15}, {0x32B1, 15}}};
static_assert(kCircledNumbers[0].count + kCircledNumbers[1].count + kCircledNumbers[2].count ==
              SingleCharacterUIDGenerator::maximumParameterIndex);

std::optional<std::size_t> indexOfCircledNumber(char32_t scalar) noexcept {
  std::size_t before = 0;
  for (const Run& run : kCircledNumbers) {
    if (scalar >= run.first && scalar < run.first + run.count) return before + (scalar - run.first) + 1;
    before += run.count;
  }
  return std::nullopt;
}

}  // namespace

std::string SingleCharacterUIDGenerator::newUID() {
  const std::int64_t scalar = Environment::current().random().integerIn(firstPrivateSymbol, lastPrivateSymbol);
  return stringFromScalar(static_cast<char32_t>(scalar));
}

bool SingleCharacterUIDGenerator::isUID(std::string_view symbol) {
  const std::optional<char32_t> scalar = singleScalar(symbol);
  return scalar && isUID(*scalar);
}

bool SingleCharacterUIDGenerator::isUID(char32_t scalar) noexcept {
  return (scalar >= firstPrivateSymbol && scalar <= lastPrivateSymbol) || indexOfCircledNumber(scalar).has_value();
}

std::string SingleCharacterUIDGenerator::parameterSymbol(std::size_t index) {
  if (index == 0) return {};
  std::size_t before = 0;
  for (const Run& run : kCircledNumbers) {
    if (index <= before + run.count) return stringFromScalar(run.first + static_cast<char32_t>(index - before - 1));
    before += run.count;
  }
  return {};
}

std::optional<std::size_t> SingleCharacterUIDGenerator::parameterIndexFor(std::string_view UID) {
  const std::optional<char32_t> scalar = singleScalar(UID);
  return scalar ? indexOfCircledNumber(*scalar) : std::nullopt;
}

}  // namespace tavrine
