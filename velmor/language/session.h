// A session of the language: names with their values, the Lexiva package, evaluation.
//
// A name without a value stands for itself. Sequences flatten into whatever sequence, list, set or
// argument list they stand in; a sequence of one element is that element, and NULL is the one of
// none. Integers are added, subtracted and multiplied within 64 bits. The commands of the package
// and the language's own functions (builtins.cpp) are there from the start, and their names cannot
// be assigned.
#pragma once
#include <cstddef>
#include <deque>
#include <functional>
#include <iosfwd>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "heap/velmor_runtime.h"
#include "language/callable.h"
#include "language/failure.h"
#include "language/procedures.h"
#include "language/syntax.h"

namespace velmor {

struct Builtin;

struct Outcome {
  bool ok = false;
  HostObject value = 0;
  std::string text;  // the printed value, or "error: <message>"
};

// A statement parsed once, to be evaluated often. Must not outlive its session.
class Expression {
 public:
  Expression(Expression&&) = default;
  Expression& operator=(Expression&&) = default;

 private:
  friend class Session;
  // Keeps the constants of a tree alive.
  struct Release {
    VelmorHeap* heap;
    void operator()(Node* tree) const;
  };
  Expression(VelmorHeap* heap, std::unique_ptr<Node> tree) : tree_(tree.release(), {heap}) {}

  std::unique_ptr<Node, Release> tree_;
  std::size_t first_procedure_ = 0, end_of_procedures_ = 0;  // the numbers of those in it
};

class Session {
 public:
  // Address of the entry point with this name, such as "vstring_reverse", or null.
  using Resolver = std::function<VelmorCommand(const std::string& entry_point)>;

  // Commands whose entry point is not found stay unknown.
  explicit Session(const Resolver& resolver);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  VelmorHeap* heap() { return heap_.get(); }

  // Whether a call of a function that nobody knows stands for itself. Else it is an UnknownCommand.
  bool symbolic = false;

  // How the values of statements print; at first print(), which has only ASCII characters.
  std::function<std::string(HostObject)> display;

  // What a call of this name calls, whatever was assigned; null when it is no command and none of
  // the language's functions. Such names cannot be assigned, and some more.
  const Callable* find(const std::string& name);
  bool is_protected(const std::string& name);
  bool has_value(const std::string& name);
  // Takes a command or function away, for hosts that cannot offer it: calling it is an
  // UnknownCommand from now on.
  void remove(const std::string& name);
  UnknownCommand unknown(const std::string& name);  // with a suggestion

  // Evaluates one expression (or assignment). Its value lives until the next call of evaluate.
  Outcome evaluate(std::string_view expression);

  // Runs a script: the values of statements ended by ";" and failures are printed, each on a line
  // of its own. Statements behind one that failed run nevertheless. `name`, that of the script's
  // file if it has one, is told with every failure, and so is its line.
  Verdict run(std::string_view source, std::ostream& out, std::ostream& err,
              const std::string& name = {});

  // The parts of evaluate, for those who evaluate often. The value lives until the next
  // collect_garbage. prepare throws SyntaxError, value_of Failure.
  Expression prepare(std::string_view statement);
  // Ends an expression and its procedures, which are kept for good otherwise. No value may be left
  // that came of it and holds one.
  void forget(Expression expression);
  HostObject value_of(const Expression& expression);
  // As value_of, but when the whole expression is a call whose result is a sequence of one element,
  // that sequence: formats that tell it from its element want to know.
  HostObject outermost_value_of(const Expression& expression);
  std::string print(HostObject object);
  static bool is_null(HostObject object);  // the empty sequence

  // Collects when enough was made since the last time to make it worth while.
  void collect_garbage();

  // When set, writes what run would print: the outermost values of all statements but assignments,
  // NULL included.
  std::function<void(std::ostream& out, HostObject value)> write_value;

  // Called right before and after each command that an expression calls, also when it raises.
  std::function<void(const std::string&command, HostObject argseq)> before_call, after_call;

 private:
  friend class Script;

  // Runs one statement as run() does, except that failures are thrown.
  void execute(std::string_view statement, bool prints, std::ostream& out);

