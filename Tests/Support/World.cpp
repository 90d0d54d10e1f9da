#include "Tests/Support/World.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>

namespace tavrine::testing {

using namespace foundation;

Environment worldAt(std::string_view moment, std::string_view zone, std::string_view locale) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  const int fields =
      std::sscanf(std::string(moment).c_str(), "%d-%d-%dT%d:%d:%dZ", &year, &month, &day, &hour, &minute, &second);
  EXPECT_EQ(fields, 6) << "no moment: " << moment;
  const std::chrono::sys_days date{std::chrono::year(year) / month / day};
  const double days = static_cast<double>(date.time_since_epoch().count());
  const Date now(days * 86400 + hour * 3600 + minute * 60 + second);
  return Environment({.clock = std::make_shared<FixedClock>(now),
                      .timeZoneIdentifier = std::string(zone),
                      .locale = Locale(locale),
                      .random = seededRandomSource(1)});
}

}  // namespace tavrine::testing
