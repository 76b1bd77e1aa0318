#include "support/direct.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vstring_test {
namespace {

void collect_now_and_then(VelmorHeap* heap) {
  if (velmor_object_count(heap) > 100000) velmor_collect(heap);
}

std::vector<HostObject> strings(const std::vector<std::string>& texts) {
  VelmorHeap* const heap = session().heap();
  collect_now_and_then(heap);
  std::vector<HostObject> arguments;
  for (const std::string& t : texts) {
    arguments.push_back(velmor_string_n(heap, t.data(), t.size()));
  }
  return arguments;
}

HostObject result_from(VelmorCommand command, const std::vector<std::string>& texts) {
  const HostObject result = result_of(command, strings(texts));
  if (result == 0) ADD_FAILURE() << velmor_error(session().heap());
  return result;
}

std::string text_of(HostObject object) { return {velmor_text(object), velmor_text_length(object)}; }

}  // namespace

HostObject result_of(VelmorCommand command, const std::vector<HostObject>& arguments) {
  VelmorHeap* const heap = session().heap();
  HostObject result = 0;
  const HostObject argseq = velmor_sequence(heap, arguments.size(), arguments.data());
  return velmor_call(heap, command, argseq, &result) != 0 ? result : 0;
}

std::string call(VelmorCommand command, const std::vector<HostObject>& arguments) {
  VelmorHeap* const heap = session().heap();
  const HostObject result = result_of(command, arguments);
  std::string text = "error: ";
  if (result == 0) {
    text += velmor_error(heap);
  } else {
    char* const printed = velmor_print(heap, result);
    text = printed;
    std::free(printed);
  }
  collect_now_and_then(heap);
  return text;
}

std::string answer(VelmorCommand command, const std::vector<std::string>& texts) {
  return call(command, strings(texts));
}

std::int64_t integer(VelmorCommand command, const std::vector<std::string>& texts) {
  return velmor_to_integer(result_from(command, texts));
}

bool truth(VelmorCommand command, const std::vector<std::string>& texts) {
  return text(command, texts) == "true";
}

std::string text(VelmorCommand command, const std::vector<std::string>& texts) {
  return text_of(result_from(command, texts));
}

std::vector<std::string> texts(VelmorCommand command, const std::vector<std::string>& texts) {
  const HostObject list = result_from(command, texts);
  std::vector<std::string> elements;
  for (std::size_t i = 1; i <= velmor_size(list); ++i) {
    elements.push_back(text_of(velmor_element(list, i)));
  }
  return elements;
}

std::vector<std::int64_t> integers(VelmorCommand command, const std::vector<std::string>& texts) {
  const HostObject list = result_from(command, texts);
  std::vector<std::int64_t> elements;
  for (std::size_t i = 1; i <= velmor_size(list); ++i) {
    elements.push_back(velmor_to_integer(velmor_element(list, i)));
  }
  return elements;
}

std::vector<std::string> all_words(std::string_view alphabet, std::size_t longest) {
  std::vector<std::string> words = {""};
  std::size_t shorter = 0;  // the words one letter shorter begin here
  for (std::size_t n = 1; n <= longest; ++n) {
    const std::size_t end = words.size();
    for (; shorter < end; ++shorter) {
      for (const char c : alphabet) words.push_back(words[shorter] + c);
    }
  }
  return words;
}

}  // namespace vstring_test
