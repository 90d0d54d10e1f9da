#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tavrine::foundation {

struct JsonParseResult;

/// A JSON value. Numbers keep the text they were written with, so that no digit of a decimal is lost; objects keep the
/// order of their members. A value is a regular type: copies are deep.
class Json {
 public:
  enum class Kind : std::uint8_t { null, boolean, number, string, array, object };
  struct Member;
  using Array = std::vector<Json>;
  using Object = std::vector<Member>;

  /// Values nested deeper than this are refused by `parse`, since such a text is not one of ours.
  static constexpr std::size_t kMaximumDepth = 512;

  /// null
  Json() noexcept;
  ~Json();
  Json(const Json& other);
  Json(Json&& other) noexcept;
  Json& operator=(const Json& other);
  Json& operator=(Json&& other) noexcept;

  [[nodiscard]] static Json boolean(bool value);
  /// `text` must be a number by the grammar of JSON; anything else gives null.
  [[nodiscard]] static Json number(std::string_view text);
  [[nodiscard]] static Json integer(std::int64_t value);
  [[nodiscard]] static Json string(std::string value);
  [[nodiscard]] static Json array();
  [[nodiscard]] static Json array(Array elements);
  [[nodiscard]] static Json object();
  [[nodiscard]] static Json object(Object members);

  /// Reads a whole text. Refused are: anything outside the grammar, invalid UTF-8, text after the value and nesting
  /// beyond `kMaximumDepth`. Of members with the same key the last one counts; it stands where the first one stood.
  [[nodiscard]] static JsonParseResult parse(std::string_view text);

  [[nodiscard]] Kind kind() const noexcept { return static_cast<Kind>(content_.index()); }
  [[nodiscard]] bool isNull() const noexcept { return kind() == Kind::null; }

  /// Each gives nothing when the value is of another kind.
  [[nodiscard]] std::optional<bool> asBoolean() const noexcept;
  [[nodiscard]] const std::string* asNumberText() const noexcept;
  /// Also nothing when the number is no integer ("1.0" is none) or doesn't fit.
  [[nodiscard]] std::optional<std::int64_t> asInteger() const noexcept;
  [[nodiscard]] std::optional<double> asDouble() const noexcept;
  [[nodiscard]] const std::string* asString() const noexcept;
  [[nodiscard]] const Array* asArray() const noexcept;
  [[nodiscard]] const Object* asObject() const noexcept;
  [[nodiscard]] Array* asArray() noexcept;
  [[nodiscard]] Object* asObject() noexcept;

  /// The member of an object; nothing for a missing key or another kind. Walks the members.
  [[nodiscard]] const Json* find(std::string_view key) const noexcept;
  /// Sets a member of an object in its place, or at the end when it is new. A null becomes an object first; on other
  /// kinds nothing happens.
  void set(std::string_view key, Json value);
  /// Appends to an array. A null becomes an array first; on other kinds nothing happens.
  void append(Json value);

  /// One line without spaces. Numbers appear as their text.
  [[nodiscard]] std::string compact() const;
  /// Over several lines, indented by two spaces a level.
  [[nodiscard]] std::string pretty() const;

  /// Numbers are equal when their texts are; objects when their members are, in the same order.
  friend bool operator==(const Json& left, const Json& right) noexcept;

 private:
  struct Number {
    std::string text;
    friend bool operator==(const Number&, const Number&) = default;
  };
  // In the order of Kind.
  std::variant<std::monostate, bool, Number, std::string, Array, Object> content_;
};

struct Json::Member {
  std::string key;
  Json value;

  friend bool operator==(const Member& left, const Member& right) noexcept;
};

/// A value, or what is wrong with the text and at which byte.
struct JsonParseResult {
  std::optional<Json> value;
  std::string error;
  std::size_t errorOffset = 0;

  explicit operator bool() const noexcept { return value.has_value(); }
};

}  // namespace tavrine::foundation
