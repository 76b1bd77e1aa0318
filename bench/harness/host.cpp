#include "harness/host.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace bench {
namespace {

std::vector<HostObject>& roots() {
  static std::vector<HostObject> all;
  return all;
}

HostObject rooted(HostObject object) {
  velmor_root(heap(), object);
  roots().push_back(object);
  return object;
}

}  // namespace

VelmorHeap* heap() {
  static VelmorHeap* const one = [] {
    VelmorHeap* const made = velmor_heap_new();
    velmor_set_userinfo(
        made, [](void*, std::int64_t, const char*, const char*) {}, nullptr);
    return made;
  }();
  return one;
}

const HostTable* table() {
  static const HostTable* const one = velmor_table(heap());
  return one;
}

HostObject argument(std::string_view text) {
  return rooted(velmor_string_n(heap(), text.data(), text.size()));
}

HostObject argument(const char* text) { return argument(std::string_view(text)); }

HostObject argument(std::int64_t value) { return rooted(velmor_integer(heap(), value)); }

HostObject argument(const std::vector<std::string>& texts) {
  std::vector<HostObject> items;
  for (const std::string& text : texts) items.push_back(argument(text));
  return rooted(velmor_list(heap(), items.size(), items.data()));
}

HostObject name(const char* text) { return velmor_name(heap(), text); }

HostObject equation(HostObject left, HostObject right) {
  return rooted(velmor_equation(heap(), left, right));
}

void release_arguments() {
  for (const HostObject object : roots()) velmor_unroot(heap(), object);
  roots().clear();
  velmor_collect(heap());
}

Work call(VelmorCommand command, const std::vector<HostObject>& arguments) {
  const HostObject argseq = rooted(velmor_sequence(heap(), arguments.size(), arguments.data()));
  return [=] {
    HostObject answer = 0;
    if (velmor_call(heap(), command, argseq, &answer) == 0) {
      std::fprintf(stderr, "refused: %s\n", velmor_error(heap()));
      std::exit(2);
    }
    return answer;
  };
}

std::string printed(HostObject object) {
  char* const text = velmor_print(heap(), object);
  std::string copy = text;
  std::free(text);
  return copy;
}

std::string printed_in_any_order(HostObject object) {
  std::vector<std::string> elements;
  for (std::size_t i = 1; i <= velmor_size(object); ++i) {
    elements.push_back(printed(velmor_element(object, i)));
  }
  std::sort(elements.begin(), elements.end());
  std::string all;
  for (const std::string& element : elements) all += element + "\n";
  return all;
}

}  // namespace bench
