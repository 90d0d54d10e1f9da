#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Foundation/Bundle.h"
#include "Foundation/Diagnostics.h"
#include "TavrineCore/Imports.h"

namespace tavrine {

/// The content of a resource file, or what is wrong with it.
template <typename Content>
struct DecodedResource {
  std::optional<Content> content;
  std::string error;
};

/// Reads one kind of resource file: a decoder, the line that is printed when a file is no good, and a cache by path.
/// Not guarded: `StaticResouces` enters its queue around each call.
template <typename Content>
class ResourceReader {
 public:
  /// From the bytes of a file.
  using Decode = DecodedResource<Content> (*)(std::string_view bytes);
  /// For content that keeps the bytes: large files stand in memory once.
  using DecodeInPlace = DecodedResource<Content> (*)(std::string bytes);
  /// Adds the content of the localized file to the English one, or lays it over it.
  using Merge = void (*)(Content& english, const Content& localized);

  /// `failureMessage` ends in ": "; what went wrong follows it.
  ResourceReader(std::string_view failureMessage, Decode decode, Merge merge)
      : failureMessage_(failureMessage), decode_(decode), merge_(merge) {}
  ResourceReader(std::string_view failureMessage, DecodeInPlace decode, Merge merge)
      : failureMessage_(failureMessage), decodeInPlace_(decode), merge_(merge) {}

  /// The English file, with the one for the current locale on top where that is another. What can't be read is told
  /// and left out; null when nothing is left.
  std::shared_ptr<const Content> localized(const Bundle& bundle, std::string_view name) {
    const auto own = bundle.url(name, kExtension);
    const auto english = bundle.url(name, kExtension, Bundle::developmentLocalization);
    if (!own && !english) {
      diagnose(std::string(failureMessage_).append("no file ").append(name).append(".").append(kExtension));
      return nullptr;
    }
    if (!own || !english || *own == *english) return deserialize(own ? *own : *english);

    std::shared_ptr<const Content> base = deserialize(*english);
    std::shared_ptr<const Content> addition = deserialize(*own);
    if (base == nullptr) return addition;
    if (addition == nullptr) return base;
    auto merged = std::make_shared<Content>(*base);
    merge_(*merged, *addition);
    return merged;
  }

  /// The content of one file, from the cache if it has been read before; null when it is no good.
  std::shared_ptr<const Content> deserialize(const std::filesystem::path& url) {
    if (const auto found = cache_.find(url.native()); found != cache_.end()) return found->second;
    std::optional<std::string> bytes = readFile(url);
    if (!bytes) return failed("can't read " + url.filename().string());
    DecodedResource<Content> decoded = decode_ != nullptr ? decode_(*bytes) : decodeInPlace_(*std::move(bytes));
    if (!decoded.content) return failed(decoded.error);
    return cache_[url.native()] = std::make_shared<const Content>(std::move(*decoded.content));
  }

 private:
  static constexpr std::string_view kExtension = "json";

  std::shared_ptr<const Content> failed(std::string_view error) const {
    diagnose(std::string(failureMessage_).append(error));
    return nullptr;
  }

  std::string_view failureMessage_;
  Decode decode_ = nullptr;
  DecodeInPlace decodeInPlace_ = nullptr;
  Merge merge_;
  std::unordered_map<std::string, std::shared_ptr<const Content>> cache_;
};

}  // namespace tavrine
