#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/FunctionRef.h"

namespace tavrine {

/// A member of an object in a resource file. The views hold while the row is looked at; those into the bytes of the
/// file, as nearly all are, for as long as these.
struct FlatMember {
  enum class Kind : std::uint8_t {
    string,
    number,
    null,
    strings,  // an array of nothing but strings
    other,
  };

  std::string_view key;
  Kind kind = Kind::other;
  /// The string, the digits of the number, or the strings.
  std::vector<std::string_view> texts;
};

/// An object whose members are plain values.
class FlatRow {
 public:
  /// Null where there is no such member, or one of another kind.
  [[nodiscard]] const FlatMember* find(std::string_view key, FlatMember::Kind kind) const;
  [[nodiscard]] const FlatMember* find(std::string_view key) const;
  [[nodiscard]] const std::string_view* stringOf(std::string_view key) const;
  [[nodiscard]] const std::vector<std::string_view>* stringsOf(std::string_view key) const;

 private:
  friend class FlatRowReader;

  // The first `count_` belong to this row; the others keep their memory for rows to come.
  std::vector<FlatMember> members_;
  std::size_t count_ = 0;
};

/// Whether the view is into that text, so that it lives as long.
[[nodiscard]] bool isPartOf(std::string_view view, std::string_view text);

/// Hands out the objects of a file that is an array of them. Ends with the error where the file is not in order, an
/// element is no object, or `take` refuses one; an empty text for a good file. The file is never in memory as a tree:
/// the large ones are read at the start of the program.
[[nodiscard]] std::string readFlatRows(std::string_view bytes, FunctionRef<bool(const FlatRow&)> take);
/// Likewise for a file that is one object.
[[nodiscard]] std::string readFlatRow(std::string_view bytes, FunctionRef<bool(const FlatRow&)> take);

}  // namespace tavrine
