#include "prompt/editor.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cwchar>
#include <iostream>
#include <utility>

#include "help/pager.h"
#include "prompt/complete.h"
#include "prompt/terminal.h"

namespace velmor {
namespace {

volatile std::sig_atomic_t interrupted = 0;
std::array<int, 2> interruptions;  // a pipe: the handler writes, so that no wait misses it

void note_interruption(int /*signal*/) {
  interrupted = 1;
  [[maybe_unused]] const ssize_t written = write(interruptions[1], "", 1);
}

void forget_interruptions() {
  char byte;
  interrupted = 0;
  pollfd waiting{interruptions[0], POLLIN, 0};
  while (poll(&waiting, 1, 0) > 0 && read(interruptions[0], &byte, 1) > 0) {
  }
}

Editor* editor_of(EditLine* line) {
  void* data = nullptr;
  el_get(line, EL_CLIENTDATA, &data);
  return static_cast<Editor*>(data);
}

// libedit shows the prompt first and takes the terminal out of its line mode after that; a Ctrl-D
// typed in between, which a line mode takes for itself, would be lost.
void leave_line_mode() {
  termios mode;
  if (tcgetattr(STDIN_FILENO, &mode) != 0) return;
  mode.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
  tcsetattr(STDIN_FILENO, TCSADRAIN, &mode);
}

// The editor must know which bytes make a character, while commands are to run in the "C" locale,
// whatever they set themselves.
class CharacterLocale {
 public:
  CharacterLocale() { std::setlocale(LC_CTYPE, "C.UTF-8"); }
  ~CharacterLocale() { std::setlocale(LC_CTYPE, "C"); }
  CharacterLocale(const CharacterLocale&) = delete;
  CharacterLocale& operator=(const CharacterLocale&) = delete;
};

}  // namespace

Editor::Editor(Session& session) : session_(session) {
  const CharacterLocale locale;
  if (pipe(interruptions.data()) != 0) throw std::runtime_error("cannot make a pipe");
  struct sigaction handler {};
  handler.sa_handler = note_interruption;
  sigaction(SIGINT, &handler, nullptr);
  editor_ = el_init("velmor", stdin, stdout, stderr);
  history_ = history_init();
  HistEvent event;
  history(history_, &event, H_SETSIZE, static_cast<int>(velmor::History::kMost));
  history(history_, &event, H_SETUNIQUE, 1);
  el_set(editor_, EL_CLIENTDATA, this);
  el_set(editor_, EL_SIGNAL, 1);
  el_set(editor_, EL_PROMPT, prompt_of);
  el_set(editor_, EL_EDITOR, "emacs");
  el_set(editor_, EL_HIST, ::history, history_);
  el_set(editor_, EL_GETCFN, next_character);
  el_set(editor_, EL_ADDFN, "velmor-complete", "Complete a name", complete_word);
  el_set(editor_, EL_BIND, "^I", "velmor-complete", nullptr);
  el_set(editor_, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  el_source(editor_, nullptr);  // the user's own keys
  for (const std::string& line : kept_.load()) enter(line);
}

Editor::~Editor() {
  history_end(history_);
  el_end(editor_);
}

Editor::Event Editor::read(const char* prompt, std::string& line) {
  const CharacterLocale locale;
  prompt_ = prompt;
  std::cout.flush();
  forget_interruptions();
  leave_line_mode();
  int count = 0;
  const char* const typed = el_gets(editor_, &count);
  if (interrupted != 0) {
    std::cout << '\n' << std::flush;
    return Event::kInterrupted;
  }
  if (typed == nullptr || count <= 0) return Event::kEnd;
  line.assign(typed, static_cast<std::size_t>(count));
  if (line.ends_with('\n')) line.pop_back();
  return Event::kLine;
}

void Editor::remember(const std::string& statement) {
  if (statement == std::exchange(last_, statement)) return;
  const CharacterLocale locale;
  enter(statement);
  kept_.append(statement);
}

void Editor::enter(const std::string& statement) {
  HistEvent event;
  history(history_, &event, H_ENTER, statement.c_str());
}

char* Editor::prompt_of(EditLine* editor) { return editor_of(editor)->prompt_.data(); }

// Bytes that make no character are dropped.
int Editor::next_character(EditLine* /*editor*/, wchar_t* character) {
  std::mbstate_t state{};
  for (;;) {
    pollfd waiting[] = {{STDIN_FILENO, POLLIN, 0}, {interruptions[0], POLLIN, 0}};
    if (poll(waiting, 2, -1) < 0 && errno != EINTR) return -1;
    if (interrupted != 0) return 0;
    if (waiting[0].revents == 0) continue;
    char byte;
    const ssize_t got = ::read(STDIN_FILENO, &byte, 1);
    if (got == 0) return 0;
    if (got < 0) {
      if (errno == EINTR || errno == EAGAIN) continue;
      return -1;
    }
    const std::size_t used = std::mbrtowc(character, &byte, 1, &state);
    if (used == static_cast<std::size_t>(-1)) state = {};
    if (used <= 1) return 1;
  }
}

unsigned char Editor::complete_word(EditLine* editor, int /*key*/) {
  int more = 0;
  if (ioctl(STDIN_FILENO, FIONREAD, &more) == 0 && more > 0) {  // pasted, not typed
    el_insertstr(editor, "\t");
    return CC_REFRESH;
  }
  const LineInfo* const line = el_line(editor);
  const std::string_view before(line->buffer,
                                static_cast<std::size_t>(line->cursor - line->buffer));
  const Completion completion = complete(editor_of(editor)->session_, before);
  if (!completion.inserted.empty()) el_insertstr(editor, completion.inserted.c_str());
  if (completion.shown.empty())
    return static_cast<unsigned char>(completion.inserted.empty() ? CC_REFRESH_BEEP : CC_REFRESH);
  std::cout << '\n' << fitted(completion.shown, screen().width) << std::flush;
  return CC_REDISPLAY;
}

}  // namespace velmor
