#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "Foundation/Locale.h"

namespace tavrine::foundation {

/// Writes numbers in words: 21 is "twenty-one" in en_US, "vingt-et-un" in fr_FR. German words keep their soft hyphens
/// (U+00AD). Costly to make, so one object serves a whole vocabulary; it is for one thread at a time.
class SpellOut {
 public:
  explicit SpellOut(const Locale& locale);
  ~SpellOut();
  SpellOut(SpellOut&&) noexcept;
  SpellOut& operator=(SpellOut&&) noexcept;

  /// Absent when there are no words for the locale.
  [[nodiscard]] std::optional<std::string> words(std::int64_t number) const;

 private:
  struct Impl;
  static std::optional<std::string> wordsBy(const Impl& impl, std::int64_t number);

  Locale locale_;
  std::unique_ptr<Impl> impl_;  // null where the words are composed here
};

}  // namespace tavrine::foundation
