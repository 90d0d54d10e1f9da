#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "Fuzzing/FuzzSupport.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"

namespace tavrine::fuzzing {
namespace {

constexpr std::size_t kMaximumLength = 1000;

/// Values of every kind that a gap may want, and some that none wants.
constexpr std::array<std::string_view, 34> kValues{
    "10",    "0",         "-3.5",    "1e30",    "5%",         "1/3",          "(2 + 3)",
    "((4))", "5 km",      "$20",     "3 hours", "2 weeks",    "3 March 2026", "today",
    "June",  "3 - 5 May", "London",  "tokyo",   "flour",      "3, 5 and 9",   "average",
    "#food", "\"word\"",  "4%/year", "60 mph",  "1080p",      "1:20:05.5",    "00:01:02:03",
    "km",    "GST",       "foo",     "x = 4",   "1600000000", "25 fps"};

constexpr std::array<std::string_view, 12> kBetween{" ",    " ",    " and ", ", ",     " + ", " in ",
                                                    " to ", " of ", "(",     " as a ", ")",   "? "};

/// The phrases of the vocabulary.
const std::vector<std::string>& phrases() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> found;
    const auto descriptions = StaticResouces::localizedFunctions();
    for (const FunctionDescription& description : *descriptions) {
      for (const SharedText& phrase : description.prototypeExpressions) found.push_back(phrase.string());
    }
    return found;
  }();
  return all;
}

template <class Choices>
decltype(auto) chosenFrom(const Choices& choices, std::size_t number) {
  return choices[number % choices.size()];
}

/// Some or all words of a phrase, with values in its gaps.
void appendPhrase(Input& input, std::string& line) {
  const std::size_t number = input.byte() + std::size_t{256} * input.byte();
  const std::uint8_t kept = input.byte();  // the words that are left out, by its bits; none for small numbers
  const std::string_view phrase = chosenFrom(phrases(), number);
  std::size_t word = 0;
  for (std::size_t start = 0; start < phrase.size(); ++word) {
    const std::size_t end = std::min(phrase.find(' ', start), phrase.size());
    const std::string_view piece = phrase.substr(start, end - start);
    start = end + 1;
    if (kept >= 128 && ((kept >> (word % 7)) & 1) != 0) continue;
    if (word > 0) line += ' ';
    const bool isGap = piece.starts_with("__") || (piece[0] >= '0' && piece[0] <= '9');
    line += isGap ? chosenFrom(kValues, input.byte()) : piece;
  }
}

}  // namespace
}  // namespace tavrine::fuzzing

/// Lines put together from phrases, their words and values: the whole phrase, a part of it, several side by side.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tavrine;
  const foundation::ScopedEnvironment world(fuzzing::stillWorld());
  fuzzing::Input input(data, size);
  const EngineCustomization customization = fuzzing::customizationFrom(input);
  std::string line;
  while (!input.rest().empty() && line.size() < fuzzing::kMaximumLength) {
    fuzzing::appendPhrase(input, line);
    if (!input.rest().empty()) line += fuzzing::chosenFrom(fuzzing::kBetween, input.byte());
  }
  fuzzing::checkedAnswer(customization, line);
  return 0;
}
