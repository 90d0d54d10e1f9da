#include "LineReader.h"

#include <stdio.h>
#include <unistd.h>

#include <clocale>
#include <cstdlib>

#ifdef TAVRINE_HAS_LIBEDIT
#include <histedit.h>
#endif

namespace {

class PlainLineReader final : public LineReader {
 public:
  explicit PlainLineReader(std::string_view prompt) : prompt_(prompt) {}
  ~PlainLineReader() override { std::free(buffer_); }
  PlainLineReader(const PlainLineReader&) = delete;
  PlainLineReader& operator=(const PlainLineReader&) = delete;

  bool read(std::string& line) override {
    std::fwrite(prompt_.data(), 1, prompt_.size(), stdout);
    std::fflush(stdout);
    // `getline` rather than the stream's: a line may hold NUL bytes.
    const ssize_t length = ::getline(&buffer_, &capacity_, stdin);
    if (length < 0) return false;
    line.assign(buffer_, static_cast<std::size_t>(length));
    if (line.ends_with('\n')) line.pop_back();
    if (line.ends_with('\r')) line.pop_back();
    return true;
  }

 private:
  std::string prompt_;
  char* buffer_ = nullptr;
  std::size_t capacity_ = 0;
};

#ifdef TAVRINE_HAS_LIBEDIT

constexpr int kHistorySize = 1000;

class EditingLineReader final : public LineReader {
 public:
  explicit EditingLineReader(std::string_view prompt) : prompt_(prompt) {
    std::setlocale(LC_CTYPE, "");  // the editor measures characters by it
    editor_ = el_init("TavrineCoreREPL", stdin, stdout, stderr);
    history_ = history_init();
    HistEvent event;
    history(history_, &event, H_SETSIZE, kHistorySize);
    history(history_, &event, H_SETUNIQUE, 1);
    el_set(editor_, EL_CLIENTDATA, this);
    el_set(editor_, EL_PROMPT, &EditingLineReader::promptOf);
    el_set(editor_, EL_EDITOR, "emacs");
    el_set(editor_, EL_SIGNAL, 1);
    el_set(editor_, EL_HIST, ::history, history_);
    el_source(editor_, nullptr);
  }
  ~EditingLineReader() override {
    history_end(history_);
    el_end(editor_);
  }
  EditingLineReader(const EditingLineReader&) = delete;
  EditingLineReader& operator=(const EditingLineReader&) = delete;

  bool read(std::string& line) override {
    int length = 0;
    const char* text = el_gets(editor_, &length);
    if (text == nullptr || length <= 0) {
      std::fputc('\n', stdout);
      return false;
    }
    line.assign(text, static_cast<std::size_t>(length));
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    if (!line.empty()) {
      HistEvent event;
      history(history_, &event, H_ENTER, line.c_str());
    }
    return true;
  }

 private:
  static char* promptOf(EditLine* editor) {
    void* self = nullptr;
    el_get(editor, EL_CLIENTDATA, &self);
    return static_cast<EditingLineReader*>(self)->prompt_.data();
  }

  std::string prompt_;
  EditLine* editor_ = nullptr;
  History* history_ = nullptr;
};

#endif

}  // namespace

std::unique_ptr<LineReader> LineReader::forStandardInput(std::string_view prompt) {
#ifdef TAVRINE_HAS_LIBEDIT
  if (::isatty(STDIN_FILENO) != 0 && ::isatty(STDOUT_FILENO) != 0) return std::make_unique<EditingLineReader>(prompt);
#endif
  return std::make_unique<PlainLineReader>(prompt);
}
