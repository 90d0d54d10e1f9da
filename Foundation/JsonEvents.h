#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tavrine::foundation {

/// Gets the parts of a JSON text one after the other: for big texts of which little is kept. Views hold during the
/// call. The places are those in the text, in bytes.
class JsonEventHandler {
 public:
  virtual ~JsonEventHandler() = default;

  /// Where the bracket stands.
  virtual void objectBegins(std::size_t at) = 0;
  /// Behind the bracket.
  virtual void objectEnds(std::size_t at) = 0;
  virtual void key(std::string_view name) = 0;
  /// `end`: behind the closing quotation mark.
  virtual void string(std::string_view value, std::size_t end) = 0;
  virtual void arrayBegins() {}
  virtual void arrayEnds() {}
  /// As it is written.
  virtual void number(std::string_view /*digits*/) {}
  /// null, true or false.
  virtual void literal(bool /*isNull*/) {}
};

/// Walks the whole text. Gives what is wrong with it; empty for a text in order. Refused is what `Json::parse` refuses,
/// apart from deep nesting, which costs nothing here; strings are handed on unchecked.
[[nodiscard]] std::string readJsonEvents(std::string_view text, JsonEventHandler& handler);

}  // namespace tavrine::foundation
