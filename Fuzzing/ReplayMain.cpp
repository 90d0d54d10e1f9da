// Runs a fuzz target over given files, and over all files below given folders: with any compiler, under any debugger.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

std::optional<std::vector<std::uint8_t>> readFile(const fs::path& path) {
  std::ifstream stream{path, std::ios::binary};
  if (!stream) return std::nullopt;
  std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>{stream}, {}};
  // A read past the end must leave the allocation, or the address sanitizer can't see it.
  bytes.shrink_to_fit();
  return bytes;
}

std::vector<fs::path> filesBelow(const fs::path& path) {
  if (!fs::is_directory(path)) return {path};
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator{path}) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());  // the same order on every machine
  return files;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const fs::path& file : filesBelow(argv[i])) {
      const auto bytes = readFile(file);
      if (!bytes) {
        std::fprintf(stderr, "Cannot read %s\n", file.c_str());
        return 2;
      }
      // Named before it runs: where it crashes, this is the last line.
      std::fprintf(stderr, "%s (%zu bytes)\n", file.c_str(), bytes->size());
      LLVMFuzzerTestOneInput(bytes->data(), bytes->size());
      ++count;
    }
  }
  if (count == 0) {
    std::fprintf(stderr, "Usage: %s FILE-OR-FOLDER...\nNo file was found.\n", argv[0]);
    return 2;
  }
  std::fprintf(stderr, "%d files replayed\n", count);
  return 0;
}
