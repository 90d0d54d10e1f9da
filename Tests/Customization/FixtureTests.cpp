#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Bundle.h"
#include "Foundation/Diagnostics.h"
#include "Foundation/Json.h"
#include "Foundation/Text.h"
#include "TavrineCore/Customization/Engine/EngineContent.h"
#include "TavrineCore/Customization/Engine/ResourceReader.h"
#include "TavrineCore/Customization/Engine/StaticResouces.h"
#include "TavrineCore/Customization/Fixtures/Fixture.h"
#include "TavrineCore/Customization/Fixtures/FixturesList.h"
#include "TavrineCore/Customization/Fixtures/LocalizableFixture.h"
#include "TavrineCore/Parsing/Helpers/DateWordsList.h"
#include "TavrineCore/Parsing/Helpers/NumberWordsList.h"
#include "TavrineCore/Parsing/Lexing/Lexer.h"
#include "TavrineCore/Parsing/Tokens/TokenTypeSet.h"
#include "Tests/Customization/CustomizationTestSupport.h"
#include "Tests/Support/Table.h"

namespace tavrine {
namespace {

using testing::rowsOf;
using testing::wordsOf;

using testing::environmentIn;

const FixturesList& english() {
  static const std::shared_ptr<const EngineContent> content = [] {
    const ScopedEnvironment scope(environmentIn("en_US"));
    return std::make_shared<const EngineContent>(EngineCustomization(Locale("en_US")));
  }();
  return *content->fixturesList;
}

std::string nameOf(std::optional<Fixture> fixture) { return fixture ? std::string(rawValue(*fixture)) : "none"; }

// --- The list ----------------------------------------------------------------------------------------------------

TEST(FixturesList, LanguagesAddToTheUniversalWords) {
  const DateWordsList dateWords(Calendar(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone::current()));
  const NumberWordsList numberWords(Locale("en_US"));
  const FixturesList list({{"fois", Fixture::multiplicationOperator},
                           // A universal word may change its meaning, a sign may not.
                           {"mod", Fixture::statisticWordMedian},
                           {"+", Fixture::subtractionOperator},
                           // The one converter word of a language leaves the three of ours alone.
                           {"in", Fixture::converterSymbol},
                           {"vers", Fixture::converterSymbol},
                           {"to", Fixture::numberType},
                           // Number and calendar words come last; scalars only fill gaps.
                           {"twelve", Fixture::dateWordNow},
                           {"march", Fixture::dateWordNow},
                           {"k", Fixture::prepositionWordAt}},
                          dateWords, numberWords);
  struct Case {
    std::string_view text;
    std::optional<Fixture> want;
  };
  for (const Case& c : rowsOf<Case>("Customization/FixtureTests", "LanguagesAddToTheUniversalWords")) {
    EXPECT_EQ(nameOf(list.find(c.text)), nameOf(c.want)) << c.text;
    const auto inMap = list.fixtureMap().find(c.text);
    EXPECT_EQ(nameOf(inMap == list.fixtureMap().end() ? std::nullopt : std::optional(inMap->second)), nameOf(c.want))
        << c.text;
  }
  EXPECT_EQ(nameOf(list.findAdditional("march")), nameOf(Fixture::dateWordNow));
  EXPECT_EQ(list.findAdditional("as"), std::nullopt);
}

TEST(FixturesList, ALineWithoutLettersBuildsNoWords) {
  int fixturesMade = 0, wordsMade = 0;
  const FixturesList list(
      Lazy<StringMap<Fixture>>([&] {
        ++fixturesMade;
        return StringMap<Fixture>{{"÷", Fixture::divisionOperator}, {"times", Fixture::modOperator}};
      }),
      Lazy<DateWordsList>([&] {
        ++wordsMade;
        return DateWordsList(Calendar(Calendar::Identifier::gregorian, Locale("en_US"), TimeZone::current()));
      }),
      Lazy<NumberWordsList>([&] {
        ++wordsMade;
        return NumberWordsList(Locale("en_US"));
      }));
  EXPECT_EQ(list.find("+"), Fixture::additionOperator);
  EXPECT_EQ(list.find(">="), Fixture::greaterThanOrEqualOperator);
  EXPECT_EQ(list.find("√"), Fixture::squareRootSymbol);
  EXPECT_TRUE(list.beginsMultiWordFixture("<"));
  EXPECT_FALSE(list.beginsMultiWordFixture("1"));
  EXPECT_EQ(fixturesMade, 0);

  EXPECT_EQ(list.find("÷"), Fixture::divisionOperator);
  EXPECT_EQ(list.find("1,000"), std::nullopt);
  EXPECT_EQ(list.find(""), std::nullopt);
  EXPECT_EQ(wordsMade, 0);

  EXPECT_EQ(list.find("times"), Fixture::modOperator);
  EXPECT_EQ(list.find("twelve"), Fixture::numberWord);
  EXPECT_TRUE(list.beginsMultiWordFixture("<"));
  EXPECT_EQ(fixturesMade, 1);
  EXPECT_EQ(wordsMade, 2);
}

TEST(FixturesList, FindsWhatATextContains) {
  const DateWordsList dateWords(Calendar(Calendar::Identifier::gregorian, Locale("zh_CN"), TimeZone::current()));
  const FixturesList list({{"百分比", Fixture::percentType}, {"乘以", Fixture::multiplicationOperator}}, dateWords,
                          NumberWordsList(Locale("zh_CN")));
  EXPECT_TRUE(list.fixturesIn("的百分比") == FixtureSet({Fixture::percentType}));
  EXPECT_TRUE(list.fixturesIn("乘以百分比") == FixtureSet({Fixture::multiplicationOperator, Fixture::percentType}));
  EXPECT_TRUE(list.fixturesIn("百").empty());
  EXPECT_TRUE(list.fixturesIn("").empty());
}

TEST(FixturesList, UnderstandsEnglish) {
  struct Case {
    std::string_view text;
    Fixture want;
  };
  for (const Case& c : rowsOf<Case>("Customization/FixtureTests", "UnderstandsEnglish"))
    EXPECT_EQ(nameOf(english().find(c.text)), nameOf(c.want)) << c.text;
  EXPECT_EQ(english().findAdditional("Oct"), Fixture::octalType);
  EXPECT_TRUE(english().beginsMultiWordFixture("divided"));
  EXPECT_TRUE(english().beginsMultiWordFixture("Divided"));
  EXPECT_TRUE(english().beginsMultiWordFixture("twenty"));
  EXPECT_FALSE(english().beginsMultiWordFixture("by"));
}

// --- The words of the resources --------------------------------------------------------------------------------------

std::map<std::string, std::vector<std::string>> wordsInFile(const std::filesystem::path& path) {
  std::map<std::string, std::vector<std::string>> result;
  const auto bytes = readFile(path);
  if (!bytes) return result;
  const JsonParseResult parsed = Json::parse(*bytes);
  if (!parsed) return result;
  for (const Json::Member& member : *parsed.value->find("fixtures")->asObject()) {
    for (const Json& word : *member.value.asArray()) result[member.key].push_back(*word.asString());
    result.try_emplace(member.key);
  }
  return result;
}

std::map<std::string, std::vector<std::string>> englishFile(std::string_view name) {
  const auto url = Bundle::module().url(name, "json", "en");
  return url ? wordsInFile(*url) : std::map<std::string, std::vector<std::string>>{};
}

// Keys that English needs no words for beyond those that are there anyway.
const std::map<std::string_view, std::string_view> kEmptyInEnglish = {
    {"dayOfWeekDateAliases", "the calendar names the days"},
    {"monthOfYearDateAliases", "the calendar names the months"},
    {"conjunctionWordsAnd", "\"and\" is universal"},
    {"conjunctionWordsOr", "\"or\" is universal"},
    {"prepositionWordsOf", "\"of\" is universal"},
    {"prepositionWordsWith", "\"with\" is universal"},
    {"prepositionWordsBetween", "\"between\" is universal"},
};

TEST(EnglishFixtures, EachKeyIsKnownAndHasWords) {
  const auto words = englishFile("LocalizedFixtures");
  EXPECT_EQ(words.size(), kLocalizableFixtureCount);
  for (const auto& [key, strings] : words) {
    EXPECT_TRUE(localizableFixtureNamed(key).has_value()) << key;
    EXPECT_EQ(strings.empty(), kEmptyInEnglish.contains(key)) << key;
  }
  for (const auto& [key, strings] : englishFile("LocalizedFixtureShorthands")) {
    EXPECT_TRUE(localizableFixtureNamed(key).has_value()) << key;
    EXPECT_FALSE(strings.empty()) << key;
  }
}

TEST(EnglishFixtures, NoWordStandsTwice) {
  std::set<std::string> seen;
  for (const std::string_view file : {"LocalizedFixtures", "LocalizedFixtureShorthands"}) {
    for (const auto& [key, strings] : englishFile(file)) {
      for (const std::string& word : strings) EXPECT_TRUE(seen.insert(word).second) << word << " again under " << key;
    }
  }
  for (const std::string& word : seen) {
    EXPECT_EQ(word, lowercased(word)) << "typed text is looked up in lower case";
    EXPECT_FALSE(FixturesList::universalFixtures().contains(word)) << word << " is universal";
  }
}

// A phrase is only found when each of its words, seen alone, is of a type that the search for phrases walks over.
TEST(EnglishFixtures, PhrasesCanBeReached) {
  constexpr std::size_t kMaximumSteps = 7;
  for (const auto& [phrase, fixture] : english().additionalFixtures()) {
    const std::vector<Lexeme> lexemes = Lexer::lexemesFor(phrase, Locale("en_US"));
    const bool isJoinedSign = phrase == "**" || phrase == "=>" || phrase == "=<";  // by the rules for doubled signs
    if (lexemes.size() < 2 || isJoinedSign) continue;
    EXPECT_TRUE(english().beginsMultiWordFixture(lexemes.front().string)) << phrase;
    std::size_t words = 0;
    for (const Lexeme& lexeme : lexemes) {
      if (lexeme.type == LexemeType::whitespace) continue;
      ++words;
      if (lexeme.type == LexemeType::number) continue;
      const auto single = english().find(lexeme.string);
      const TokenType type =
          single ? relatedTokenType(*single).value_or(TokenType::unidentified) : TokenType::unidentified;
      EXPECT_TRUE(TokenTypeSet::typesInMultiWordFixtures.contains(type)) << phrase << ": " << lexeme.string;
    }
    EXPECT_LE(words, kMaximumSteps + 1) << phrase;
  }
}

// What people write around their sums stays theirs.
TEST(EnglishFixtures, PlainWordsAreLeftAlone) {
  std::size_t count = 0;
  for (const std::string_view word : wordsOf("Customization/FixtureTests", "PlainWordsAreLeftAlone")) {
    ++count;
    EXPECT_EQ(nameOf(english().find(word)), "none") << word;
  }
  EXPECT_GE(count, 300u);
}

// --- Reading resources
// -------------------------------------------------------------------------------------------------

class TemporaryBundle {
 public:
  TemporaryBundle() : path_(std::filesystem::temp_directory_path() / ("tavrine-fixtures-" + std::to_string(getpid()))) {
    std::filesystem::create_directories(path_);
  }
  ~TemporaryBundle() { std::filesystem::remove_all(path_); }
  TemporaryBundle(const TemporaryBundle&) = delete;
  TemporaryBundle& operator=(const TemporaryBundle&) = delete;

