#include "Tests/Support/CorpusFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <map>

#include "Foundation/Text.h"
#include "Tests/Support/CorpusHost.h"

namespace tavrine::testing {

namespace {

using FlagReference = bool& (*)(EngineFeatureFlags&);

const std::map<std::string, FlagReference, std::less<>>& switches() {
#define FLAG(name, path)                                                  \
  {                                                                       \
#name, [](EngineFeatureFlags & flags) -> bool& { return flags.path; } \
  }
  static const std::map<std::string, FlagReference, std::less<>> table = {
      FLAG(units, units),
      FLAG(calendarCalculations, calendarCalculations),
      FLAG(wordFunctions, wordFunctions),
      FLAG(variableDeclarations, variableDeclarations),
      FLAG(functionsRequireParentheses, functionsRequireParentheses),
      FLAG(seeksFutureDate, seeksFutureDate),
      FLAG(inAmbiguityPreferSomethingToNothing, inAmbiguityPreferSomethingToNothing),
      FLAG(preserveAllParsedTokenTypes, preserveAllParsedTokenTypes),
      FLAG(subexpressions, subexpressions),
      FLAG(bitwiseOperators, bitwiseOperators),
      FLAG(hexAndBinary, hexAndBinary),
      FLAG(octal, octal),
      FLAG(phiAndTau, phiAndTau),
      FLAG(cookingSubstances, cookingSubstances),
      FLAG(musicalConversions, musicalConversions),
      FLAG(GPSAndDMS, GPSAndDMS),
      FLAG(specialDays, specialDays),
      FLAG(dateTemplateFormatStrings, dateTemplateFormatStrings),
      FLAG(shortFormUSTimezones, shortFormUSTimezones),
      FLAG(dynamicPlaceLookup, dynamicPlaceLookup),
      FLAG(includeVariableReferencingPreviousLine, additionalOptions.includeVariableReferencingPreviousLine),
      FLAG(includeVariablesReferencingLineNumbers, additionalOptions.includeVariablesReferencingLineNumbers),
      FLAG(rawStringVariableDefinitions, additionalOptions.rawStringVariableDefinitions),
      FLAG(unitDeclarations, additionalOptions.unitDeclarations),
      FLAG(remoteQueries, additionalOptions.remoteQueries),
      FLAG(tripPlanning, additionalOptions.tripPlanning),
      FLAG(generateTagVariablesFromLabels, additionalOptions.generateTagVariablesFromLabels),
      FLAG(bracketComments, commentingOptions.bracketComments),
      FLAG(quotationMarkComments, commentingOptions.quotationMarkComments),
      FLAG(slashComments, commentingOptions.slashComments),
      FLAG(labelComments, commentingOptions.labelComments),
      FLAG(hashTags, commentingOptions.hashTags),
  };
#undef FLAG
  return table;
}

std::optional<int> integerIn(std::string_view text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return value;
}

bool applyPreference(FormattingPreferences& preferences, std::string_view name, std::string_view value) {
  if (name == "dp" || name == "minimumFractionDigits") {
    const std::optional<int> number = integerIn(value);
    if (!number) return false;
    (name == "dp" ? preferences.dp : preferences.minimumFractionDigits) = *number;
    return true;
  }
  const bool on = value == "on";
  if (!on && value != "off") return false;
  if (name == "notation") {
    using Style = NotationPreferences::NotationStyle;
    preferences.notationPreferences.notationStyle = on ? Style::on : Style::off;
  } else if (name == "thousandsSeparator") {
    preferences.thousandsSeparatorDisabled = !on;
  } else if (name == "automaticConversion") {
    preferences.resultConversionBehavior =
        on ? ResultConversionBehavior::automatic() : ResultConversionBehavior::none();
  } else if (name == "referencesTakeFormattedValue") {
    preferences.referencesTakeFormattedValue = on;
  } else {
    return false;
  }
  return true;
}

/// "@name value [value]"; false when it makes no sense.
bool applySetting(CorpusSettings& settings, std::string_view row) {
  const std::vector<std::string_view> words = splitAtWhitespace(row.substr(1));
  if (words.empty()) return false;
  const std::string_view name = words[0];
  if (words.size() == 1) {
    if (name == "calculator") return settings.remembers = true;
    if (name != "defaults") return false;
    settings = CorpusSettings();
    return true;
  }
  const std::string value(words[1]);
  if (words.size() == 3 && name == "flag") {
    EngineFeatureFlags flags;
    if (value != "all" && !setFlag(flags, value, true)) return false;
    if (words[2] != "on" && words[2] != "off") return false;
    auto& list = words[2] == "on" ? settings.flagsOn : settings.flagsOff;
    list.push_back(value);
    return true;
  }
  if (words.size() != 2) return false;
  if (name == "locale") return settings.locale = value, true;
  if (name == "zone") return settings.zone = value, true;
  if (name == "now") return settings.now = value, true;
  if (name == "host" && (value == "on" || value == "off")) return settings.hasHost = value == "on", true;
  return applyPreference(settings.preferences, name, value);
}

int hexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

bool setFlag(EngineFeatureFlags& flags, std::string_view name, bool value) {
  const auto found = switches().find(name);
  if (found == switches().end()) return false;
  found->second(flags) = value;
  return true;
}

EngineCustomization CorpusSettings::customization() const {
  EngineCustomization result = EngineCustomization::standardWith(Locale(locale));
  if (hasHost) result = withCorpusHost(std::move(result));
  if (flagsOn.empty() && flagsOff.empty()) return result;
  result.changeFeatureFlags([this](EngineFeatureFlags& flags) {
    for (const bool value : {true, false}) {
      for (const std::string& name : value ? flagsOn : flagsOff) {
        if (name != "all") {
          setFlag(flags, name, value);
          continue;
        }
        for (const auto& [flag, reference] : switches()) reference(flags) = value;
      }
    }
  });
  return result;
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
      continue;
    }
    const char kind = text[++i];
    const int high = i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
    const int low = i + 2 < text.size() ? hexValue(text[i + 2]) : -1;
    if (kind == 'x' && high >= 0 && low >= 0) {
      result += static_cast<char>(high * 16 + low);
      i += 2;
    } else if (kind == 't') {
      result += '\t';
    } else if (kind == 'n') {
      result += '\n';
    } else {
      result += kind;
    }
  }
  return result;
}

