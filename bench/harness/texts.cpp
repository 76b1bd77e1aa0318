#include "harness/texts.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <utility>

namespace bench {
namespace {

std::string& folder() {
  static std::string path;
  return path;
}

std::string file(const char* name) {
  const std::string path = text_file(name);
  std::ifstream in(path);
  std::string text(std::istreambuf_iterator<char>(in), {});
  if (text.empty()) {
    std::fprintf(stderr, "no text in %s\n", path.c_str());
    std::exit(2);
  }
  return text;
}

}  // namespace

void set_text_folder(std::string path) { folder() = std::move(path); }

std::string text_file(const char* name) { return folder() + "/" + name; }

const std::string& prose() {
  static const std::string text = file("prose");
  return text;
}

const std::string& dna() {
  static const std::string text = file("dna");
  return text;
}

const std::string& source() {
  static const std::string text = file("source");
  return text;
}

const std::vector<std::string>& dictionary() {
  static const std::vector<std::string> words = [] {
    std::ifstream in(text_file("words"));
    return std::vector<std::string>(std::istream_iterator<std::string>(in), {});
  }();
  return words;
}

const std::string& megabyte() {
  static const std::string text = prose().substr(0, 1 << 20);
  return text;
}

const std::string& noise() {
  static const std::string text = [] {
    std::string bytes;
    for (int c = 1; c < 255; ++c) bytes += static_cast<char>(c);
    return random_text(4'000'000, bytes, 1);
  }();
  return text;
}

std::string random_text(std::size_t n, std::string_view letters, unsigned seed) {
  std::mt19937 engine(seed);
  std::string text(n, '\0');
  for (char& c : text) c = letters[engine() % letters.size()];
  return text;
}

std::string fibonacci_word(std::size_t n) {
  std::string shorter = "a";
  std::string word = "ab";
  while (word.size() < n) shorter = std::exchange(word, word + shorter);
  return word.substr(0, n);
}

std::string repeated(std::string_view u, std::size_t n) {
  std::string word;
  while (word.size() < n) word += u;
  word.resize(n);
  return word;
}

std::vector<std::string> some_words(std::size_t n) {
  std::vector<std::string> words;
  std::copy_if(dictionary().begin(), dictionary().end(), std::back_inserter(words),
               [](const std::string& word) { return word.size() >= 5; });
  std::shuffle(words.begin(), words.end(), std::mt19937(2));
  words.resize(std::min(n, words.size()));
  return words;
}

std::string absent_piece(const std::string& text, std::size_t m) {
  std::mt19937 engine(static_cast<unsigned>(m));
  for (;;) {
    std::string piece = text.substr(engine() % (text.size() - m), m);
    piece[m / 2] = text[engine() % text.size()];
    if (text.find(piece) == text.npos) return piece;
  }
}

}  // namespace bench
