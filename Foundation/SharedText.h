#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace tavrine::foundation {

/// An immutable text that copies share; it may be a part of a longer one. Thousands of phrases in a file of resources
/// are kept as the file, once.
class SharedText {
 public:
  SharedText() = default;
  // From what a string is made of, so that it can stand for a string where values are listed.
  SharedText(std::string text) : SharedText(std::make_shared<const std::string>(std::move(text))) {}
  SharedText(std::string_view text) : SharedText(std::string(text)) {}
  SharedText(const char* text) : SharedText(std::string(text)) {}
  /// The whole of a text.
  explicit SharedText(std::shared_ptr<const std::string> whole) : text_(*whole), whole_(std::move(whole)) {}
  /// A part of `whole`, which the part keeps alive.
  SharedText(std::shared_ptr<const std::string> whole, std::string_view part) : text_(part), whole_(std::move(whole)) {}

  [[nodiscard]] std::string_view view() const noexcept { return text_; }
  operator std::string_view() const noexcept { return text_; }
  [[nodiscard]] std::string string() const { return std::string(text_); }

  friend bool operator==(const SharedText& left, const SharedText& right) noexcept {
    const bool isSame = left.text_.data() == right.text_.data() && left.text_.size() == right.text_.size();
    return isSame || left.text_ == right.text_;
  }
  template <std::convertible_to<std::string_view> Text>
  friend bool operator==(const SharedText& left, const Text& right) noexcept {
    return left.text_ == std::string_view(right);
  }

 private:
  std::string_view text_;
  std::shared_ptr<const std::string> whole_;
};

}  // namespace tavrine::foundation

template <>
struct std::hash<tavrine::foundation::SharedText> {
  std::size_t operator()(const tavrine::foundation::SharedText& text) const noexcept {
    return std::hash<std::string_view>{}(text.view());
  }
};
