#include "terminal/terminal_lines.h"

#include <clocale>
#include <cstdio>
#include <string_view>
#include <utility>

#include <histedit.h>
#include <langinfo.h>

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

}  // namespace

struct TerminalLines::State {
  std::string prompt;
  std::unique_ptr<History, EndHistory> history;
  std::unique_ptr<EditLine, EndEditing> editor;
};

TerminalLines::TerminalLines(std::string prompt) : state_(std::make_unique<State>()) {
  ensureUTF8();
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
  el_set(editor, EL_HIST, history, state_->history.get());
}

TerminalLines::~TerminalLines() = default;

std::optional<std::string> TerminalLines::next() {
  int count = 0;
  const char* text = el_gets(state_->editor.get(), &count);
  if (text == nullptr || count <= 0) return std::nullopt;
  std::string line(text, static_cast<std::size_t>(count));
  if (line.ends_with('\n')) line.pop_back();
  if (!line.empty()) {
    HistEvent event{};
    history(state_->history.get(), &event, H_ENTER, line.c_str());
  }
  return line;
}

}  // namespace korrin::host
