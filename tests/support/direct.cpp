#include "support/direct.h"

#include <cstdio>
#include <cstdlib>

#include "support/figures.h"

namespace vstring_test {
namespace {

void collect_now_and_then() {
  if (velmor_object_count(session().heap()) > 100000) velmor_collect(session().heap());
}

HostObject good_result_of(VelmorCommand command, const Values& arguments) {
  const HostObject result = result_of(command, arguments);
  if (result != 0) return result;
  std::fprintf(stderr, "a command raised: %s\n", velmor_error(session().heap()));
  std::abort();
}

std::string text_of(HostObject object) { return {velmor_text(object), velmor_text_length(object)}; }

}  // namespace

HostObject name(const std::string& text) { return velmor_name(session().heap(), text.c_str()); }

HostObject list(const Values& elements) {
  const std::vector<HostObject> objects(elements.begin(), elements.end());
  return velmor_list(session().heap(), objects.size(), objects.data());
}

HostObject equation(const Value& left, const Value& right) {
  return velmor_equation(session().heap(), left, right);
}

HostObject result_of(VelmorCommand command, const Values& arguments) {
  static double& count = figure("direct_calls");
  ++count;
  const std::vector<HostObject> objects(arguments.begin(), arguments.end());
  HostObject result = 0;
  const HostObject argseq = velmor_sequence(session().heap(), objects.size(), objects.data());
  return velmor_call(session().heap(), command, argseq, &result) != 0 ? result : 0;
}

std::string call(VelmorCommand command, const Values& arguments) {
  const HostObject result = result_of(command, arguments);
  std::string answer = result == 0 ? "error: " + std::string(velmor_error(session().heap()))
                                   : session().print(result);
  collect_now_and_then();
  return answer;
}

std::string text(VelmorCommand command, const Values& arguments) {
  std::string answer = text_of(good_result_of(command, arguments));
  collect_now_and_then();
  return answer;
}

bool truth(VelmorCommand command, const Values& arguments) {
  return text(command, arguments) == "true";
}

std::vector<std::string> texts(VelmorCommand command, const Values& arguments) {
  const HostObject list = good_result_of(command, arguments);
  std::vector<std::string> elements;
  for (std::size_t i = 1; i <= velmor_size(list); ++i) {
    elements.push_back(text_of(velmor_element(list, i)));
  }
  collect_now_and_then();
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