  void write(const std::string& localization, std::string_view file, std::string_view text) const {
    const auto directory = path_ / (localization + ".lproj");
    std::filesystem::create_directories(directory);
    std::ofstream(directory / file) << text;
  }
  Bundle open() const { return *Bundle::open(path_); }

 private:
  std::filesystem::path path_;
};

class CollectedDiagnostics {
 public:
  CollectedDiagnostics() : previous_(setDiagnosticSink([this](std::string_view line) { lines.emplace_back(line); })) {}
  ~CollectedDiagnostics() { setDiagnosticSink(previous_); }
  CollectedDiagnostics(const CollectedDiagnostics&) = delete;
  CollectedDiagnostics& operator=(const CollectedDiagnostics&) = delete;

  std::vector<std::string> lines;

 private:
  DiagnosticSink previous_;
};

ResourceReader<LocalizableFixtureSet> fixtureReader() {
  return {"Failed: ", &StaticResouces::localizedFixtureSetFrom,
          [](LocalizableFixtureSet& base, const LocalizableFixtureSet& localized) { base.layOver(localized); }};
}

TEST(ResourceReader, LaysTheLocalizedFileOverTheEnglishOne) {
  const TemporaryBundle files;
  files.write("en", "Words.json", R"({"fixtures": {"commas": ["a", "b"], "colons": ["c", "e"]}})");
  files.write("de", "Words.json", R"({"fixtures": {"commas": ["e"], "colons": ["b", "d"]}})");
  const Bundle bundle = files.open();
  auto reader = fixtureReader();
  {
    const ScopedEnvironment german(environmentIn("de_DE"));
    const auto fixtures = reader.localized(bundle, "Words")->fixtures();
    EXPECT_EQ(fixtures.at("a"), Fixture::comma);
    EXPECT_EQ(fixtures.at("b"), Fixture::colon);
    EXPECT_EQ(fixtures.at("d"), Fixture::colon);
    EXPECT_EQ(fixtures.at("e"), Fixture::comma);
  }
  const ScopedEnvironment american(environmentIn("en_US"));
  const auto once = reader.localized(bundle, "Words");
  EXPECT_EQ(once->stringsFor(LocalizableFixture::colons), (std::vector<std::string>{"c", "e"}));
  EXPECT_EQ(reader.localized(bundle, "Words"), once) << "read twice";
}

TEST(ResourceReader, TellsOfBadFilesAndGoesOn) {
  const TemporaryBundle files;
  files.write("en", "Words.json", R"({"fixtures": {"commas": ["a"]}})");
  files.write("de", "Words.json", R"({"fixtures": {"commas": ["b"})");
  const Bundle bundle = files.open();
  CollectedDiagnostics diagnostics;
  auto reader = fixtureReader();
  const ScopedEnvironment german(environmentIn("de_DE"));
  EXPECT_EQ(reader.localized(bundle, "Words")->stringsFor(LocalizableFixture::commas), std::vector<std::string>{"a"});
  EXPECT_EQ(reader.localized(bundle, "Missing"), nullptr);
  ASSERT_EQ(diagnostics.lines.size(), 2u);
  EXPECT_TRUE(diagnostics.lines[0].starts_with("Failed: ")) << diagnostics.lines[0];
  EXPECT_NE(diagnostics.lines[1].find("Missing.json"), std::string::npos) << diagnostics.lines[1];
}

TEST(ResourceReader, DecodesFixtures) {
  struct Case {
    std::string_view text;
    bool isGood;
    std::size_t colons;
  };
  for (const Case& c : rowsOf<Case>("Customization/FixtureTests", "DecodesFixtures")) {
    const auto decoded = StaticResouces::localizedFixtureSetFrom(c.text);
    ASSERT_EQ(decoded.content.has_value(), c.isGood) << c.text;
    EXPECT_EQ(decoded.error.empty(), c.isGood) << c.text;
    if (c.isGood) {
      EXPECT_EQ(decoded.content->stringsFor(LocalizableFixture::colons).size(), c.colons) << c.text;
    }
  }
}

}  // namespace
}  // namespace tavrine
