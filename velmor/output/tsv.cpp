#include "output/tsv.h"

#include <string_view>

#include "heap/object.h"
#include "heap/print.h"

namespace velmor {
namespace {

void append_escaped(std::string& out, std::string_view bytes) {
  static constexpr std::string_view kSpecial = "\t\n\r\\";
  static constexpr std::string_view kLetters = "tnr\\";
  for (const char c : bytes) {
    if (const std::size_t i = kSpecial.find(c); i != kSpecial.npos)
      out += {'\\', kLetters[i]};
    else
      out += c;
  }
}

void append_field(std::string& out, HostObject item) {
  if (tag_of(item) == HOST_TAG_STRING)
    append_escaped(out, text_view(item));
  else
    append_escaped(out, print(item));
}

}  // namespace

void append_tsv(std::string& out, HostObject value) {
  const HostObject elements = elements_of(value);
  if (elements == 0) return append_field(out, value);
  bool first = true;
  for (const HostObject item : references(elements)) {
    if (!first) out += '\t';
    append_field(out, item);
    first = false;
  }
}

}  // namespace velmor
