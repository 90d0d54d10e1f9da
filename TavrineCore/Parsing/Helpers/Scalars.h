#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tavrine {

/// The letters that scale a number: "5k", "3M". Both cases of "k" count; a small "m" is the metre.
struct Scalars {
  static constexpr std::array<std::string_view, 5> validScalars = {"k", "K", "M", "G", "T"};

  static constexpr bool isValid(std::string_view text) {
    return std::find(validScalars.begin(), validScalars.end(), text) != validScalars.end();
  }
};

}  // namespace tavrine
