#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <thread>
#include <vector>

#include "Foundation/Diagnostics.h"
#include "Foundation/Environment.h"
#include "Foundation/OperationQueue.h"

namespace tavrine::foundation {
namespace {

Environment environmentOf(std::string_view locale, double now) {
  Environment::Parts parts;
  parts.locale = Locale(locale);
  parts.clock = std::make_shared<FixedClock>(Date(now));
  parts.timeZoneIdentifier = "Europe/Berlin";
  return Environment(parts);
}

TEST(Environment, OverridesNestAndEnd) {
  const Locale outside = Locale::current();
  {
    const ScopedEnvironment german(environmentOf("de_DE", 1000));
    EXPECT_EQ(Locale::current().identifier(), "de_DE");
    EXPECT_EQ(Date::now(), Date(1000));
    EXPECT_EQ(TimeZone::current().identifier(), "Europe/Berlin");
    {
      const ScopedEnvironment french(environmentOf("fr_FR", 2000));
      EXPECT_EQ(Calendar::current().locale().identifier(), "fr_FR");
    }
    EXPECT_EQ(Date::now(), Date(1000));
  }
  EXPECT_EQ(Locale::current(), outside);
}

TEST(Environment, TheDefaultHoldsOnEveryThreadAndAnOverrideOnItsOwn) {
  const Environment before = Environment::current();
  std::thread([] { EXPECT_EQ(Environment::current(), Environment::current()); }).join();
  Environment::setProcessDefault(environmentOf("es_ES", 5));
  EXPECT_EQ(Locale::current().identifier(), "es_ES");
  const ScopedEnvironment german(environmentOf("de_DE", 1000));
  std::thread([] { EXPECT_EQ(Locale::current().identifier(), "es_ES"); }).join();
  EXPECT_EQ(Locale::current().identifier(), "de_DE");
  Environment::setProcessDefault(before);
}

TEST(Environment, TheDefaultMayChangeWhileOthersRead) {
  const Environment before = Environment::current();
  std::vector<std::thread> readers;
  for (int i = 0; i < 3; ++i) {
    readers.emplace_back([] {
      for (int round = 0; round < 2000; ++round) EXPECT_FALSE(Environment::current().locale().identifier().empty());
    });
  }
  for (int i = 0; i < 200; ++i) Environment::setProcessDefault(environmentOf(i % 2 == 0 ? "de_DE" : "fr_FR", i));
  for (std::thread& reader : readers) reader.join();
  EXPECT_EQ(Date::now(), Date(199));
  Environment::setProcessDefault(before);
}

TEST(Environment, QueuesCarryTheOverrideAlong) {
  OperationQueue queue("Carrier", 1);
  std::vector<std::string> seen;
  const auto look = [&seen](const Operation&) { seen.push_back(Locale::current().identifier()); };
  {
    const ScopedEnvironment german(environmentOf("de_DE", 1000));
    queue.add(look);
  }
  queue.add(look);
  queue.waitUntilAllFinished();
  EXPECT_EQ(seen, (std::vector<std::string>{"de_DE", Locale::current().identifier()}));
}

TEST(RandomSource, SeededSequencesRepeatAndStayInBounds) {
  const auto one = seededRandomSource(42);
  const auto same = seededRandomSource(42);
  const auto other = seededRandomSource(43);
  EXPECT_EQ(one->next(), same->next());
  EXPECT_NE(one->next(), other->next());
  std::array<int, 6> counts{};
  for (int i = 0; i < 6000; ++i) {
    const std::int64_t roll = one->integerIn(6, 1);
    ASSERT_TRUE(roll >= 1 && roll <= 6);
    ++counts[static_cast<std::size_t>(roll - 1)];
    const double part = one->unitInterval();
    ASSERT_TRUE(part >= 0 && part < 1);
  }
  EXPECT_GT(*std::ranges::min_element(counts), 850);
  EXPECT_EQ(one->integerIn(7, 7), 7);
  EXPECT_EQ(one->integerIn(INT64_MIN, INT64_MIN), INT64_MIN);
  const std::int64_t any = one->integerIn(INT64_MIN, INT64_MAX);
  EXPECT_NE(any, one->integerIn(INT64_MIN, INT64_MAX));
}

TEST(Calendar, IdentifiersHaveTheirNames) {
  for (int i = 0; i <= static_cast<int>(Calendar::Identifier::islamicUmmAlQura); ++i) {
    const auto identifier = static_cast<Calendar::Identifier>(i);
    EXPECT_EQ(calendarIdentifierFrom(toString(identifier)), identifier);
  }
  EXPECT_EQ(toString(Calendar::Identifier::islamicUmmAlQura), "islamicUmmAlQura");
  EXPECT_EQ(calendarIdentifierFrom("julian"), std::nullopt);
}

TEST(Diagnostics, AHostMayRedirectThem) {
  std::vector<std::string> lines;
  auto before = setDiagnosticSink([&lines](std::string_view line) { lines.emplace_back(line); });
  diagnose("one");
  setDiagnosticSink([](std::string_view) { throw 1; });
  diagnose("lost");
  setDiagnosticSink(std::move(before));
  EXPECT_EQ(lines, (std::vector<std::string>{"one"}));
}

TEST(DiagnosticsDeathTest, AFatalErrorPrintsAndEndsTheProcessInOrder) {
  EXPECT_EXIT(
      {
        setDiagnosticSink([](std::string_view line) { std::fprintf(stderr, "%s\n", std::string(line).c_str()); });
        fatalError("nothing to be done");
      },
      testing::ExitedWithCode(1), "nothing to be done");
}

}  // namespace
}  // namespace tavrine::foundation
