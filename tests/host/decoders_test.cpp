// The exported decoders, called as host code calls them.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>

#include "heap/velmor_runtime.h"
#include "host/vstring.h"

namespace vstring_test {
namespace {

TEST(NormalRange, MapsEndpoints) {
  struct Case {
    std::int64_t length, low, high, count, from, to;
  };
  const Case cases[] = {
      {5, 1, 5, 5, 0, 4},
      {5, -2, -1, 2, 3, 4},
      {5, 7, 9, 0, 5, 4},
      {5, 3, 2, 0, 2, 1},
      {5, 3, 1, -1, 3, 1},
      {5, 0, 3, -1, 0, 3},
      {5, 1, 0, -1, 1, 0},
      {5, -10, 2, -1, -10, 2},
      {0, 1, 1, -1, 1, 1},
      {0, 1, 0, -1, 1, 0},
      {5, 6, 6, 0, 5, 4},
      {5, 5, 6, 1, 4, 4},
      {5, 1, -6, -1, 1, -6},
      {5, 1, -5, 1, 0, 0},
      {INT64_C(1) << 33, -1, INT32_MAX, -1, -1, INT32_MAX},
      {5, INT64_MIN, 5, -1, INT64_MIN, 5},
      {5, 5, INT64_MIN, -1, 5, INT64_MIN},
  };
  for (const Case& c : cases) {
    std::int64_t low = c.low;
    std::int64_t high = c.high;
    EXPECT_EQ(c.count, NormalRange(c.length, &low, &high)) << c.low << ".." << c.high;
    EXPECT_EQ(c.from, low) << c.low << ".." << c.high;
    EXPECT_EQ(c.to, high) << c.low << ".." << c.high;
  }
}

// Runs a decoder as the body of a command, where raising is allowed.
class Decoders : public testing::Test {
 protected:
  ~Decoders() override { velmor_heap_free(heap_); }

  static inline std::function<std::int64_t(const HostTable*, HostObject)> body;

  // The decoder's value, or the error's text.
  std::string decode(std::initializer_list<HostObject> arguments) {
    HostObject result = 0;
    const HostObject argseq = velmor_sequence(heap_, arguments.size(), arguments.begin());
    const VelmorCommand command = [](const HostTable* host, HostObject sequence) {
      return host->HostNewInteger(body(host, sequence));
    };
    if (velmor_call(heap_, command, argseq, &result) == 0) return velmor_error(heap_);
    return std::to_string(velmor_to_integer(result));
  }
  static HostObject argument(HostObject argseq) { return velmor_element(argseq, 1); }

  HostObject name(const char* text) { return velmor_name(heap_, text); }
  HostObject string(const char* text) { return velmor_string(heap_, text); }
  HostObject integer(std::int64_t n) { return velmor_integer(heap_, n); }
  HostObject option(HostObject left, HostObject right) {
    return velmor_equation(heap_, left, right);
  }

  VelmorHeap* heap_ = velmor_heap_new();
};

TEST_F(Decoders, Booleans) {
  body = [](const HostTable* host, HostObject argseq) {
    const HostObject object = argument(argseq);
    return std::int64_t{100} * IsVelmorTrueFalse(host, object) +
           10 * IsVelmorBoolean(host, object) + VelmorToBoolean(host, object);
  };
  EXPECT_EQ("111", decode({name("true")}));
  EXPECT_EQ("110", decode({name("false")}));
  EXPECT_EQ("9", decode({name("FAIL")}));
  EXPECT_EQ("cannot convert to boolean: \"true\"", decode({string("true")}));
  EXPECT_EQ("cannot convert to boolean: truex", decode({name("truex")}));
  EXPECT_EQ("cannot convert to boolean: 1", decode({integer(1)}));
}

TEST_F(Decoders, StringIndex) {
  body = [](const HostTable* host, HostObject argseq) {
    return GetStringIndex(host, 4, argument(argseq));
  };
  EXPECT_EQ("4", decode({integer(4)}));
  EXPECT_EQ("3", decode({integer(-1)}));
  EXPECT_EQ("string index `-5' out of range", decode({integer(-5)}));
  EXPECT_EQ("expecting an integral (32-bit) string index, but got `x'", decode({name("x")}));
}

TEST_F(Decoders, OneOption) {
  body = [](const HostTable* host, HostObject argseq) {
    const HostObject value = GetOption(host, 1, argseq, "width", 1);
    if (value == 0) return std::int64_t{-1};
    return host->HostIsInteger32(value) != 0 ? host->HostToInteger32(value) : std::int64_t{100};
  };
  const HostObject width = option(name("width"), integer(7));
  EXPECT_EQ("7", decode({integer(0), integer(3), width, option(name("width"), integer(8))}));
  EXPECT_EQ("7", decode({integer(0), option(string("width"), integer(7))}));
  EXPECT_EQ("100", decode({integer(0), string("width"), width})) << "bare";
  EXPECT_EQ("-1", decode({width, option(integer(1), integer(2))})) << "it starts after the first";
  EXPECT_EQ("-1", decode({}));
}

TEST_F(Decoders, ManyOptions) {
  static VstringOption options[] = {{"a", 1, 1, 0}, {"b", 1, 1, 1}, {nullptr, 0, 0, 0}};
  body = [](const HostTable* host, HostObject argseq) {
    return GetOptions(host, options, 0, argseq);
  };
  EXPECT_EQ("2", decode({name("a"), option(name("a"), integer(1)), option(string("a"), integer(2)),
                         string("b"), option(name("c"), integer(3))}));
  EXPECT_EQ(integer(2), options[0].value) << "the last one given wins";
  EXPECT_EQ(3U, options[0].position);
  EXPECT_STREQ("true", velmor_text(options[1].value));
  EXPECT_EQ(4U, options[1].position);
  EXPECT_EQ("0", decode({}));
  EXPECT_EQ(0U, options[0].value) << "cleared";
}

TEST_F(Decoders, StringOption) {
  const auto get = [&](HostObject object) {
    const char* const text = GetStringOption(velmor_table(heap_), object, "stemmer");
    return std::string(text == nullptr ? "(null)" : text);
  };
  EXPECT_EQ("porter", get(option(name("stemmer"), string("porter"))));
  EXPECT_EQ("porter", get(name("porter")));
  EXPECT_EQ("(null)", get(option(name("stem"), string("porter"))));
  EXPECT_EQ("(null)", get(option(string("stemmer"), integer(1))));
  EXPECT_EQ("(null)", get(integer(5)));
}

}  // namespace
}  // namespace vstring_test
