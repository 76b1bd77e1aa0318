#include "language/session.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <new>

#include "heap/object.h"
#include "language/checker.h"
#include "language/parser.h"
#include "language/script.h"
#include "language/suggest.h"

namespace velmor {
namespace {

// Less garbage than this is not worth a collection.
constexpr std::size_t kLeastObjects = 10'000;
constexpr std::size_t kLeastBytes = std::size_t{16} << 20;

}  // namespace

Session::Session(const Resolver& resolver)
    : display([this](HostObject object) { return print(object); }),
      heap_(velmor_heap_new()),
      out_(&std::cout),
      collect_at_objects_(kLeastObjects),
      collect_at_bytes_(kLeastBytes) {
  if (heap_ == nullptr) throw std::bad_alloc();
  null_ = velmor_sequence(heap(), 0, nullptr);
  velmor_root(heap(), null_);
  null_name_ = velmor_name(heap(), "NULL");
  velmor_protect(heap(), null_name_);
  velmor_set_evaluator(heap(), evaluate_procedure, this);
  bind_builtins();
  bind_commands(resolver);
  for (const auto& [name, function] : functions_) velmor_protect(heap(), name);
}

Session::~Session() = default;

const Callable* Session::find(const std::string& name) {
  const auto found = functions_.find(velmor_name(heap(), name.c_str()));
  return found == functions_.end() ? nullptr : &found->second;
}

bool Session::is_protected(const std::string& name) {
  return velmor_is_protected(velmor_name(heap(), name.c_str())) != 0;
}

bool Session::has_value(const std::string& name) {
  return velmor_value(heap(), velmor_name(heap(), name.c_str())) != 0;
}

void Session::remove(const std::string& name) {
  functions_.erase(velmor_name(heap(), name.c_str()));
}

UnknownCommand Session::unknown(const std::string& name) {
  std::vector<std::string> known;
  for (const auto& [object, function] : functions_) known.emplace_back(velmor_text(object));
  std::ranges::sort(known);
  const std::string meant = nearest(name, known);
  return UnknownCommand("no command " + name +
                        (meant.empty() ? "" : "; did you mean " + meant + "?"));
}

Outcome Session::evaluate(std::string_view expression) {
  if (last_value_ != 0) velmor_unroot(heap(), std::exchange(last_value_, 0));
  collect_garbage();
  try {
    const HostObject value = value_of(prepare(expression));
    velmor_root(heap(), value);
    last_value_ = value;
    return {true, value, print(value)};
  } catch (const Failure& failure) {
    return {false, 0, std::string("error: ") + failure.what()};
  }
}

Verdict Session::run(std::string_view source, std::ostream& out, std::ostream& err,
                     const std::string& name) {
  Script script(*this, out, err, name);
  script.feed(source);
  return script.finish();
}

void Session::execute(std::string_view statement, bool prints, std::ostream& out) {
  Expression expression(heap(), parse_statement(statement));
  Checker checker(*this);
  checker.learn(*expression.tree_);
  checker.check(*expression.tree_);
  bind(*expression.tree_, nullptr);
  execute(*expression.tree_, prints, out);
}

void Session::execute(const Node& tree, bool prints, std::ostream& out) {
  collect_garbage();
  if (tree.kind == NodeKind::kFor) return loop(tree, prints, out);
  out_ = &out;
  begin_evaluation();
  const HostObject value = outermost_value(tree);
  if (!prints) return;
  const bool assigns = tree.kind == NodeKind::kAssign;
  if (write_value) {
    if (!assigns) write_value(out, value);
  } else if (assigns) {
    out << print(tree.object) << " := " << display(value) << '\n';
  } else if (!is_null(value)) {
    out << display(value) << '\n';
  }
}

// Runs over the items of a list or set, or of a sequence, which any other value is one of.
void Session::loop(const Node& tree, bool prints, std::ostream& out) {
  begin_evaluation();
  const HostObject items = value(*tree.parts[0]);
  const bool single = elements_of(items) == 0;
  velmor_root(heap(), items);
  const auto unroot = [this](const HostObject* object) { velmor_unroot(heap(), *object); };
  const std::unique_ptr<const HostObject, decltype(unroot)> rooted(&items, unroot);
  for (std::size_t i = 1; i <= (single ? 1 : velmor_size(items)); ++i) {
    velmor_assign(heap(), tree.object, single ? items : velmor_element(items, i));
    for (std::size_t part = 1; part < tree.parts.size(); ++part)
      execute(*tree.parts[part], prints && tree.parts[part]->prints, out);
  }
}

void Session::begin_evaluation() {
  stack_.clear();
  locals_.clear();
  frame_ = nesting_ = 0;
  stack_base_ = static_cast<const char*>(__builtin_frame_address(0));
}

Expression Session::prepare(std::string_view statement) {
  Expression expression(heap(), parse_statement(statement));
  expression.first_procedure_ = procedures_.size();
  bind(*expression.tree_, nullptr);
  expression.end_of_procedures_ = procedures_.size();
  return expression;
}

void Session::forget(Expression expression) {
  for (std::size_t i = expression.first_procedure_; i < expression.end_of_procedures_; ++i) {
    Expression::Release{heap()}(procedures_[i].body.release());
    procedures_[i] = {};
  }
  // Numbers before one that is in use stay taken.
  while (!procedures_.empty() && procedures_.back().body == nullptr) procedures_.pop_back();
}

HostObject Session::value_of(const Expression& expression) {
  begin_evaluation();
  return value(*expression.tree_);
}

HostObject Session::outermost_value_of(const Expression& expression) {
  begin_evaluation();
  return outermost_value(*expression.tree_);
}

std::string Session::print(HostObject object) {
  const std::unique_ptr<char, decltype(&std::free)> text(velmor_print(heap(), object), &std::free);
  if (text == nullptr) throw Failure("out of memory");
  return text.get();
}

bool Session::is_null(HostObject object) {
  return velmor_tag(object) == HOST_TAG_SEQUENCE && velmor_size(object) == 0;
}

void Session::collect_garbage() {
  if (velmor_object_count(heap()) < collect_at_objects_ &&
      velmor_object_bytes(heap()) < collect_at_bytes_)
    return;
  velmor_collect(heap());
  collect_at_objects_ = std::max(kLeastObjects, 2 * velmor_object_count(heap()));
  collect_at_bytes_ = std::max(kLeastBytes, 2 * velmor_object_bytes(heap()));
}

}  // namespace velmor
