#pragma once

#include <cstddef>
#include <cstdint>

#include "Foundation/Decimal.h"
#include "TavrineCore/Imports.h"
#include "TavrineCore/Utility/Hashable.h"

namespace tavrine {

/// A time code of a film: hours, minutes, seconds, and the frame within the second.
struct Frametime {
  static constexpr int defaultFps = 24;

  /// Frames per second.
  Decimal fps{defaultFps};
  std::int64_t hour = 0;
  std::int64_t minute = 0;
  std::int64_t second = 0;
  std::int64_t frame = 0;

  [[nodiscard]] std::size_t hash() const { return hashOf(fps, hour, minute, second, frame); }
  friend bool operator==(const Frametime&, const Frametime&) = default;
};

}  // namespace tavrine
