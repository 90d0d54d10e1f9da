#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tavrine {

/// Makes the one-character names by which lines, subsheets and the parameters of functions stand in expressions.
class SingleCharacterUIDGenerator {
 public:
  /// The private-use characters that stand for lines and subsheets, both ends included.
  static constexpr char32_t firstPrivateSymbol = 0xE000;
  static constexpr char32_t lastPrivateSymbol = 0xF800;
  /// How many parameters a function can have.
  static constexpr std::size_t maximumParameterIndex = 50;

  /// A random private-use character, from the current environment's source. Whether it is free is for the caller to
  /// see.
  [[nodiscard]] static std::string newUID();

  /// Whether the text is one character that is such a name or a parameter's.
  [[nodiscard]] static bool isUID(std::string_view symbol);
  [[nodiscard]] static bool isUID(char32_t scalar) noexcept;

  /// The symbol of the parameter, counted from 1: the circled number "①" for 1. Empty outside 1 to 50.
  [[nodiscard]] static std::string parameterSymbol(std::size_t index);

  /// Which parameter the symbol names, counted from 1; absent if it names none.
  [[nodiscard]] static std::optional<std::size_t> parameterIndexFor(std::string_view UID);
};

}  // namespace tavrine
