#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "Foundation/Bundle.h"
#include "Foundation/Diagnostics.h"
#include "Foundation/Environment.h"

namespace tavrine::foundation {
namespace {

namespace fs = std::filesystem;

/// A resource directory of its own for each test, gone afterwards.
class BundleTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::remove_all(root_);
    for (const char* localization : {"en", "de", "zh-Hans", "pt-BR", "es"}) {
      write(std::string(localization) + ".lproj/Words.json", localization);
    }
    write("en.lproj/OnlyEnglish.json", "en");
    write("Shared.json", "shared");
  }
  void TearDown() override { fs::remove_all(root_); }

  void write(const std::string& name, std::string_view content) const {
    fs::create_directories((directory() / name).parent_path());
    std::ofstream(directory() / name) << content;
  }
  [[nodiscard]] fs::path directory() const { return root_ / Bundle::resourceDirectoryName; }

  const fs::path root_ = fs::temp_directory_path() / ("bundle-test-" + std::to_string(getpid()));
};

TEST_F(BundleTest, TheBestLocalizationForALocale) {
  const auto bundle = Bundle::open(directory());
  ASSERT_TRUE(bundle);
  EXPECT_EQ(bundle->localizations(), (std::vector<std::string>{"de", "en", "es", "pt-BR", "zh-Hans"}));
  struct Case {
    std::string_view locale, want;
  };
  const Case cases[] = {
      {"en_GB", "en"}, {"de_CH", "de"},    {"zh_Hans_SG", "zh-Hans"}, {"zh_CN", "zh-Hans"}, {"zh_Hant_TW", "en"},
      {"zh_TW", "en"}, {"pt_BR", "pt-BR"}, {"pt_PT", "en"},           {"es_419", "es"},     {"fr_FR", "en"},
      {"e", "en"},     {"../de", "en"},
  };
  for (const Case& c : cases) EXPECT_EQ(bundle->localizationFor(Locale(c.locale)), c.want) << c.locale;
}

TEST_F(BundleTest, FindsFilesByLocalization) {
  const auto bundle = Bundle::open(directory());
  ASSERT_TRUE(bundle);
  Environment::Parts parts;
  parts.locale = Locale("de_AT");
  const ScopedEnvironment german{Environment(parts)};
  EXPECT_EQ(bundle->url("Words", "json"), directory() / "de.lproj/Words.json");
  EXPECT_EQ(bundle->url("Words", "json", "en"), directory() / "en.lproj/Words.json");
  EXPECT_EQ(bundle->url("OnlyEnglish", "json"), std::nullopt);
  EXPECT_EQ(bundle->url("Shared", "json"), directory() / "Shared.json");
  EXPECT_EQ(bundle->url("Nowhere", "json", "en"), std::nullopt);
  EXPECT_EQ(bundle->url("", "", "en"), std::nullopt);
  EXPECT_EQ(readFile(*bundle->url("Words", "json")), "de");
  EXPECT_EQ(readFile(directory() / "none.json"), std::nullopt);
  EXPECT_EQ(readFile(directory()), std::nullopt);
  EXPECT_FALSE(Bundle::open(directory() / "Shared.json"));
}

using BundleDeathTest = BundleTest;

TEST_F(BundleDeathTest, TheModuleIsInTheDirectoryOfTheHost) {
  // In a process of its own: what has been opened stays open.
  EXPECT_EXIT(
      {
        Bundle::setHostDirectory(root_);
        const bool isOurs = Bundle::module().path() == directory() && &Bundle::foundationBundle() == &Bundle::module();
        std::exit(isOurs ? 7 : 8);
      },
      testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace tavrine::foundation
