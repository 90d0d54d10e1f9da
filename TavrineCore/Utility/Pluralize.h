#pragma once

#include <string>
#include <string_view>

namespace tavrine {

/// English plurals by rule. For the few words that no vocabulary lists in both forms: custom units, implied rates.
class Pluralize {
 public:
  /// Whether the word has no plural of its own ("money"), in whatever letter case.
  [[nodiscard]] static bool isUncountable(std::string_view word);
  /// "cat" → "cats", "person" → "people". Uncountable and empty words stay as they are.
  [[nodiscard]] static std::string pluralized(std::string_view word);
};

/// The word without its last "s" if its plural is the word again: "cats" → "cat"; "glass" stays. Knows no other ending:
/// "buses" gives "buse".
[[nodiscard]] std::string singularized(std::string_view word);

}  // namespace tavrine
