// Every command on a thread with little stack, as hosts have that run many: the calls of the
// examples, then with each text in turn grown long, give what they give on a large one.
#include <gtest/gtest.h>
#include <pthread.h>

#include <chrono>
#include <functional>
#include <set>

#include "lexiva/commands.h"
#include "support/check.h"
#include "support/direct.h"
#include "support/figures.h"
#include "support/heavy_calls.h"

namespace vstring_test {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr std::size_t kStack = 256 << 10;  // frames are larger there
#else
constexpr std::size_t kStack = 48 << 10;
#endif

void run_on_thread(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(0, pthread_attr_setstacksize(&attributes, kStack));
  pthread_t thread;
  const auto run = [](void* data) -> void* {
    (*static_cast<std::function<void()>*>(data))();
    return nullptr;
  };
  ASSERT_EQ(0, pthread_create(&thread, &attributes, run, &work));
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

// Answers that differ from call to call.
const std::set<std::string> kChanging = {"random", "randperm", "randomise", "dictCreate"};

// Whether the call takes little enough for a longer text.
bool check_call(const velmor::lexiva::Command& command, VelmorCommand entry,
                const Values& arguments) {
  VelmorHeap* const heap = session().heap();
  for (const Value& argument : arguments) velmor_root(heap, argument);
  evaluate("0");  // the session learns which stack its procedures will run on
  const auto start = std::chrono::steady_clock::now();
  const std::string expected = call(entry, arguments);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  HostObject result = 0;
  run_on_thread([&] {
    evaluate("0");
    result = result_of(entry, arguments);
  });
  const std::string answer =
      result == 0 ? "error: " + std::string(velmor_error(heap)) : session().print(result);
  for (const Value& argument : arguments) velmor_unroot(heap, argument);
  EXPECT_TRUE(answer == expected || kChanging.contains(command.name)) << command.name;
  ++figure("calls_on_48_kib");
  constexpr std::size_t kLongestAnswer = 200'000;
  return taken.count() < 0.002 && expected.size() < kLongestAnswer;
}

TEST(SmallStack, IsEnoughForEveryCommand) {
  const std::size_t longest = std::size_t{long_tier() ? 10U : 1U} << 20;
  VelmorHeap* const heap = session().heap();
  for (const velmor::lexiva::Family& family : velmor::lexiva::families()) {
    for (const velmor::lexiva::Command& command : family.commands) {
      SCOPED_TRACE(command.name);
      HostObject argseq = 0;
      const auto watch = session().before_call;
      session().before_call = [&](const std::string& name, HostObject arguments) {
        if (name == command.name) argseq = arguments;
        watch(name, arguments);
      };
      evaluate(command.example);
      session().before_call = watch;
      ASSERT_NE(0U, argseq);
      const auto entry = session().find(command.name)->command;
      velmor_root(heap, argseq);
      Values arguments;
      for (std::size_t i = 1; i <= velmor_size(argseq); ++i)
        arguments.emplace_back(velmor_element(argseq, i));
      check_call(command, entry, arguments);
      for (Value& argument : arguments) {
        const Value before = argument;
        if (velmor_tag(before) != HOST_TAG_STRING || velmor_text_length(before) == 0) continue;
        for (const std::size_t n : {std::size_t{1} << 10, std::size_t{1} << 15, longest}) {
          std::string text;
          while (text.size() < n) text += velmor_text(before);
          argument = text;
          if (!check_call(command, entry, arguments)) break;
        }
        argument = before;
      }
      velmor_unroot(heap, argseq);
    }
  }
}

// The same with patterns at their limits, and with heavy calls of all commands.
TEST(SmallStack, IsEnoughForHeavyCalls) {
  const std::size_t n = std::size_t{long_tier() ? 10U : 1U} << 20;
  for (const auto& calls : {limit_calls(100'000), linear_calls(n), other_calls()}) {
    for (const std::string& call : calls) {
      const std::string expected = evaluate(call);
      std::string answer;
      EXPECT_FALSE(expected.starts_with("error")) << call << expected;
      run_on_thread([&] { answer = evaluate(call); });
      EXPECT_TRUE(answer == expected || never_the_same(call)) << call << answer.substr(0, 80);
      ++figure("calls_on_48_kib");
    }
  }
}

}  // namespace
}  // namespace vstring_test
