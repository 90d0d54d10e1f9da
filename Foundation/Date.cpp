#include "Foundation/Date.h"

#include "Foundation/Environment.h"
#include "Foundation/StillMoment.h"

namespace tavrine::foundation {

namespace {

struct Stillness {
  int depth = 0;
  const Clock* clock = nullptr;  // the one that told the moment; null before the first question
  Date moment;
};

thread_local Stillness stillness;

}  // namespace

StillMoment::StillMoment() {
  if (stillness.depth++ == 0) stillness.clock = nullptr;
}

StillMoment::~StillMoment() { --stillness.depth; }

Date Date::now() {
  const Environment environment = Environment::current();
  const Clock& clock = environment.clock();
  if (stillness.depth == 0) return clock.now();
  if (stillness.clock == nullptr) {
    stillness.moment = clock.now();
    stillness.clock = &clock;
  }
  return stillness.clock == &clock ? stillness.moment : clock.now();
}

}  // namespace tavrine::foundation
