// Texts of hosts that round sizes up, or leave what is behind a terminator as it was.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "heap/velmor_runtime.h"
#include "host/vstring.h"

namespace vstring_test {
namespace {

std::string answers(VelmorHeap* heap, const std::string& text) {
  std::string all;
  for (const VelmorCommand command :
       {vstring_length, vstring_reverse, vstring_sort, vstring_regsplit, vstring_casesplit}) {
    const HostObject argument = velmor_string(heap, text.c_str());
    const HostObject arguments[] = {argument, argument};
    HostObject result = 0;
    velmor_call(heap, command, velmor_sequence(heap, 2, arguments), &result);
    char* const printed = velmor_print(heap, result);
    all += printed + std::string(" ");
    std::free(printed);
  }
  return all;
}

TEST(TextLayout, ChangesNoAnswer) {
  VelmorHeap* const heap = velmor_heap_new();
  for (std::size_t n = 0; n <= 40; ++n) {
    const std::string text = std::string(n, 'x').replace(n / 2, n > 0 ? 1 : 0, "Y");
    velmor_set_text_layout(heap, 1, 0);
    const std::string expected = answers(heap, text);
    EXPECT_EQ(std::to_string(text.size()) + " ", expected.substr(0, expected.find(' ') + 1));
    for (const std::size_t words : {2U, 4U, 8U, 64U}) {
      velmor_set_text_layout(heap, words, 0);
      EXPECT_EQ(expected, answers(heap, text)) << n << " in a multiple of " << words << " words";
    }
    for (const int filler : {1, 120, 128, 255}) {
      velmor_set_text_layout(heap, 1, static_cast<unsigned char>(filler));
      EXPECT_EQ(expected, answers(heap, text)) << n << " with " << filler << " behind it";
    }
  }
  velmor_heap_free(heap);
}

}  // namespace
}  // namespace vstring_test
