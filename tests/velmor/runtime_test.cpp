// The reference host's heap, printer, function table and calls.
#include "velmor_runtime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using Objects = std::vector<HostObject>;

class Runtime : public testing::Test {
 protected:
  ~Runtime() override { velmor_heap_free(heap); }

  HostObject integer(std::int64_t value) { return velmor_integer(heap, value); }
  HostObject string(const std::string& text) { return velmor_string(heap, text.c_str()); }
  HostObject name(const char* text) { return velmor_name(heap, text); }
  HostObject sequence(const Objects& items) {
    return velmor_sequence(heap, items.size(), items.data());
  }
  HostObject list(const Objects& items) { return velmor_list(heap, items.size(), items.data()); }

  std::string print(HostObject object) {
    char* text = velmor_print(heap, object);
    std::string result = text;
    std::free(text);
    return result;
  }

  // What a command yields, printed, or "error: ...".
  std::string call(VelmorCommand command, const Objects& arguments = {}) {
    HostObject result = 0;
    if (velmor_call(heap, command, sequence(arguments), &result) == 0)
      return std::string("error: ") + velmor_error(heap);
    return print(result);
  }

  VelmorHeap* heap = velmor_heap_new();
};

HostObject argument(HostObject argseq, std::size_t i) { return velmor_element(argseq, i); }
const std::uint64_t* words(HostObject object) {
  return reinterpret_cast<const std::uint64_t*>(object);
}

// ---- Objects ----

TEST_F(Runtime, TextEndsInZeroPaddingOfTheLastWord) {
  for (std::size_t n = 0; n < 40; ++n) {
    const std::string text(n, '\xff');
    for (const HostObject object : {string(text), name(text.c_str())}) {
      const std::size_t length = words(object)[0] & 0xffffffff;
      EXPECT_EQ(length, 3 + n / 8 + 1);
      EXPECT_EQ(words(object)[1], 0U);
      EXPECT_EQ(words(object)[2], 0U);
      const auto* bytes = reinterpret_cast<const char*>(words(object));
      EXPECT_EQ(std::string(bytes + 24, 8 * length - 24), text + std::string(8 - n % 8, '\0'));
      EXPECT_EQ(velmor_text_length(object), n);
    }
  }
  EXPECT_STREQ(velmor_text(velmor_string_n(heap, "ab\0c", 4)), "ab");
}

TEST_F(Runtime, IntegersAreImmediateWhileTheyFit) {
  const std::int64_t edge = std::int64_t{1} << 62;
  for (const std::int64_t value : {std::int64_t{0}, std::int64_t{-1}, edge - 1, -edge, edge,
                                   -edge - 1, INT64_MAX, INT64_MIN}) {
    const HostObject object = integer(value);
    EXPECT_EQ(object % 2 == 1, value < edge && value >= -edge) << value;
    EXPECT_EQ(velmor_tag(object), value < 0 ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE);
    EXPECT_EQ(velmor_to_integer(object), value);
    EXPECT_EQ(print(object), std::to_string(value));
    const HostObject parsed = velmor_big_integer(heap, std::to_string(value).c_str());
    EXPECT_EQ(parsed % 2, object % 2);
    EXPECT_EQ(velmor_to_integer(parsed), value);
  }
  for (const std::string digits : {"9223372036854775808", "-9223372036854775809",
                                   "-100000000000000000000000000000000000000000"}) {
    const HostObject object = velmor_big_integer(heap, digits.c_str());
    EXPECT_EQ(print(object), digits);
    EXPECT_EQ(velmor_tag(object), digits[0] == '-' ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE);
    EXPECT_EQ(velmor_to_integer(object), 0);
    EXPECT_TRUE(velmor_table(heap)->HostIsInteger(object));
    EXPECT_FALSE(velmor_table(heap)->HostIsInteger32(object));
  }
  for (const char* bad : {"", "-", "1x", " 1", "+1", "--1"})
    EXPECT_EQ(velmor_big_integer(heap, bad), 0U) << bad;
}

TEST_F(Runtime, Integer32HasItsEdges) {
  const HostTable* host = velmor_table(heap);
  for (const auto& [value, fits] : {std::pair{std::int64_t{INT32_MAX}, true},
                                    {std::int64_t{INT32_MAX} + 1, false},
                                    {std::int64_t{INT32_MIN}, true},
                                    {std::int64_t{INT32_MIN} - 1, false}})
    EXPECT_EQ(host->HostIsInteger32(integer(value)) != 0, fits) << value;
  EXPECT_FALSE(host->HostIsInteger32(string("1")));
}

