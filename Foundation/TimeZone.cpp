#include "Foundation/TimeZone.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

#include "Foundation/Environment.h"

namespace tavrine::foundation {

namespace {

/// "Europe/Paris" of "/usr/share/zoneinfo/Europe/Paris".
std::optional<std::string> identifierInPath(std::string_view path) {
  constexpr std::string_view directory = "zoneinfo/";
  const std::size_t found = path.find(directory);
  if (found == std::string_view::npos || found + directory.size() == path.size()) return std::nullopt;
  return std::string(path.substr(found + directory.size()));
}

}  // namespace

TimeZone TimeZone::current() { return TimeZone(Environment::current().timeZoneIdentifier()); }

std::string systemTimeZoneIdentifier() {
  if (const char* const variable = std::getenv("TZ"); variable != nullptr) {
    std::string_view value = variable;
    if (value.starts_with(':')) value.remove_prefix(1);
    if (!value.empty() && !value.starts_with('/')) return std::string(value);
    if (const auto identifier = identifierInPath(value)) return *identifier;
    return "GMT";
  }
  std::error_code error;
  const std::filesystem::path target = std::filesystem::read_symlink("/etc/localtime", error);
  if (!error) {
    if (const auto identifier = identifierInPath(target.native())) return *identifier;
  }
  return "GMT";
}

}  // namespace tavrine::foundation