  void execute(const Node& tree, bool prints, std::ostream& out);
  void loop(const Node& tree, bool prints, std::ostream& out);
  void begin_evaluation();

  // Turning trees to objects (evaluate.cpp).
  void bind(Node& tree, Scope* scope);
  HostObject value(const Node& tree);
  HostObject outermost_value(const Node& tree);
  HostObject unevaluated(const Node& tree);
  HostObject compound(const Node& tree, bool evaluated);
  HostObject collection(const Node& tree, bool evaluated);
  HostObject side(const Node& tree, bool evaluated, const char* op);
  HostObject arithmetic(const Node& tree, bool evaluated);
  HostObject value_of_name(HostObject name);
  HostObject value_of_local(std::size_t slot) const { return locals_[frame_ + slot]; }
  HostObject assign(const Node& tree);

  // Comparing, logic and indexing (operators.cpp).
  HostObject truth_value(bool truth);
  bool truth(const Node& tree, const std::string& op);
  HostObject logic(const Node& tree);
  HostObject comparison(const Node& tree);
  bool same(HostObject left, HostObject right);
  int compare_numbers(HostObject left, HostObject right);
  HostObject indexed(const Node& tree);
  std::size_t position(HostObject index, std::size_t size, std::int64_t least);
  HostObject slice(HostObject whole, std::size_t begin, std::size_t count);

  // Calls (call.cpp).
  HostObject call(const Node& tree);
  HostObject call_known(const Callable& callable, HostObject argseq);
  HostObject call_value(HostObject function, HostObject argseq, const std::string& name = {});
  HostObject call_command(const Callable& command, HostObject argseq);

  // Procedures (procedures.cpp).
  void bind_procedure(Node& tree, Scope* outer);
  HostObject make_procedure(const Node& tree);
  HostObject call_procedure(HostObject procedure, HostObject argseq);
  void check_stack() const;
  static int evaluate_procedure(void* context, VelmorHeap* heap, HostObject procedure,
                                HostObject argseq, HostObject* result);

  // The language's own functions (builtins.cpp).
  void bind_commands(const Resolver& resolver);
  void bind_builtins();
  friend std::span<const Builtin> builtins();
  HostObject with(const Node& call);
  HostObject compare(const Node& call);
  HostObject size(HostObject argseq);
  HostObject apply(HostObject argseq);
  HostObject table(HostObject argseq);
  HostObject readfile(HostObject argseq);

  // Leaves the stacks as they were, also when an evaluation fails.
  class EvaluationScope {
   public:
    explicit EvaluationScope(Session& session)
        : session_(session),
          stack_(session.stack_.size()),
          locals_(session.locals_.size()),
          frame_(session.frame_) {}
    ~EvaluationScope() {
      session_.stack_.resize(stack_);
      session_.locals_.resize(locals_);
      session_.frame_ = frame_;
    }
    EvaluationScope(const EvaluationScope&) = delete;
    EvaluationScope& operator=(const EvaluationScope&) = delete;

   private:
    Session& session_;
    std::size_t stack_, locals_, frame_;
  };

  struct FreeHeap {
    void operator()(VelmorHeap* heap) const { velmor_heap_free(heap); }
  };

  std::unique_ptr<VelmorHeap, FreeHeap> heap_;
  std::unordered_map<HostObject, Callable> functions_;  // by the name object
  HostObject null_;
  HostObject null_name_;
  std::vector<HostObject> stack_;           // elements of the collections being built
  std::vector<HostObject> locals_;          // frames of the procedures being called
  std::size_t frame_ = 0;                   // where the innermost begins
  std::deque<Procedure> procedures_;        // where they are does not change
  std::size_t nesting_ = 0;                 // of evaluations that commands have asked for
  std::unique_ptr<Failure> inner_failure_;  // of the last of those that failed
  const char* stack_base_ = nullptr;        // of the machine, when evaluation began
  std::ostream* out_;                       // of the statement that runs
  HostObject last_value_ = 0;               // rooted
  std::size_t collect_at_objects_;
  std::size_t collect_at_bytes_;
};

}  // namespace velmor