TEST_F(Runtime, SequencesSpliceAndSetsDropDuplicates) {
  const HostObject pair = sequence({integer(1), sequence({})});
  EXPECT_EQ(print(list({pair, integer(2), pair})), "[1, 2, 1]");
  const Objects items = {name("a"),          string("a"), integer(1),
                         list({integer(1)}), string("a"), list({integer(1)})};
  EXPECT_EQ(print(velmor_set(heap, items.size(), items.data())), "{a, \"a\", 1, [1]}");
  EXPECT_EQ(velmor_size(list({})), 0U);
  EXPECT_EQ(words(words(list({}))[1])[0] & 0xffffffff, 1U);
}

TEST_F(Runtime, PrintsHostSyntax) {
  const HostObject x = name("x");
  const HostObject one = integer(1);
  const HostObject equation = velmor_equation(heap, x, one);
  const HostObject range = velmor_range(heap, one, integer(-2));
  const std::pair<HostObject, const char*> rows[] = {
      {string("a\"b\\\n\t\x01\x7f\xff`"), R"("a\"b\\\n\t\001\177\377`")"},
      {name("x_1"), "x_1"},
      {name("1x"), "`1x`"},
      {name(""), "``"},
      {name("a `b`"), R"(`a \`b\``)"},
      {velmor_float(heap, 2), "2.0"},
      {velmor_float(heap, -0.1), "-0.1"},
      {velmor_float(heap, 1e300), "1e+300"},
      {range, "1 .. -2"},
      {equation, "x = 1"},
      {velmor_equation(heap, range, range), "1 .. -2 = 1 .. -2"},
      {velmor_range(heap, range, equation), "(1 .. -2) .. (x = 1)"},
      {velmor_equation(heap, equation, sequence({one, x})), "(x = 1) = (1, x)"},
      {list({equation, range}), "[x = 1, 1 .. -2]"},
      {velmor_function(heap, name("f"), sequence({x, list({})})), "f(x, [])"},
      {sequence({x, one}), "x, 1"},
      {sequence({}), ""},
  };
  for (const auto& [object, text] : rows) EXPECT_EQ(print(object), text);
}

TEST_F(Runtime, DeepNestingNeedsNoDeepStack) {
  constexpr std::size_t kDepth = 1'000'000;
  HostObject object = integer(0);
  for (std::size_t i = 0; i < kDepth; ++i) object = list({object});
  EXPECT_EQ(print(object), std::string(kDepth, '[') + "0" + std::string(kDepth, ']'));
  velmor_root(heap, object);
  EXPECT_EQ(velmor_collect(heap), 0U);
  velmor_unroot(heap, object);
  EXPECT_EQ(velmor_collect(heap), 2 * kDepth);
}

// ---- Collecting ----

TEST_F(Runtime, CollectKeepsWhatIsReached) {
  const HostObject kept = list({string("kept"), velmor_equation(heap, name("x"), string("too"))});
  velmor_assign(heap, name("v"), kept);
  const HostObject attribute = string("attribute");
  velmor_set_attribute(heap, name("a"), attribute);
  const HostObject rooted = string("rooted");
  velmor_root(heap, rooted);
  velmor_root(heap, rooted);
  const std::size_t live = velmor_object_count(heap);
  for (int i = 0; i < 1000; ++i) string("dropped");
  EXPECT_EQ(velmor_collect(heap), 1000U);
  EXPECT_EQ(velmor_collect(heap), 0U);
  velmor_unroot(heap, rooted);
  EXPECT_EQ(velmor_collect(heap), 0U);  // rooted twice
  EXPECT_EQ(print(velmor_value(heap, name("v"))), "[\"kept\", x = \"too\"]");
  EXPECT_EQ(velmor_object_count(heap), live);

  velmor_unroot(heap, rooted);
  velmor_assign(heap, name("v"), 0);
  velmor_set_attribute(heap, name("a"), 0);
  EXPECT_EQ(velmor_collect(heap), live);
  EXPECT_EQ(velmor_object_bytes(heap), 0U);
  velmor_assign(heap, name("v"), string("again"));
  EXPECT_EQ(velmor_collect(heap), 0U);
}

