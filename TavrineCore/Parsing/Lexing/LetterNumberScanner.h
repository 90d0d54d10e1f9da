#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Range.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// Cuts a cluster such as "5ft3in" into its runs of letters and of digits.
class LetterNumberScanner {
 public:
  enum class LetterNumberTokenType : std::uint8_t { letter, number };

  struct LetterNumberToken {
    LetterNumberTokenType type = LetterNumberTokenType::letter;
    std::string value;
    /// In UTF-16 units from the start of the scanned text.
    NSRange range;

    friend bool operator==(const LetterNumberToken&, const LetterNumberToken&) = default;
  };

  /// The runs in order; none at all where the text holds anything but letters and digits.
  [[nodiscard]] static std::vector<LetterNumberToken> scanString(std::string_view text);
};

}  // namespace tavrine
