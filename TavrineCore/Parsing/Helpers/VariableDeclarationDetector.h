#pragma once

#include <string_view>

namespace tavrine {

/// Tells declarations by their text, for those who have no tokens.
class VariableDeclarationDetector {
 public:
  static constexpr std::string_view urlIndicator = "://";

  /// "x = 5" and "x = y://a" are declarations; "= 5" and the "=" in a web address are not.
  static bool isVariableDeclaration(std::string_view text);
};

}  // namespace tavrine
