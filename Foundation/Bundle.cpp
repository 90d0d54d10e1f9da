#include "Foundation/Bundle.h"

#include <unicode/uloc.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <ios>
#include <mutex>
#include <system_error>
#include <utility>

#include "Foundation/Diagnostics.h"

namespace tavrine::foundation {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLocalizationSuffix = ".lproj";

/// The directory set by the host; empty when it set none.
struct HostDirectory {
  std::mutex mutex;
  fs::path path;
};

HostDirectory& hostDirectory() {
  static HostDirectory shared;
  return shared;
}

fs::path directoryOfExecutable() {
  std::error_code error;
  const fs::path executable = fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path(".") : executable.parent_path();
}

Bundle openModule() {
  std::vector<fs::path> candidates;
  {
    const std::lock_guard lock(hostDirectory().mutex);
    if (!hostDirectory().path.empty()) candidates.push_back(hostDirectory().path / Bundle::resourceDirectoryName);
  }
  candidates.push_back(directoryOfExecutable() / Bundle::resourceDirectoryName);
#ifdef TAVRINE_RESOURCE_INSTALL_DIR
  candidates.push_back(fs::path(TAVRINE_RESOURCE_INSTALL_DIR) / Bundle::resourceDirectoryName);
#else
  // Where an installation under the same prefix keeps what is shared.
  candidates.push_back(directoryOfExecutable().parent_path() / "share" / "TavrineCore" / Bundle::resourceDirectoryName);
#endif
  for (const fs::path& candidate : candidates) {
    if (auto bundle = Bundle::open(candidate)) return *std::move(bundle);
  }
  // Named are the two that are always looked at.
  fatalError("could not load resource bundle: from " + (candidates.end() - 2)->string() + " or " +
             candidates.back().string());
}

/// "Hans" for zh_CN, which doesn't say so itself; empty when it isn't known.
std::string likelyScriptOf(const Locale& locale) {
  std::array<char, ULOC_FULLNAME_CAPACITY> full{};
  std::array<char, ULOC_SCRIPT_CAPACITY> script{};
  UErrorCode status = U_ZERO_ERROR;
  uloc_addLikelySubtags(locale.identifier().c_str(), full.data(), static_cast<std::int32_t>(full.size()), &status);
  if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return {};
  uloc_getScript(full.data(), script.data(), static_cast<std::int32_t>(script.size()), &status);
  if (U_FAILURE(status) || status == U_STRING_NOT_TERMINATED_WARNING) return {};
  return script.data();
}

std::optional<fs::path> existingFile(fs::path path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  return path;
}

}  // namespace

Bundle::Bundle(fs::path path) : path_(std::move(path)) {
  std::error_code error;
  for (fs::directory_iterator entry(path_, error), end; !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (!name.ends_with(kLocalizationSuffix)) continue;
    localizations_.push_back(name.substr(0, name.size() - kLocalizationSuffix.size()));
  }
  std::ranges::sort(localizations_);
}

std::optional<Bundle> Bundle::open(const fs::path& path) {
  std::error_code error;
  if (!fs::is_directory(path, error)) return std::nullopt;
  return Bundle(path);
}

const Bundle& Bundle::module() {
  static const Bundle* const opened = new Bundle(openModule());
  return *opened;
}

void Bundle::setHostDirectory(fs::path directory) {
  const std::lock_guard lock(hostDirectory().mutex);
  hostDirectory().path = std::move(directory);
}

std::string Bundle::localizationFor(const Locale& locale) const {
  const auto isPresent = [this](const std::string& name) { return std::ranges::binary_search(localizations_, name); };
  const std::string language(locale.language());
  const std::string script(locale.script());
  const std::string region(locale.region());
  const bool isAnyOfLanguage = std::ranges::any_of(localizations_, [&language](const std::string& name) {
    return name == language || name.starts_with(language + "-");
  });
  if (!isAnyOfLanguage) return std::string(developmentLocalization);
  for (const std::string& tags : {script + "-" + region, script, region, likelyScriptOf(locale)}) {
    if (const std::string name = language + "-" + tags; isPresent(name)) return name;
  }
  return isPresent(language) ? language : std::string(developmentLocalization);
}

std::optional<fs::path> Bundle::url(std::string_view forResource, std::string_view withExtension,
                                    std::optional<std::string_view> localization) const {
  std::string fileName(forResource);
  if (!withExtension.empty()) fileName.append(".").append(withExtension);
  std::string directory = localization ? std::string(*localization) : localizationFor(Locale::current());
  if (auto localized = existingFile(path_ / directory.append(kLocalizationSuffix) / fileName)) return localized;
  return existingFile(path_ / fileName);
}

std::optional<std::string> readFile(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return std::nullopt;
  const std::uintmax_t size = fs::file_size(path, error);
  std::ifstream file(path, std::ios::binary);
  if (error || !file) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(size), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(size));
  // A file that shrank meanwhile is read as far as it goes.
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

}  // namespace tavrine::foundation
