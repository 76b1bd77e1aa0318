#include "search/many/dictionary.h"

#include <cstdlib>

#include "search/many/automaton.h"
#include "search/many/builtin_words.h"

namespace vstring::search {
namespace {

VstringAutomaton* dictionaries[kDictionaries];

void destroy(VstringAutomaton* automaton) {
  ac_free(automaton);
  std::free(automaton);
}

template <typename Insert>
Status build(std::int32_t id, Insert insert_words) {
  VstringAutomaton* const automaton = ac_alloc();
  if (automaton == nullptr) return Status::out_of_memory;
  if (!insert_words(automaton) || ac_prep(automaton) == 0) {
    destroy(automaton);
    return Status::out_of_memory;
  }
  dictionaries[id] = automaton;
  return Status::ok;
}

bool insert_builtin_words(VstringAutomaton* automaton) {
  Bytes words = builtin_words();
  for (std::int32_t number = 1; !words.empty(); ++number) {
    if (!insert(automaton, take_word(words), number)) return false;
  }
  return true;
}

}  // namespace

const VstringAutomaton* dictionary(std::int32_t id) { return dictionaries[id]; }

std::int32_t free_dictionary() {
  for (std::int32_t id = 1; id < kDictionaries; ++id) {
    if (dictionaries[id] == nullptr) return id;
  }
  return 0;
}

Status build_dictionary(std::int32_t id, std::span<const Bytes> words) {
  return build(id, [&](VstringAutomaton* automaton) { return insert_all(automaton, words); });
}

Status build_builtin_dictionary() { return build(0, insert_builtin_words); }

void clear_dictionary(std::int32_t id) {
  destroy(dictionaries[id]);
  dictionaries[id] = nullptr;
}

void clear_dictionaries() {
  for (std::int32_t id = 0; id < kDictionaries; ++id) clear_dictionary(id);
}

}  // namespace vstring::search
