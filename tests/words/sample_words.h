// Longer words with and without structure.
#pragma once
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace vstring_test {

inline std::string random_word(std::size_t n, unsigned letters, unsigned seed) {
  std::mt19937 engine(seed);
  std::string word(n, '\0');
  for (char& c : word) c = static_cast<char>((letters > 26 ? 1 : 'a') + engine() % letters);
  return word;
}

// The prefix of length n of the Fibonacci word abaababa...
inline std::string fibonacci_word(std::size_t n) {
  std::string shorter = "a";
  std::string word = "ab";
  while (word.size() < n) shorter = std::exchange(word, word + shorter);
  return word.substr(0, n);
}

// u repeated up to length n.
inline std::string periodic_word(const std::string& u, std::size_t n) {
  std::string word;
  while (word.size() < n) word += u;
  return word.substr(0, n);
}

inline std::vector<std::string> sample_words(std::size_t n) {
  const auto seed = static_cast<unsigned>(n);
  return {random_word(n, 2, seed),
          random_word(n, 255, seed),
          fibonacci_word(n),
          std::string(n, 'a'),
          std::string(n - 1, 'a') + "b",
          "b" + std::string(n - 1, 'a'),
          periodic_word(random_word(37, 2, seed), n),
          periodic_word(random_word(n / 3, 3, seed), n),
          periodic_word(fibonacci_word(89), n),
          std::string(n / 2, 'b') + std::string(n - n / 2, '\xc8')};
}

}  // namespace vstring_test
