// Texts for benchmarks, the same in every run.
#pragma once
#include <cstddef>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "search/many/builtin_words.h"

namespace vstring_bench {

inline std::string word(std::size_t k) {
  const vstring::Bytes bytes = vstring::search::builtin_word(k);
  return {vstring::chars(bytes), bytes.size()};
}

inline vstring::Bytes bytes(const std::string& text) {
  return {reinterpret_cast<const vstring::Byte*>(text.data()), text.size()};
}

inline std::string fibonacci_word(std::size_t n) {
  std::string shorter = "a";
  std::string word = "ab";
  while (word.size() < n) shorter = std::exchange(word, word + shorter);
  return word.substr(0, n);
}

// Words and spaces; of two random words the shorter one is taken, as people do.
inline std::string prose(std::size_t length) {
  std::mt19937 engine(1);
  const auto random_word = [&] { return word(engine() % vstring::search::kBuiltinWordCount); };
  std::string text;
  while (text.size() < length) {
    const std::string v = random_word();
    const std::string w = random_word();
    text += (v.size() < w.size() ? v : w) + (engine() % 12 == 0 ? ".\n" : " ");
  }
  text.resize(length);
  return text;
}

// The files one behind the other, over and over up to `length` bytes; a line where there are none.
inline std::string repeated_files(std::initializer_list<const char*> paths, std::size_t length) {
  std::string all;
  for (const char* const path : paths) {
    std::ifstream in(path);
    all.append(std::istreambuf_iterator<char>(in), {});
  }
  if (all.empty()) all = "the quick brown fox jumps over the lazy dog; int x1 = f(y);\n";
  std::string text;
  while (text.size() < length) text += all;
  text.resize(length);
  return text;
}

// Different words of at least five bytes.
inline std::vector<std::string> some_words(std::size_t n) {
  std::mt19937 engine(2);
  std::vector<std::string> words;
  std::vector<bool> taken(vstring::search::kBuiltinWordCount);
  while (words.size() < n) {
    const std::size_t k = engine() % taken.size();
    if (!taken[k] && word(k).size() >= 5) words.push_back(word(k));
    taken[k] = true;
  }
  return words;
}

}  // namespace vstring_bench
