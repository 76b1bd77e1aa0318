// Comparing, logic and indexing.
#include <cstdlib>

#include "heap/object.h"
#include "language/session.h"
#include "language/syntax.h"

namespace velmor {
namespace {

bool is_number(HostObject object) { return is_integer(object) || tag_of(object) == kTagFloat; }

bool is_collection(HostObject object) { return elements_of(object) != 0; }

std::string_view text_of_string(HostObject object) {
  return {velmor_text(object), velmor_text_length(object)};
}

}  // namespace

HostObject Session::truth_value(bool truth) {
  return velmor_name(heap(), truth ? "true" : "false");
}

bool Session::truth(const Node& tree, const std::string& op) {
  const HostObject object = value(tree);
  const std::string_view text = velmor_tag(object) == HOST_TAG_NAME ? velmor_text(object) : "";
  if (text == "true" || text == "false") return text == "true";
  throw Failure("expecting true or false beside `" + op + "', but got " + print(object));
}

HostObject Session::logic(const Node& tree) {
  const bool left = truth(*tree.parts[0], tree.text);
  if (tree.kind == NodeKind::kNot) return truth_value(!left);
  if (left == (tree.kind == NodeKind::kOr)) return truth_value(left);
  return truth_value(truth(*tree.parts[1], tree.text));
}

HostObject Session::comparison(const Node& tree) {
  const HostObject left = value(*tree.parts[0]);
  const HostObject right = value(*tree.parts[1]);
  const std::string& op = tree.text;
  if (op == "==") return truth_value(same(left, right));
  if (op == "<>") return truth_value(!same(left, right));
  int order;
  if (is_number(left) && is_number(right))
    order = compare_numbers(left, right);
  else if (tag_of(left) == HOST_TAG_STRING && tag_of(right) == HOST_TAG_STRING)
    order = text_of_string(left).compare(text_of_string(right));
  else
    throw Failure("expecting two numbers or two strings around `" + op + "', but got " +
                  print(left) + " and " + print(right));
  return truth_value((order < 0 && op[0] == '<') || (order > 0 && op[0] == '>') ||
                     (order == 0 && op.size() == 2));
}

// Numbers are the same when they are equal; other values when they print alike, which tells any two
// of them apart.
bool Session::same(HostObject left, HostObject right) {
  if (left == right) return true;
  if (is_number(left) && is_number(right)) return compare_numbers(left, right) == 0;
  if (tag_of(left) != tag_of(right)) return false;
  if (tag_of(left) == HOST_TAG_STRING) return text_of_string(left) == text_of_string(right);
  return print(left) == print(right);
}

int Session::compare_numbers(HostObject left, HostObject right) {
  if (is_immediate(left) && is_immediate(right)) {
    const std::int64_t l = immediate_value(left), r = immediate_value(right);
    return (l > r) - (l < r);
  }
  const std::string l = print(left), r = print(right);
  if (is_integer(left) && is_integer(right)) {
    const bool negative = l[0] == '-';
    if (negative != (r[0] == '-')) return negative ? -1 : 1;
    const int order = l.size() != r.size() ? (l.size() < r.size() ? -1 : 1) : l.compare(r);
    return negative ? -order : order;
  }
  const long double x = std::strtold(l.c_str(), nullptr), y = std::strtold(r.c_str(), nullptr);
  return (x > y) - (x < y);
}

// ---- Indexing ----

// A value that is neither collection nor string counts as a sequence of one, as which a command may
// have given it.
HostObject Session::indexed(const Node& tree) {
  const HostObject whole = value(*tree.parts[0]);
  const HostObject index = value(*tree.parts[1]);
  const bool is_string = tag_of(whole) == HOST_TAG_STRING;
  const std::size_t size = is_string              ? velmor_text_length(whole)
                           : is_collection(whole) ? velmor_size(whole)
                                                  : 1;
  if (tag_of(index) == HOST_TAG_RANGE) {
    const std::size_t begin = position(words(index)[1], size, 1);
    const std::size_t end = position(words(index)[2], size, 0) + 1;
    if (end < begin) throw Failure("index " + print(index) + " runs backwards");
    return slice(whole, begin, end - begin);
  }
  const std::size_t at = position(index, size, 1);
  if (at > size)
    throw Failure("index " + print(index) + " is outside of 1 .. " + std::to_string(size));
  if (is_string) return slice(whole, at, 1);
  return is_collection(whole) ? velmor_element(whole, at) : whole;
}

// A position from 1 to the size, or one place beyond: behind the end for the begin of a range,
// before the first for its end (`least` is 0). -1 is the last.
std::size_t Session::position(HostObject index, std::size_t size, std::int64_t least) {
  const auto n = static_cast<std::int64_t>(size);
  const std::int64_t given = velmor_to_integer(index);
  if (!is_integer(index))
    throw Failure("an index must be an integer or a range, not " + print(index));
  const std::int64_t at = given < 0 && given >= -n ? given + n + 1 : given;
  if (at < least || at > n + least || (given == 0 && index != immediate(0)))
    throw Failure("index " + print(index) + " is outside of 1 .. " + std::to_string(size));
  return static_cast<std::size_t>(at);
}

HostObject Session::slice(HostObject whole, std::size_t begin, std::size_t count) {
  HostObject part;
  if (tag_of(whole) == HOST_TAG_STRING) {
    part = velmor_string_n(heap(), velmor_text(whole) + begin - 1, count);
  } else if (!is_collection(whole)) {
    part = count == 1 ? whole : null_;
  } else {
    const HostObject* const items = words(elements_of(whole)) + begin;
    part = tag_of(whole) == HOST_TAG_LIST  ? velmor_list(heap(), count, items)
           : tag_of(whole) == HOST_TAG_SET ? velmor_set(heap(), count, items)
                                           : velmor_sequence(heap(), count, items);
    if (tag_of(part) == HOST_TAG_SEQUENCE && velmor_size(part) == 1) part = velmor_element(part, 1);
  }
  if (part == 0) throw Failure("out of memory");
  return part;
}

}  // namespace velmor