TEST_F(Runtime, ProtectionIsCounted) {
  const VelmorCommand protect = [](const HostTable* host, HostObject args) {
    host->HostGcProtect(argument(args, 1));
    return host->HostNull();
  };
  const VelmorCommand allow = [](const HostTable* host, HostObject args) {
    host->HostGcAllow(argument(args, 1));
    return host->HostNull();
  };
  const HostObject object = string("held");
  call(protect, {object});
  call(protect, {object});
  call(allow, {object});
  EXPECT_EQ(velmor_protected_count(heap), 1U);
  velmor_collect(heap);
  EXPECT_STREQ(velmor_text(object), "held");
  EXPECT_EQ(call(allow, {object}), "");
  EXPECT_EQ(velmor_protected_count(heap), 0U);
  EXPECT_EQ(call(allow, {object}),
            "error: fault of the library: HostGcAllow of an object that is not protected");
}

TEST_F(Runtime, MemoryIsReusedAndStaysFlat) {
  for (int round = 0; round < 3; ++round) {
    for (std::size_t n = 0; n < 2000; ++n) string(std::string(n, 'x'));
    EXPECT_EQ(velmor_collect(heap), 2000U);
  }
  EXPECT_EQ(velmor_object_bytes(heap), 0U);
  const VelmorCommand collecting = [](const HostTable* host, HostObject) {
    const HostObject text = host->HostNewString("made in this call");
    host->HostEvalProc(host->HostNewName("collect", 1), 0);
    return text;
  };
  velmor_set_evaluator(
      heap,
      [](void*, VelmorHeap* in, HostObject, HostObject, HostObject* result) {
        *result = velmor_integer(in, static_cast<std::int64_t>(velmor_collect(in)));
        return 1;
      },
      nullptr);
  EXPECT_EQ(call(collecting), "\"made in this call\"");
}

// ---- The table ----

TEST_F(Runtime, TableBuildsValues) {
  const VelmorCommand build = [](const HostTable* host, HostObject args) {
    const HostObject list = host->HostNewList(2);
    host->HostListAssign(list, 2, argument(args, 1));
    const HostObject sequence = host->HostNewExpSeq(2);
    reinterpret_cast<HostObject*>(sequence)[2] = host->HostNewFloat(0.5);
    return host->HostNewSeqOf(
        8, list, host->HostSeqToList(sequence), host->HostSeqToList(host->HostNull()),
        host->HostToBoolean(7), host->HostToBoolean(0), host->HostToBoolean(-1),
        host->HostNewExpr("=", host->HostNewName("n", 1), host->HostNewInteger(INT64_MIN)),
        host->HostQuote(host->HostNewString("")));
  };
  EXPECT_EQ(call(build, {integer(3)}),
            "[3], [0.5], [], true, false, FAIL, n = -9223372036854775808, \"\"");
  EXPECT_STREQ(velmor_faults(heap), "");
}

TEST_F(Runtime, MisuseIsAFaultOfTheLibrary) {
  struct Row {
    const char* fault;
    VelmorCommand command;
  };
  const Row rows[] = {
      {"HostToInteger32 of no 32-bit integer",
       [](const HostTable* host, HostObject) {
         return HostObject{1} +
                static_cast<HostObject>(host->HostToInteger32(host->HostNewInteger(1LL << 40)));
       }},
      {"HostNumArgs of no sequence",
       [](const HostTable* host, HostObject) {
         return static_cast<HostObject>(host->HostNumArgs(host->HostNewString("")));
       }},
      {"HostToCString of no string",
       [](const HostTable* host, HostObject args) {
         return HostObject(host->HostToCString(args) != nullptr);
       }},
      {"HostNewString without a text",
       [](const HostTable* host, HostObject) { return host->HostNewString(nullptr); }},
      {"HostListAssign outside of the list",
       [](const HostTable* host, HostObject args) {
         host->HostListAssign(host->HostNewList(2), 3, args);
         return args;
       }},
      {"HostNewList with a negative count",
       [](const HostTable* host, HostObject) { return host->HostNewList(-1); }},
      {"HostNewExpr with an unknown operator",
       [](const HostTable* host, HostObject args) { return host->HostNewExpr("+", args, args); }},
      {"HostSeqToList of no sequence",
       [](const HostTable* host, HostObject) { return host->HostSeqToList(3); }},
      {"HostAssign to no name",
       [](const HostTable* host, HostObject args) {
         host->HostAssign(args, args);
         return args;
       }},
      {"HostError: a placeholder stands for no object",
       [](const HostTable* host, HostObject args) {
         const std::uint64_t no_object[4] = {};
         host->HostError("%1", &no_object);
         return args;
       }},
      {"unlisted position 116 called",
       [](const HostTable* host, HostObject args) {
         host->unlisted103[13]();
         return args;
       }},
      {"unlisted position 56 called",
       [](const HostTable* host, HostObject args) {
         return reinterpret_cast<HostObject>(host->HostRTableData(args));
       }},
      {"a command returned no object", [](const HostTable*, HostObject) { return HostObject{0}; }},
  };
  for (const Row& row : rows) {
    velmor_clear_faults(heap);
    const std::string text = std::string("fault of the library: ") + row.fault;
    EXPECT_EQ(call(row.command), "error: " + text);
    EXPECT_EQ(velmor_faults(heap), text + "\n");
  }
}

