// Texts, the same in every run. The real ones are files that bench/prepare makes.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

void set_text_folder(std::string folder);
std::string text_file(const char* name);  // its path

const std::string& prose();                    // the King James Bible, 4.3 MB
const std::string& dna();                      // the genome of E. coli, 4.9 MB, A, C, G and T
const std::string& source();                   // C headers
const std::vector<std::string>& dictionary();  // web2, in lower case, letters alone
const std::string& megabyte();                 // of the prose
const std::string& noise();                    // 4 MB of random bytes 1 to 254

std::string random_text(std::size_t n, std::string_view letters, unsigned seed);
std::string fibonacci_word(std::size_t n);
std::string repeated(std::string_view u, std::size_t n);  // to a length of n

// n different words of the dictionary, of at least five letters.
std::vector<std::string> some_words(std::size_t n);

// A piece of the text of m bytes with the byte in its middle changed to another one of the text, so
// that the text does not have it.
std::string absent_piece(const std::string& text, std::size_t m);

}  // namespace bench
