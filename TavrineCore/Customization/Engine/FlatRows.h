#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// A member of an object in a resource file.
struct FlatMember {
  enum class Kind : std::uint8_t {
    string,
    number,
    null,
    strings,  // an array of nothing but strings
    other,
  };

  std::string key;
  Kind kind = Kind::other;
  /// The string, the digits of the number, or the strings.
  std::vector<std::string> texts;
};

/// An object whose members are plain values.
class FlatRow {
 public:
  std::vector<FlatMember> members;

  /// Null where there is no such member, or one of another kind.
  [[nodiscard]] FlatMember* find(std::string_view key, FlatMember::Kind kind);
  [[nodiscard]] const FlatMember* find(std::string_view key) const;
  [[nodiscard]] std::string* stringOf(std::string_view key);
  [[nodiscard]] std::vector<std::string>* stringsOf(std::string_view key);
};

/// Hands out the objects of a file that is an array of them, each of which `take` may empty. Ends with the error where
/// the file is not in order, an element is no object, or `take` refuses one; an empty text for a good file. The file is
/// never in memory as a tree: the large ones are read at the start of the program.
[[nodiscard]] std::string readFlatRows(std::string_view bytes, FunctionRef<bool(FlatRow&)> take);

}  // namespace tavrine