TEST_F(Runtime, ErrorsFillTheirPlaceholders) {
  struct Row {
    const char* message;
    const char* text;
  };
  const Row rows[] = {
      {"plain", "plain"},
      {"%1, %2 and %3", "\"a b\", [-11] and 3"},
      {"the %-3", "the 3rd"},
      {"100%% %%1 %", "100%% %%1 %"},
      {"%0 %4 %- %-0 %x%2", "%0 %4 %- %-0 %x[-11]"},
  };
  static const char* message;
  const VelmorCommand raise = [](const HostTable* host, HostObject args) {
    host->HostError(message, argument(args, 1), argument(args, 2), argument(args, 3));
    return host->HostNull();
  };
  for (const Row& row : rows) {
    message = row.message;
    EXPECT_EQ(call(raise, {string("a b"), list({integer(-11)}), integer(3)}),
              std::string("error: ") + row.text);
  }
  message = "%-1 %-2 %-3";
  EXPECT_EQ(call(raise, {integer(1), integer(112), integer(-14)}), "error: 1st 112nd -14th");
}

TEST_F(Runtime, AssignSetsValuesButNotOfConstants) {
  const VelmorCommand assign = [](const HostTable* host, HostObject args) {
    host->HostAssign(argument(args, 1), argument(args, 2));
    return host->HostNull();
  };
  EXPECT_EQ(call(assign, {name("x"), string("value")}), "");
  EXPECT_EQ(print(velmor_value(heap, name("x"))), "\"value\"");
  EXPECT_EQ(call(assign, {name("true"), integer(1)}), "error: cannot assign to true");
  EXPECT_STREQ(velmor_faults(heap), "");
}

TEST_F(Runtime, OutputGoesWhereItIsSent) {
  static std::string output;
  output.clear();
  velmor_set_output(
      heap, [](void*, const char* text) { output += text; }, nullptr);
  velmor_set_userinfo(
      heap,
      [](void*, std::int64_t level, const char* package, const char* text) {
        output += std::to_string(level) + "|" + package + "|" + text;
      },
      nullptr);
  const VelmorCommand speak = [](const HostTable* host, HostObject args) {
    host->HostPrintf("%s-%d.%ld %5.2f\n", std::string(500, 'x').c_str(), 5, 1L << 40, 0.125);
    host->HostUserInfo(10, "PatternDictionary", "freeing");
    return args;
  };
  call(speak);
  EXPECT_EQ(output, std::string(500, 'x') + "-5.1099511627776  0.12\n10|PatternDictionary|freeing");
}

// ---- Calls and evaluation ----

const VelmorCommand kEvaluate = [](const HostTable* host, HostObject args) {
  return host->HostEvalProc(argument(args, 1), 2, argument(args, 2), argument(args, 3));
};
const VelmorCommand kEvaluateQuoted = [](const HostTable* host, HostObject args) {
  return host->HostEvalProc(argument(args, 1), 2, host->HostQuote(argument(args, 2)),
                            argument(args, 3));
};

