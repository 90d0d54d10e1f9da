#include "Foundation/Clock.h"

#include <chrono>

namespace tavrine::foundation {

Date SystemClock::now() const {
  const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return Date(std::chrono::duration<double>(sinceEpoch).count());
}

}  // namespace tavrine::foundation
