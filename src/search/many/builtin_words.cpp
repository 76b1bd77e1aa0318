#include "search/many/builtin_words.h"

#include <cstdint>
#include <cstring>

// The assembler copies the file into read-only data: no relocation per word, nothing to compile.
asm(R"(
    .pushsection .rodata
    .hidden vstring_builtin_words
    .hidden vstring_builtin_words_end
    .globl vstring_builtin_words
    .globl vstring_builtin_words_end
vstring_builtin_words:
    .incbin ")" VSTRING_WORDS_FILE R"("
vstring_builtin_words_end:
    .popsection
)");

extern "C" {
[[gnu::visibility("hidden")]] extern const vstring::Byte vstring_builtin_words[];
[[gnu::visibility("hidden")]] extern const vstring::Byte vstring_builtin_words_end[];
}

namespace vstring::search {
namespace {

// Where every 64th word begins: a compromise between 100 kB of offsets and a walk over the list.
constexpr std::size_t kStride = 64;
std::uint32_t milestones[kBuiltinWordCount / kStride + 1];
bool milestones_set = false;

void set_milestones() {
  Bytes rest = builtin_words();
  for (std::size_t k = 0; k < kBuiltinWordCount; ++k) {
    if (k % kStride == 0) {
      milestones[k / kStride] = static_cast<std::uint32_t>(rest.data() - builtin_words().data());
    }
    take_word(rest);
  }
  milestones_set = true;
}

}  // namespace

Bytes builtin_words() { return {vstring_builtin_words, vstring_builtin_words_end}; }

Bytes take_word(Bytes& words) {
  const auto* const end = static_cast<const Byte*>(std::memchr(words.data(), '\n', words.size()));
  const auto length = static_cast<std::size_t>(end - words.data());
  const Bytes word = words.first(length);
  words = words.subspan(length + 1);
  return word;
}

Bytes builtin_word(std::size_t k) {
  if (!milestones_set) set_milestones();
  Bytes rest = builtin_words().subspan(milestones[k / kStride]);
  for (std::size_t skipped = 0; skipped < k % kStride; ++skipped) take_word(rest);
  return take_word(rest);
}

}  // namespace vstring::search