TEST_F(Runtime, ConvertAndSprintfAreBuiltIn) {
  const HostObject x = name("x y");
  const auto convert = [&](HostObject object) {
    return call(kEvaluateQuoted, {name("convert"), object, name("string")});
  };
  EXPECT_EQ(convert(integer(-7)), "\"-7\"");
  EXPECT_EQ(convert(string("s")), "\"s\"");
  EXPECT_EQ(convert(x), "\"x y\"");
  EXPECT_EQ(convert(list({x, string("s")})), R"("[`x y`, \"s\"]")");
  EXPECT_EQ(call(kEvaluate, {name("sprintf"), string("%a"), x}), "\"`x y`\"");
  velmor_assign(heap, x, integer(9));
  EXPECT_EQ(convert(x), "\"x y\"");
  EXPECT_EQ(call(kEvaluate, {name("convert"), x, name("string")}), "\"9\"");
  EXPECT_EQ(call(kEvaluate, {name("convert"), x, name("list")}),
            "error: convert is not a procedure");
  velmor_assign(heap, name("y"), x);
  velmor_assign(heap, x, name("y"));
  EXPECT_EQ(call(kEvaluate, {name("convert"), x, name("string")}),
            "error: recursive assignment of `x y`");
}

TEST_F(Runtime, EvaluatorsNestAndFailOutwards) {
  // f(n, x) calls itself through a command until n is 0, then returns x or fails. Destructors of
  // every level must run.
  static int alive;
  alive = 0;
  struct Witness {
    Witness() { ++alive; }
    ~Witness() { --alive; }
  };
  const VelmorEvaluator evaluator = [](void*, VelmorHeap* in, HostObject procedure, HostObject args,
                                       HostObject* result) {
    const Witness witness;
    const std::int64_t n = velmor_to_integer(velmor_element(args, 1));
    const HostObject x = velmor_element(args, 2);
    if (n > 0) {
      const HostObject next[] = {procedure, velmor_integer(in, n - 1), x};
      return velmor_call(in, kEvaluate, velmor_sequence(in, 3, next), result);
    }
    if (n < 0) throw std::runtime_error("thrown");
    *result = x;
    if (velmor_tag(x) != HOST_TAG_STRING) return 1;
    velmor_fail(in, velmor_text(x));
    return 0;
  };
  velmor_set_evaluator(heap, evaluator, nullptr);
  EXPECT_EQ(call(kEvaluate, {name("f"), integer(50), integer(5)}), "5");
  EXPECT_EQ(call(kEvaluate, {name("f"), integer(50), string("no")}), "error: no");
  EXPECT_EQ(call(kEvaluate, {name("f"), integer(-1), string("no")}), "error: thrown");
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(call(kEvaluate, {name("f"), integer(0), integer(1)}), "1");
  EXPECT_STREQ(velmor_error(heap), "");
}

TEST_F(Runtime, HeapsAreApart) {
  VelmorHeap* other = velmor_heap_new();
  static VelmorHeap* inner_heap;
  inner_heap = other;
  const VelmorCommand nested = [](const HostTable* host, HostObject args) {
    const VelmorCommand make = [](const HostTable* table, HostObject) {
      return table->HostNewString("inner");
    };
    HostObject inner = 0;
    velmor_call(inner_heap, make, velmor_sequence(inner_heap, 0, nullptr), &inner);
    return host->HostNewSeqOf(2, host->HostNewString("outer"), args);
  };
  EXPECT_EQ(call(nested), "\"outer\"");
  EXPECT_EQ(velmor_object_count(other), 1U);
  EXPECT_NE(name("x"), velmor_name(other, "x"));
  EXPECT_EQ(name("x"), name("x"));
  velmor_heap_free(other);
}

TEST_F(Runtime, TheChosenOperationFailsOnce) {
  const VelmorCommand build = [](const HostTable* host, HostObject args) {
    const HostObject n = host->HostNewName("n", 1);
    host->HostGcProtect(n);
    host->HostGcAllow(n);
    const HostObject list = host->HostNewList(host->HostNumArgs(args));
    host->HostListAssign(list, 1, host->HostNewInteger(host->HostIsString(n)));
    host->HostAssign(n, list);
    return host->HostQuote(list);
  };
  constexpr std::size_t kOperations = 6;
  const std::size_t before = velmor_operation_count(heap);
  EXPECT_EQ(call(build, {integer(1)}), "[0]");
  EXPECT_EQ(velmor_operation_count(heap) - before, kOperations);
  for (std::size_t k = 1; k <= kOperations + 1; ++k) {
    velmor_fail_operation(heap, k);
    EXPECT_EQ(call(build, {integer(1)}), k <= kOperations ? "error: injected failure" : "[0]");
    velmor_fail_operation(heap, 0);
    EXPECT_EQ(call(build, {integer(1)}), "[0]");
  }
}

}  // namespace
