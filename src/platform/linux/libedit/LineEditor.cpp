#include "platform/linux/libedit/LineEditor.h"

#include <histedit.h>
#include <poll.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>
#include <utility>

namespace vorlent {
namespace {

constexpr int KeptLines = 200;
/// The characters of one key come at once.
constexpr int WithinKey_ms = 50;
constexpr wchar_t BoundToNothing = L'\a';

bool keyWaits(int limit_ms) {
  pollfd waiting{STDIN_FILENO, POLLIN, 0};
  return poll(&waiting, 1, limit_ms) > 0;
}

/// The library would wait without end behind an escape that somebody typed by itself, and with it
/// the whole program.
int nextCharacter(EditLine*, wchar_t* character) {
  if (!keyWaits(WithinKey_ms)) {
    *character = BoundToNothing;
    return 1;
  }
  unsigned char byte = 0;
  const ssize_t count = read(STDIN_FILENO, &byte, 1);
  *character = byte < 0x80 ? byte : L'?';
  return static_cast<int>(count);
}

std::string shownPrompt;
char* prompt(EditLine*) { return shownPrompt.data(); }

struct Binding {
  const char* key;
  const char* action;
};

/// Keys that terminals name differently than their descriptions do, and Ctrl-D, which would end
/// the input.
constexpr Binding Bindings[] = {
    {"\\e[3~", "ed-delete-next-char"}, {"^D", "ed-delete-next-char"}, {"\\e[H", "ed-move-to-beg"},
    {"\\e[1~", "ed-move-to-beg"},      {"\\eOH", "ed-move-to-beg"},   {"\\e[F", "ed-move-to-end"},
    {"\\e[4~", "ed-move-to-end"},      {"\\eOF", "ed-move-to-end"},
};

}  // namespace

struct LineEditor::Library {
  EditLine* editor = el_init("vorlent", stdin, stdout, stderr);
  History* lines = history_init();

  Library() {
    HistEvent event;
    history(lines, &event, H_SETSIZE, KeptLines);
    history(lines, &event, H_SETUNIQUE, 1);
    el_set(editor, EL_PROMPT, prompt);
    el_set(editor, EL_EDITOR, "emacs");
    el_set(editor, EL_HIST, history, lines);
    el_set(editor, EL_GETCFN, nextCharacter);
    for (const auto& [key, action] : Bindings) el_set(editor, EL_BIND, key, action, nullptr);
    el_set(editor, EL_UNBUFFERED, 1);
  }
  ~Library() {
    el_set(editor, EL_UNBUFFERED, 0);
    history_end(lines);
    el_end(editor);
  }
  void remember(const std::string& line) const {
    HistEvent event;
    if (!line.empty()) history(lines, &event, H_ENTER, line.c_str());
  }
};

LineEditor::LineEditor(const std::string& promptText, LineHandler onLine)
    : onLine_(std::move(onLine)) {
  shownPrompt = promptText;
  library_ = std::make_unique<Library>();
}

LineEditor::~LineEditor() = default;

bool LineEditor::readKeys() {
  el_resize(library_->editor);
  while (keyWaits(0)) {
    int count = 0;
    const char* const typed = el_gets(library_->editor, &count);
    if (typed == nullptr || count <= 0) {
      // An edit has changed nothing, or the terminal is gone.
      pollfd gone{STDIN_FILENO, POLLIN, 0};
      return poll(&gone, 1, 0) >= 0 && (gone.revents & (POLLHUP | POLLERR | POLLNVAL)) == 0;
    }
    std::string line(typed, static_cast<std::size_t>(count));
    if (line.back() != '\n') continue;
    line.pop_back();
    library_->remember(line);
    // The editor starts anew. Before the line is carried out: in between the terminal would take
    // what is typed for a line of its own.
    el_set(library_->editor, EL_UNBUFFERED, 0);
    el_set(library_->editor, EL_UNBUFFERED, 1);
    onLine_(line);
  }
  return true;
}

}  // namespace vorlent
