#pragma once

#include <memory>
#include <string>
#include <string_view>

/// Asks for lines: prints the prompt, reads up to the next line end.
class LineReader {
 public:
  virtual ~LineReader() = default;

  /// The next line without its line end, whatever bytes it holds; false when the input has ended.
  virtual bool read(std::string& line) = 0;

  /// With a terminal on both sides the line can be edited and earlier lines come back by the arrow keys; otherwise it
  /// is read plainly, and nothing is held back.
  static std::unique_ptr<LineReader> forStandardInput(std::string_view prompt);
};
