// Commands that the host calls while it carries out an operation for another one: from a finaliser
// that it runs before it makes a string, say, or from a procedure that it evaluates.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdarg>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "language/session.h"
#include "lexiva/commands.h"
#include "support/allocations.h"
#include "support/session.h"

namespace vstring_test {
namespace {

// A session whose commands get a table that calls `meanwhile` in each of its operations.
class DisturbedHost {
 public:
  DisturbedHost() {
    session_.symbolic = true;
    velmor_set_userinfo(
        heap(), [](void*, std::int64_t, const char*, const char*) {}, nullptr);
    session_.before_call = [this](const std::string&, HostObject) { operations_ = 0; };
    real_ = disturbed_ = *velmor_table(heap());
    disturb<&HostTable::HostAssign, &HostTable::HostSeqToList, &HostTable::HostIsInteger,
            &HostTable::HostIsInteger32, &HostTable::HostNewList, &HostTable::HostListAssign,
            &HostTable::HostGcProtect, &HostTable::HostToInteger32, &HostTable::HostNumArgs,
            &HostTable::HostToBoolean, &HostTable::HostNewExpSeq, &HostTable::HostNewInteger,
            &HostTable::HostNewName, &HostTable::HostNull, &HostTable::HostNewExpr,
            &HostTable::HostNewString, &HostTable::HostQuote, &HostTable::HostUserInfo>();
    disturbed_.HostGcAllow = allow;
    disturbed_.HostEvalProc = eval_proc;
    disturbed_.HostPrintf = print;
  }

  VelmorHeap* heap() { return session_.heap(); }
  std::string evaluate(const std::string& call) { return session_.evaluate(call).text; }

  // A command called in the ordinary way; 0 when it raised.
  HostObject call(VelmorCommand command, const std::vector<HostObject>& arguments) {
    HostObject result = 0;
    const HostObject argseq = velmor_sequence(heap(), arguments.size(), arguments.data());
    return velmor_call(heap(), command, argseq, &result) != 0 ? result : 0;
  }
  HostObject text(const char* text) { return velmor_string(heap(), text); }
  HostObject integer(std::int64_t value) { return velmor_integer(heap(), value); }

  std::function<void()> meanwhile = [] {};
  bool allow_is_calm = false;  // does nothing of this in HostGcAllow

 private:
  // The entry points, and for each a function that calls it with the other table.
  static constexpr std::size_t kRoom = 400;
  static inline std::vector<VelmorCommand> commands_;
  template <std::size_t i>
  static HostObject call_disturbed(const HostTable*, HostObject argseq) {
    return commands_[i](&disturbed_, argseq);
  }
  template <std::size_t... i>
  static constexpr std::array<VelmorCommand, kRoom> all_disturbed(std::index_sequence<i...>) {
    return {call_disturbed<i>...};
  }
  static VelmorCommand resolve(const std::string& entry_point) {
    static constexpr auto kDisturbed = all_disturbed(std::make_index_sequence<kRoom>());
    void* const entry = dlsym(RTLD_DEFAULT, entry_point.c_str());
    commands_.push_back(reinterpret_cast<VelmorCommand>(entry));
    return kDisturbed.at(commands_.size() - 1);
  }

  static void disturb_once();

  template <auto Operation>
  struct Disturbed;
  template <class R, class... A, R (*HostTable::*Operation)(A...)>
  struct Disturbed<Operation> {
    static R call(A... arguments) {
      disturb_once();
      return (real_.*Operation)(arguments...);
    }
  };
  template <auto... Operation>
  static void disturb() {
    ((disturbed_.*Operation = Disturbed<Operation>::call), ...);
  }

  static HostObject eval_proc(HostObject procedure, std::int64_t n, ...) {
    std::va_list list;
    va_start(list, n);
    const HostObject a = va_arg(list, HostObject);
    const HostObject b = n > 1 ? va_arg(list, HostObject) : a;
    va_end(list);
    disturb_once();
    return real_.HostEvalProc(procedure, n, a, b);
  }

  static void print(const char*, ...) { disturb_once(); }

  static void allow(HostObject object);

  velmor::Session session_{resolve};
  std::size_t operations_ = 0;  // of the running command