std::string escaped(std::string_view text) {
  static constexpr char kHex[] = "0123456789ABCDEF";
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (text[i] == '\\' || (i == 0 && (text[i] == '#' || text[i] == '@'))) {
      result += '\\';
      result += text[i];
    } else if (text[i] == '\t') {
      result += "\\t";
    } else if (text[i] == '\n') {
      result += "\\n";
    } else if (byte < 0x20 || byte == 0x7F) {
      result += "\\x";
      result += kHex[byte / 16];
      result += kHex[byte % 16];
    } else {
      result += text[i];
    }
  }
  return result;
}

CorpusFile CorpusFile::read(const std::filesystem::path& path) {
  CorpusFile file;
  file.path_ = path;
  std::ifstream stream(path);
  EXPECT_TRUE(stream) << "can't read " << path;
  CorpusSettings settings;
  bool startsSession = true;
  for (std::string row; std::getline(stream, row);) {
    file.rows_.push_back(row);
    const std::size_t lineNumber = file.rows_.size();
    if (row.empty()) {
      startsSession = true;
    } else if (row.front() == '@') {
      EXPECT_TRUE(applySetting(settings, row)) << path << ":" << lineNumber << ": unknown setting " << row;
      startsSession = true;
    } else if (row.front() != '#') {
      const std::size_t tab = row.find('\t');
      EXPECT_NE(tab, std::string::npos) << path << ":" << lineNumber << ": no tab between line and answer";
      if (tab == std::string::npos) continue;
      file.cases_.push_back({lineNumber, unescaped(std::string_view(row).substr(0, tab)),
                             unescaped(std::string_view(row).substr(tab + 1)), settings, startsSession});
      startsSession = false;
    }
  }
  return file;
}

std::string CorpusFile::withAnswers(const std::vector<std::string>& answers) const {
  std::vector<std::string> rows = rows_;
  for (std::size_t i = 0; i < cases_.size() && i < answers.size(); ++i) {
    std::string& row = rows[cases_[i].lineNumber - 1];
    row = row.substr(0, row.find('\t') + 1) + escaped(answers[i]);
  }
  std::string text;
  for (const std::string& row : rows) text += row + "\n";
  return text;
}

std::vector<std::filesystem::path> corpusFiles() {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(TAVRINE_CORPUS_DIR)) {
    if (entry.path().extension() == ".tsv") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

}  // namespace tavrine::testing
