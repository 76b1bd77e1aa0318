#include "expression.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "language/failure.h"
#include "language/lexer.h"

namespace vstring_sqlite {
namespace {

// n of a name _n; 0 when it is none.
std::size_t argument_number(std::string_view name) {
  std::size_t number = 0;
  if (!name.starts_with('_') || name.starts_with("_0")) return 0;
  const char* const end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data() + 1, end, number);
  return error == std::errc() && stop == end ? number : 0;
}

// Takes the values of all names away at the end of the scope.
class Assignments {
 public:
  explicit Assignments(VelmorHeap* heap) : heap_(heap) {}
  ~Assignments() {
    const auto unassign = [](void* heap, HostObject name) {
      velmor_assign(static_cast<VelmorHeap*>(heap), name, 0);
    };
    velmor_each_value(heap_, unassign, heap_);
  }
  Assignments(const Assignments&) = delete;
  Assignments& operator=(const Assignments&) = delete;

 private:
  VelmorHeap* heap_;
};

}  // namespace

Expression::Expression(std::string_view source) {
  Use use;
  velmor::Lexer lexer(source);
  for (velmor::Token token; (token = lexer.next()).kind != velmor::TokenKind::kEnd;) {
    const bool is_name = token.kind == velmor::TokenKind::kName;
    if (const std::size_t n = is_name ? argument_number(token.text) : 0; n > 0)
      names_.emplace_back(n, velmor_name(use.heap(), token.text.c_str()));
  }
  std::ranges::sort(names_);
  prepared_ = use.session().prepare(source);
}

Expression::~Expression() {
  Use use;
  use.session().forget(std::move(*prepared_));
}

HostObject Expression::value(Use& use, Arguments arguments) {
  if (!names_.empty() && names_.back().first > arguments.size())
    throw velmor::Failure("the expression asks for _" + std::to_string(names_.back().first) +
                          ", but got " + std::to_string(arguments.size()) + " behind it");
  std::vector<HostObject>& objects = use.arguments();
  append_objects(objects, use.heap(), arguments, "_");
  const Assignments assignments(use.heap());
  for (const auto& [n, name] : names_) velmor_assign(use.heap(), name, objects[n - 1]);
  return use.session().outermost_value_of(*prepared_);
}

}  // namespace vstring_sqlite
