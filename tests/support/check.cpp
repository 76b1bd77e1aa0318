#include "support/check.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>
#include <utility>

#include "support/allocations.h"
#include "support/figures.h"
#include "support/fingerprint.h"

namespace vstring_test {
namespace {

std::uint64_t arguments_before = 0;

void check_arguments(const std::string& command, HostObject argseq) {
  EXPECT_EQ(arguments_before, fingerprint(argseq)) << command << " changed its arguments";
}

bool is_error(const std::string& answer) { return answer.starts_with("error: "); }

void check_sound(const Row& row) { EXPECT_STREQ("", velmor_faults(session().heap())) << row.call; }

std::string attempt(const Row& row) {
  std::string answer = evaluate(row.call);
  if (!row.undo.empty() && !is_error(answer)) evaluate(row.undo);
  return answer;
}

// Live blocks and protections after an outermost call, which takes back what an abandoned one left.
std::pair<std::size_t, std::size_t> holdings() {
  evaluate("length(\"\")");
  velmor_collect(session().heap());
  return {live_blocks(), velmor_protected_count(session().heap())};
}

// Watches every call of the session.
struct Watch : testing::Environment {
  bool is_failing = false;
  std::set<std::string> failed;  // commands
  void SetUp() override {
    session().before_call = [this](const std::string& command, HostObject argseq) {
      arguments_before = fingerprint(argseq);
      if (is_failing && failed.insert(command).second) ++figure("failed_commands");
    };
    session().after_call = check_arguments;
  }
};
auto* const watch = static_cast<Watch*>(testing::AddGlobalTestEnvironment(new Watch));

// Runs the row with its k-th operation failing, for every k until none fails any more; behind the
// first few, for every second, third ... of them.
template <typename Arm, typename Failed, typename Acceptable>
void fail_each(const Row& row, std::size_t first, double& count, Arm arm, Failed failed,
               Acceptable acceptable) {
  for (std::size_t k = 1;; k += 1 + k / first) {
    std::pair<std::size_t, std::size_t> held[2];
    for (auto& after : held) {
      arm(k);
      watch->is_failing = true;
      const std::string answer = evaluate(row.call);
      watch->is_failing = false;
      const bool has_failed = failed();
      arm(0);
      if (!row.undo.empty() && !is_error(answer)) evaluate(row.undo);
      if (!has_failed) return;
      ++count;
      EXPECT_TRUE(acceptable(answer)) << row.call << ", failure " << k << ": " << answer;
      check_sound(row);
      after = holdings();
    }
    EXPECT_EQ(held[0], held[1]) << row.call << " leaks at failure " << k;
    ASSERT_EQ(row.expected, attempt(row)) << "after failure " << k;
  }
}

// By a jump, and by an exception.
void fail_operations(const Row& row, std::size_t first) {
  VelmorHeap* const heap = session().heap();
  std::size_t last = 0;
  const auto arm = [&](std::size_t k) {
    last = k == 0 ? 0 : velmor_operation_count(heap) + k;
    velmor_fail_operation(heap, k);
  };
  const auto failed = [&] { return velmor_operation_count(heap) >= last; };
  for (const bool throws : {false, true}) {
    velmor_raise_by_exception(heap, throws ? 1 : 0);
    fail_each(row, first, figure(throws ? "raised_by_exception" : "raised_by_longjmp"), arm, failed,
              [](const std::string& answer) { return answer == "error: injected failure"; });
  }
  velmor_raise_by_exception(heap, 0);
}

// What commands say when memory fails.
const std::set<std::string> kNoMemory = {
    "error: out of memory",
    "error: cannot preprocess pattern list",
    "error: cannot compile regular expression: out of space",
    "error: cannot execute compiled regular expression: out of space",
};

// One allocation, or this one and all after it.
void fail_allocations(const Row& row, std::size_t first) {
  for (const bool for_good : {false, true}) {
    const auto arm = [&](std::size_t k) { fail_allocation(k, for_good); };
    fail_each(row, first, figure("failed_allocations"), arm, allocation_failed,
              [&](const std::string& answer) {
                return kNoMemory.contains(answer) || answer == row.expected ||
                       (!row.without_memory.empty() && answer == row.without_memory);
              });
  }
}

}  // namespace

void Check(const std::vector<Row>& rows, std::size_t first) {
  CheckInOrder(rows);
  for (const Row& row : rows) {
    fail_operations(row, first);
    fail_allocations(row, first);
  }
}

void CheckRefusals(const std::vector<Refusal>& refusals) {
  for (const auto& [message, calls] : refusals) {
    for (const std::string& call : separate(calls)) Check({{call, "error: " + message}});
  }
}

void CheckWords(const std::string& command, const std::string& pairs) {
  std::istringstream in(pairs + ' ');
  for (std::string from, to; std::getline(in, from, '/') && std::getline(in, to, ' ');) {
    Check({{command + "(" + vstring_test::quoted(from) + ")", vstring_test::quoted(to)}});
  }
}

void CheckIdentity(const std::vector<Identity>& rows) {
  VelmorHeap* const heap = session().heap();
  const HostObject x = velmor_name(heap, "x");
  for (const Identity& row : rows) {
    for (const bool is_string : {true, false}) {
      velmor_assign(heap, x, (is_string ? velmor_string : velmor_name)(heap, row.x.c_str()));
      const auto check = [&](const std::string& calls, bool itself) {
        for (const std::string& call : separate(calls)) {
          EXPECT_EQ(itself, session().evaluate(call).value == velmor_value(heap, x))
              << call << " of " << evaluate("x");
        }
      };
      check(row.always, true);
      check(row.strings, is_string);
      check(row.never, false);
    }
  }
  velmor_assign(heap, x, 0);
}

void CheckInOrder(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(row.expected, attempt(row)) << row.call;
    check_sound(row);
  }
}

bool long_tier() {
  const char* const flag = std::getenv("VSTRING_LONG_TESTS");
  return flag != nullptr && flag[0] == '1';
}

}  // namespace vstring_test
