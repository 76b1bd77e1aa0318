#include "support/check.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <sstream>

#include "support/allocations.h"
#include "support/fingerprint.h"

namespace vstring_test {
namespace {

constexpr std::size_t kMaxFailures = 60;  // per row and kind; long rows repeat themselves

VelmorCommand resolve(const std::string& entry_point) {
  return reinterpret_cast<VelmorCommand>(dlsym(RTLD_DEFAULT, entry_point.c_str()));
}

std::uint64_t arguments_before = 0;

void note_call(const std::string&, HostObject argseq) { arguments_before = fingerprint(argseq); }

void check_arguments(const std::string& command, HostObject argseq) {
  EXPECT_EQ(arguments_before, fingerprint(argseq)) << command << " changed its arguments";
}

// An outermost call, after which the blocks of an abandoned one must be gone.
std::size_t live_after_next_call() {
  evaluate("length(\"\")");
  velmor_collect(session().heap());
  return live_blocks();
}

void check_sound(const Row& row) { EXPECT_STREQ("", velmor_faults(session().heap())) << row.call; }

// Runs the row with its k-th operation failing, for every k until none fails any more.
template <typename Arm, typename Failed, typename Acceptable>
void fail_each(const Row& row, Arm arm, Failed failed, Acceptable acceptable) {
  for (std::size_t k = 1; k <= kMaxFailures; ++k) {
    std::size_t live[2] = {};
    for (std::size_t& after : live) {
      arm(k);
      const std::string answer = evaluate(row.call);
      const bool has_failed = failed();
      arm(0);
      if (!has_failed) return;
      EXPECT_TRUE(acceptable(answer)) << row.call << ", failure " << k << ": " << answer;
      check_sound(row);
      after = live_after_next_call();
    }
    EXPECT_EQ(live[0], live[1]) << row.call << " leaks at failure " << k;
    EXPECT_EQ(row.expected, evaluate(row.call)) << "after failure " << k;
  }
}

void fail_operations(const Row& row) {
  VelmorHeap* const heap = session().heap();
  std::size_t last = 0;
  const auto arm = [&](std::size_t k) {
    last = k == 0 ? 0 : velmor_operation_count(heap) + k;
    velmor_fail_operation(heap, k);
  };
  const auto failed = [&] { return velmor_operation_count(heap) >= last; };
  fail_each(row, arm, failed,
            [](const std::string& answer) { return answer == "error: injected failure"; });
}

// What commands say when memory fails.
const std::set<std::string> kNoMemory = {
    "error: out of memory",
    "error: cannot preprocess pattern list",
    "error: cannot compile regular expression: out of space",
    "error: cannot execute compiled regular expression: out of space",
};

void fail_allocations(const Row& row) {
  fail_each(row, fail_allocation, allocation_failed, [&](const std::string& answer) {
    return kNoMemory.contains(answer) || answer == row.expected ||
           (!row.without_memory.empty() && answer == row.without_memory);
  });
}

}  // namespace

velmor::Session& session() {
  static velmor::Session* const shared = [] {
    auto* const made = new velmor::Session(resolve);
    made->symbolic = true;
    made->before_call = note_call;
    made->after_call = check_arguments;
    return made;
  }();
  return *shared;
}

std::string evaluate(const std::string& call) { return session().evaluate(call).text; }

void Check(const std::vector<Row>& rows) {
  CheckInOrder(rows);
  for (const Row& row : rows) {
    fail_operations(row);
    fail_allocations(row);
  }
}

void CheckRefusals(const std::vector<Refusal>& refusals) {
  const std::string separator = "; ";
  for (const auto& [message, calls] : refusals) {
    for (std::size_t at = 0, end = 0; end != std::string::npos; at = end + separator.size()) {
      end = calls.find(separator, at);
      Check({{calls.substr(at, end - at), "error: " + message}});
    }
  }
}

void CheckWords(const std::string& command, const std::string& pairs) {
  std::istringstream in(pairs + ' ');
  for (std::string from, to; std::getline(in, from, '/') && std::getline(in, to, ' ');) {
    Check({{command + "(" + vstring_test::quoted(from) + ")", vstring_test::quoted(to)}});
  }
}

void CheckInOrder(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(row.expected, evaluate(row.call)) << row.call;
    check_sound(row);
  }
}

bool long_tier() {
  const char* const flag = std::getenv("VSTRING_LONG_TESTS");
  return flag != nullptr && flag[0] == '1';
}

std::string quoted(const std::string& bytes) {
  char* const printed =
      velmor_print(session().heap(), velmor_string_n(session().heap(), bytes.data(), bytes.size()));
  std::string text = printed;
  std::free(printed);
  return text;
}

}  // namespace vstring_test
