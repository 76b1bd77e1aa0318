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
  const HostTable* const host = velmor_table(heap);
  for (const std::int64_t value : {INT32_MAX, INT32_MIN}) {
    const std::int64_t beyond = value < 0 ? value - 1 : value + 1;
    EXPECT_TRUE(host->HostIsInteger32(integer(value)));
    EXPECT_FALSE(host->HostIsInteger32(integer(beyond)));
  }
  for (const std::string digits : {"9223372036854775808", "-9223372036854775809",
                                   "-100000000000000000000000000000000000000000"}) {
    const HostObject object = velmor_big_integer(heap, digits.c_str());
    EXPECT_EQ(print(object), digits);
    EXPECT_EQ(velmor_tag(object), digits[0] == '-' ? HOST_TAG_NEGATIVE : HOST_TAG_NON_NEGATIVE);
    EXPECT_EQ(velmor_to_integer(object), 0);
    EXPECT_TRUE(host->HostIsInteger(object));
    EXPECT_FALSE(host->HostIsInteger32(object));
  }
  const std::uint64_t limbs[] = {5, 1, 0};  // leading zeros do not count
  EXPECT_EQ(print(velmor_integer_of_limbs(heap, 3, limbs, 0)), "18446744073709551621");
  EXPECT_EQ(velmor_integer_of_limbs(heap, 1, limbs, 1), integer(-5));
  EXPECT_EQ(velmor_integer_of_limbs(heap, 0, limbs, 1), integer(0));
  for (const char* bad : {"", "-", "1x", " 1", "+1", "--1"})
    EXPECT_EQ(velmor_big_integer(heap, bad), 0U) << bad;
}

// What prints is read back in the session's tests; here what never comes from there.
TEST_F(Runtime, PrintsHostSyntax) {
  const HostObject x = name("x");
  const HostObject equation = velmor_equation(heap, x, integer(1));
  const std::pair<HostObject, const char*> rows[] = {
      {string("a\"b\\\n\t\x01\x7f\xff`"), R"("a\"b\\\n\t\001\177\377`")"},
      {name("1x"), "`1x`"},
      {name(""), "``"},
      {name("a `b`"), R"(`a \`b\``)"},
      {velmor_float(heap, 2), "2.0"},
      {velmor_range(heap, integer(1), equation), "1 .. (x = 1)"},
      {velmor_equation(heap, equation, sequence({integer(1), x})), "(x = 1) = (1, x)"},
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

TEST_F(Runtime, MisuseIsAFaultOfTheLibrary) {
  const std::pair<const char*, VelmorCommand> rows[] = {
      {"HostListAssign outside of the list",
       [](const HostTable* host, HostObject args) {
         host->HostListAssign(host->HostNewList(2), 3, args);
         return args;
       }},
      {"HostNewExpr with an unknown operator",
       [](const HostTable* host, HostObject args) { return host->HostNewExpr("+", args, args); }},
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
      {"a command returned no object", [](const HostTable*, HostObject) { return HostObject{0}; }},
  };
  for (const auto& [fault, command] : rows) {
    velmor_clear_faults(heap);
    const std::string text = std::string("fault of the library: ") + fault;
    EXPECT_EQ(call(command), "error: " + text);
    EXPECT_EQ(velmor_faults(heap), text + "\n");
  }
}

// ---- Calls and evaluation ----

const VelmorCommand kEvaluate = [](const HostTable* host, HostObject args) {
  return host->HostEvalProc(argument(args, 1), 2, argument(args, 2), argument(args, 3));
};

TEST_F(Runtime, ArgumentsAreEvaluated) {
  const auto convert = [&](HostObject object) {
    return call(kEvaluate, {name("convert"), object, name("string")});
  };
  velmor_assign(heap, name("x"), integer(9));
  EXPECT_EQ(convert(name("x")), "\"9\"");
  velmor_assign(heap, name("y"), name("x"));
  velmor_assign(heap, name("x"), name("y"));
  EXPECT_EQ(convert(name("x")), "error: name defined by itself: x");
  EXPECT_EQ(call(kEvaluate, {name("convert"), string("s"), name("list")}),
            "error: convert is not a procedure");
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

}  // namespace
