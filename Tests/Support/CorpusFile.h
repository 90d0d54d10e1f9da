#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "TavrineCore/Customization/Engine/EngineCustomization.h"
#include "TavrineCore/ResultFormatting/FormattingPreferences.h"

namespace tavrine::testing {

/// How the lines below a setting are calculated. See Tests/Corpus/README.md for the settings that a file can hold.
struct CorpusSettings {
  std::string locale = "en_US";
  std::string zone = "UTC";
  std::string now = "2026-06-10T09:30:00Z";
  /// One calculator for the lines, so that a line sees what an earlier one declared.
  bool remembers = false;
  FormattingPreferences preferences;
  std::vector<std::string> flagsOn, flagsOff;
  /// The host of CorpusHost.h; its lines are answered in the background.
  bool hasHost = false;

  /// The customization of `EngineCustomization::standardWith(locale)` with the flags applied.
  EngineCustomization customization() const;
};

/// A line and its answer.
struct CorpusCase {
  std::size_t lineNumber = 0;  // in the file, from 1
  std::string line;            // unescaped
  std::string want;            // unescaped
  CorpusSettings settings;
  bool startsSession = false;  // a new calculator begins here
};

/// A file of cases that can be written back with other answers, everything else as it was.
class CorpusFile {
 public:
  /// Fails the running test when a row can't be read.
  static CorpusFile read(const std::filesystem::path& path);

  const std::filesystem::path& path() const { return path_; }
  const std::vector<CorpusCase>& cases() const { return cases_; }

  /// The file's text with these answers in the place of the cases' own.
  std::string withAnswers(const std::vector<std::string>& answers) const;

 private:
  std::filesystem::path path_;
  std::vector<std::string> rows_;
  std::vector<CorpusCase> cases_;
};

/// All corpus files, by name.
std::vector<std::filesystem::path> corpusFiles();

/// "\t", "\n", "\\", "\xNN" and a leading "\#" or "\@" stand for themselves in a row.
std::string escaped(std::string_view text);
std::string unescaped(std::string_view text);

/// Switches one feature flag by its name, "variableDeclarations" or "hashTags"; false when there is none of that name.
bool setFlag(EngineFeatureFlags& flags, std::string_view name, bool value);

}  // namespace tavrine::testing
