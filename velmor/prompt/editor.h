// Lines typed at a terminal, edited by libedit: history, completion, Ctrl-C.
#pragma once
#include <histedit.h>

#include <string>

#include "language/session.h"
#include "prompt/history.h"

namespace velmor {

class Editor {
 public:
  explicit Editor(Session& session);
  ~Editor();
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  enum class Event { kLine, kInterrupted, kEnd };

  // Reads a line, without its newline.
  Event read(const char* prompt, std::string& line);

  // A statement for this history and those of later sessions.
  void remember(const std::string& statement);

 private:
  static int next_character(EditLine* editor, wchar_t* character);
  static char* prompt_of(EditLine* editor);
  static unsigned char complete_word(EditLine* editor, int key);
  void enter(const std::string& statement);

  Session& session_;
  History kept_;
  EditLine* editor_;
  ::History* history_;
  std::string prompt_;
  std::string last_;  // that was remembered
};

}  // namespace velmor