  static inline HostTable real_, disturbed_;
};

DisturbedHost& host() {
  static auto* const shared = [] {
    vstringRelease(velmor_table(session().heap()));  // nothing is remembered of another heap
    return new DisturbedHost;
  }();
  return *shared;
}

void DisturbedHost::disturb_once() {
  constexpr std::size_t kEnough = 40;  // of a command's operations: all that do not repeat
  if (++host().operations_ > kEnough) return;
  const std::function<void()> calls = std::exchange(host().meanwhile, [] {});
  calls();
  host().meanwhile = calls;
}

void DisturbedHost::allow(HostObject object) {
  if (!host().allow_is_calm) disturb_once();
  real_.HostGcAllow(object);
}

// Short and long texts, everything that is remembered from call to call, and calls that are
// abandoned.
void call_a_bit_of_everything() {
  host().call(vstring_fill, {host().text("#"), host().integer(3000)});
  host().call(vstring_fill, {host().text("#"), host().integer(9000)});
  host().call(vstring_fmtmsg, {host().text("%1 %-1 %0"), host().integer(7)});
  host().call(vstring_regmatch, {host().text("a*b"), host().text("aab")});
  const HostObject weight = velmor_equation(host().heap(), host().text("a"), host().integer(1));
  const HostObject weights = velmor_list(host().heap(), 1, &weight);
  host().call(vstring_wslo, {host().text("a"), host().text("b"), weights});
  const HostObject word = host().text("word");
  const HostObject id = host().call(vstring_dictCreate, {velmor_list(host().heap(), 1, &word)});
  host().call(vstring_dictObjFree, {id});
  for (const std::size_t k : {3U, 6U, 8U, 9U}) {
    velmor_fail_operation(host().heap(), k);
    EXPECT_EQ(0U, host().call(vstring_fmtmsg, {host().text("%1"), host().integer(7)}));
  }
  velmor_fail_operation(host().heap(), 0);
}

// What stays behind when nothing is remembered any more: protected objects and blocks.
std::pair<std::size_t, std::size_t> left_behind() {
  vstringRelease(velmor_table(host().heap()));
  return {velmor_protected_count(host().heap()), live_blocks()};
}

TEST(NestedCalls, DisturbNoAnswer) {
  call_a_bit_of_everything();
  const auto before = left_behind();
  testing::internal::CaptureStdout();
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      host().meanwhile = call_a_bit_of_everything;
      EXPECT_EQ(command.result, host().evaluate(command.example)) << command.name;
      EXPECT_STREQ("", velmor_faults(host().heap())) << command.name;
      host().meanwhile = [] {};
      EXPECT_EQ(before, left_behind()) << command.name;
    }
  }
  testing::internal::GetCapturedStdout();
}

HostObject dictionary(const char* word) {
  const HostObject text = host().text(word);
  return velmor_list(host().heap(), 1, &text);
}

// Two commands that ask for a number at the same time get two.
TEST(NestedCalls, MakeDictionariesOfTheirOwn) {
  const auto before = left_behind();
  host().meanwhile = [] { host().call(vstring_dictCreate, {dictionary("inner")}); };
  const std::string outer = host().evaluate("dictCreate([\"outer\"])");
  host().meanwhile = [] {};
  EXPECT_EQ("\"outer\"", host().evaluate("dictObjGet(" + outer + ", 1)"));
  EXPECT_EQ("\"inner\"", host().evaluate("dictObjGet(1, 1)"));
  EXPECT_EQ(before, left_behind());
}

// An operation that is left by a C++ exception: each of the first of every command in turn.
// HostGcAllow alone may not raise.
TEST(Exceptions, MayPassThroughEveryCommand) {
  const auto before = left_behind();
  host().allow_is_calm = true;
  testing::internal::CaptureStdout();
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      bool has_thrown = true;
      for (int k = 1; has_thrown && k <= 40; ++k) {
        has_thrown = false;
        int left = k;
        host().meanwhile = [&] {
          if (--left == 0) throw k;
        };
        try {
          EXPECT_EQ(command.result, host().evaluate(command.example)) << command.name;
        } catch (int) {
          has_thrown = true;
        }
        host().meanwhile = [] {};
        host().evaluate("length(\"\")");
        EXPECT_EQ(before, left_behind()) << command.name << ", operation " << k;
      }
      EXPECT_EQ(command.result, host().evaluate(command.example)) << command.name;
    }
  }
  host().allow_is_calm = false;
  left_behind();
  testing::internal::GetCapturedStdout();
}

}  // namespace
}  // namespace vstring_test
