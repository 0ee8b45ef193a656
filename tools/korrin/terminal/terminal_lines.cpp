#include "terminal/terminal_lines.h"

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cwchar>
#include <string_view>
#include <utility>

#include <histedit.h>
#include <langinfo.h>
#include <unistd.h>

namespace korrin::host {
namespace {

constexpr int keptLines = 500;

struct EndEditing {
  void operator()(EditLine* editor) const { el_end(editor); }
};
struct EndHistory {
  void operator()(History* history) const { history_end(history); }
};

void ensureUTF8() {
  std::setlocale(LC_CTYPE, "");
  if (std::string_view(nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
}

// Set by the one thing that a signal can do without harm.
volatile std::sig_atomic_t isInterrupted = 0;

void noteInterruption(int) { isInterrupted = 1; }

// Reads one character; an interruption reads as the end of the line, which is dropped then.
int readCharacter(EditLine*, wchar_t* character) {
  std::mbstate_t state{};
  for (;;) {
    char byte = 0;
    const ssize_t count = isInterrupted != 0 ? -1 : ::read(STDIN_FILENO, &byte, 1);
    if (isInterrupted != 0) {
      *character = L'\n';
      return 1;
    }
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return static_cast<int>(count);
    const std::size_t length = std::mbrtowc(character, &byte, 1, &state);
    if (length == 0 || length == 1) return 1;
    if (length == static_cast<std::size_t>(-1)) state = {};  // passed over: no text has such bytes
  }
}

}  // namespace

struct TerminalLines::State {
  struct sigaction before {};  // what an interruption did
  std::string prompt;
  std::unique_ptr<History, EndHistory> history;
  std::unique_ptr<EditLine, EndEditing> editor;
};

TerminalLines::TerminalLines(std::string prompt) : state_(std::make_unique<State>()) {
  ensureUTF8();
  struct sigaction action {};
  action.sa_handler = noteInterruption;  // without SA_RESTART: reading must notice
  sigemptyset(&action.sa_mask);
  ::sigaction(SIGINT, &action, &state_->before);
  state_->prompt = std::move(prompt);
  state_->history.reset(history_init());
  HistEvent event{};
  history(state_->history.get(), &event, H_SETSIZE, keptLines);
  history(state_->history.get(), &event, H_SETUNIQUE, 1);
  state_->editor.reset(el_init("korrin", stdin, stdout, stderr));
  EditLine* editor = state_->editor.get();
  el_set(editor, EL_CLIENTDATA, state_.get());
  char* (*const showPrompt)(EditLine*) = [](EditLine* line) {
    State* state = nullptr;
    el_get(line, EL_CLIENTDATA, &state);
    return state->prompt.data();
  };
  el_set(editor, EL_PROMPT, showPrompt);
  el_set(editor, EL_EDITOR, "emacs");
  el_set(editor, EL_SIGNAL, 1);
  el_set(editor, EL_GETCFN, readCharacter);
  el_set(editor, EL_HIST, history, state_->history.get());
}

TerminalLines::~TerminalLines() { ::sigaction(SIGINT, &state_->before, nullptr); }

std::optional<std::string> TerminalLines::next() {
  isInterrupted = 0;
  int count = 0;
  const char* text = el_gets(state_->editor.get(), &count);
  if (text == nullptr || count <= 0) return std::nullopt;
  std::string line(text, static_cast<std::size_t>(count));
  if (line.ends_with('\n')) line.pop_back();
  if (isInterrupted != 0) line.clear();
  if (!line.empty()) {
    HistEvent event{};
    history(state_->history.get(), &event, H_ENTER, line.c_str());
  }
  return line;
}

}  // namespace korrin::host
