#pragma once

namespace tavrine::foundation {

/// While one is there, the clock stands still for its thread: `Date::now` tells the moment of the first question, so
/// that whatever a line says of now is said of one moment. Of nested ones the outermost counts. Where another clock
/// comes into force meanwhile, that one is asked.
class StillMoment {
 public:
  StillMoment();
  ~StillMoment();
  StillMoment(const StillMoment&) = delete;
  StillMoment& operator=(const StillMoment&) = delete;
};

}  // namespace tavrine::foundation
