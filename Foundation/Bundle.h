#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Locale.h"

namespace tavrine::foundation {

/// A directory of resources, with one subdirectory a language: "en.lproj", "zh-Hans.lproj".
class Bundle {
 public:
  static constexpr std::string_view resourceDirectoryName = "TavrineCore_TavrineCore.resources";
  static constexpr std::string_view developmentLocalization = "en";

  /// Absent when `path` is no directory.
  [[nodiscard]] static std::optional<Bundle> open(const std::filesystem::path& path);

  /// The bundle of this library, opened once: in the directory set by the host, beside the executable, or where the
  /// library is installed. Without it there is no vocabulary: a fatal error.
  [[nodiscard]] static const Bundle& module();
  /// The same bundle.
  [[nodiscard]] static const Bundle& foundationBundle() { return module(); }

  /// The directory that holds the resource directory, looked at before all others. To be set before the first line is
  /// calculated: what has been opened stays open.
  static void setHostDirectory(std::filesystem::path directory);

  [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }
  /// The localizations that are present, sorted: "de", "en", "zh-Hans".
  [[nodiscard]] const std::vector<std::string>& localizations() const noexcept { return localizations_; }

  /// The best of the present localizations for the locale: by language and script, then by language, else "en".
  [[nodiscard]] std::string localizationFor(const Locale& locale) const;

  /// The path of the file, if it is there: in the localization's directory when one is given, else in the one for the
  /// current locale, and failing that in the resource directory itself.
  [[nodiscard]] std::optional<std::filesystem::path> url(std::string_view forResource, std::string_view withExtension,
                                                         std::optional<std::string_view> localization = {}) const;

 private:
  explicit Bundle(std::filesystem::path path);

  std::filesystem::path path_;
  std::vector<std::string> localizations_;
};

/// The bytes of the file; absent when it can't be read.
[[nodiscard]] std::optional<std::string> readFile(const std::filesystem::path& path);

}  // namespace tavrine::foundation
