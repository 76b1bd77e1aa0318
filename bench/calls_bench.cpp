// Short calls, beside a command that does nothing.
#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

HostObject nothing(const HostTable* host, HostObject) { return host->HostToBoolean(1); }

void add(const char* row, VelmorCommand command, std::vector<const char*> texts) {
  job("short calls/" + std::string(row), [=] {
    std::vector<HostObject> arguments;
    for (const char* const text : texts) arguments.push_back(argument(text));
    return std::vector<Contestant>{{"ours", call(command, arguments)},
                                   {"an empty call", call(nothing, arguments), Does::something}};
  });
}

// Every call has another pattern than the one before.
std::vector<Contestant> new_patterns() {
  std::vector<Work> calls;
  for (char c = 'a'; c <= 'z'; ++c) {
    const std::string pattern = std::string("(f[a-z]x)+ ") + c;
    calls.push_back(call(vstring_regmatch, {argument(pattern), argument("the quick brown fox q")}));
  }
  const auto next = [=, i = std::size_t{0}]() mutable { return calls[i++ % calls.size()](); };
  return {{"ours", next},
          {"an empty call", call(nothing, {argument("a"), argument("b")}), Does::something}};
}

const Jobs added([] {
  add("length", vstring_length, {"a short text"});
  add("isprefix", vstring_isprefix, {"a sh", "a short text"});
  add("search", vstring_search, {"text", "a short text"});
  add("lowercase", vstring_lowercase, {"A Short Text"});
  add("reverse", vstring_reverse, {"a short text"});
  add("period", vstring_period, {"abcabcabca"});
  add("levenshtein 8", vstring_levenshtein, {"kittened", "sittings"});
  add("wild", vstring_wild, {"*.t[a-z]t", "notes.txt"});
  add("regmatch", vstring_regmatch, {"(f[a-z]x)+", "the quick brown fox"});
  job("short calls/regmatch, new pattern", new_patterns);
});

}  // namespace
}  // namespace bench
