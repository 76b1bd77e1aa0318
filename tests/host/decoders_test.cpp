// The exported decoders, called as host code calls them.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/direct.h"

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

HostObject argument(HostObject argseq) { return velmor_element(argseq, 1); }

TEST(Decoders, Booleans) {
  const VelmorCommand decode = [](const HostTable* host, HostObject argseq) {
    const HostObject object = argument(argseq);
    return host->HostNewInteger(std::int64_t{100} * IsVelmorTrueFalse(host, object) +
                                10 * IsVelmorBoolean(host, object) + VelmorToBoolean(host, object));
  };
  EXPECT_EQ("111", call(decode, {name("true")}));
  EXPECT_EQ("110", call(decode, {name("false")}));
  EXPECT_EQ("9", call(decode, {name("FAIL")}));
  EXPECT_EQ("error: cannot convert to boolean: \"true\"", call(decode, {"true"}));
  EXPECT_EQ("error: cannot convert to boolean: truex", call(decode, {name("truex")}));
  EXPECT_EQ("error: cannot convert to boolean: 1", call(decode, {1}));
}

TEST(Decoders, StringIndex) {
  const VelmorCommand decode = [](const HostTable* host, HostObject argseq) {
    return host->HostNewInteger(GetStringIndex(host, 4, argument(argseq)));
  };
  EXPECT_EQ("4", call(decode, {4}));
  EXPECT_EQ("3", call(decode, {-1}));
  EXPECT_EQ("error: string index `-5' out of range", call(decode, {-5}));
  EXPECT_EQ("error: expecting an integral (32-bit) string index, but got `x'",
            call(decode, {name("x")}));
}

TEST(Decoders, OneOption) {
  const VelmorCommand decode = [](const HostTable* host, HostObject argseq) {
    const HostObject value = GetOption(host, 1, argseq, "width", 1);
    return value != 0 ? value : host->HostNull();
  };
  const HostObject width = equation(name("width"), 7);
  EXPECT_EQ("7", call(decode, {0, 3, width, equation("width", 8)}));
  EXPECT_EQ("7", call(decode, {0, equation("width", 7)}));
  EXPECT_EQ("true", call(decode, {0, "width", width})) << "bare";
  EXPECT_EQ("", call(decode, {width, equation(1, 2)})) << "it starts after the first";
  EXPECT_EQ("", call(decode, {}));
}

TEST(Decoders, ManyOptions) {
  static VstringOption options[] = {{"a", 1, 1, 0}, {"b", 1, 1, 1}, {nullptr, 0, 0, 0}};
  const VelmorCommand decode = [](const HostTable* host, HostObject argseq) {
    return host->HostNewInteger(GetOptions(host, options, 0, argseq));
  };
  EXPECT_EQ("2",
            call(decode, {name("a"), equation("a", 1), equation("a", 2), "b", equation("c", 3)}));
  EXPECT_EQ(Value(2), options[0].value) << "the last one given wins";
  EXPECT_EQ(3U, options[0].position);
  EXPECT_STREQ("true", velmor_text(options[1].value));
  EXPECT_EQ(4U, options[1].position);
  EXPECT_EQ("0", call(decode, {}));
  EXPECT_EQ(0U, options[0].value) << "cleared";
}

// Nothing is read before the first argument, nor behind a start that is the greatest.
TEST(Decoders, OptionsStartAnywhere) {
  static VstringOption options[] = {{"a", 1, 1, 0}, {nullptr, 0, 0, 0}};
  const VelmorCommand decode = [](const HostTable* host, HostObject argseq) {
    const std::int64_t start = velmor_size(argseq) == 1 ? INT64_MIN : INT64_MAX;
    const HostObject value = GetOption(host, start, argseq, "a", 0);
    const std::int64_t found = GetOptions(host, options, start, argseq);
    return host->HostNewInteger(found + (value != 0 ? 10 : 0));
  };
  EXPECT_EQ("11", call(decode, {equation("a", 1)}));
  EXPECT_EQ("0", call(decode, {equation("a", 1), equation("a", 1)}));
}

TEST(Decoders, StringOption) {
  const auto get = [](HostObject object) {
    const char* const text = GetStringOption(velmor_table(session().heap()), object, "stemmer");
    return std::string(text == nullptr ? "(null)" : text);
  };
  EXPECT_EQ("porter", get(equation(name("stemmer"), "porter")));
  EXPECT_EQ("porter", get(name("porter")));
  EXPECT_EQ("(null)", get(equation("stem", "porter")));
  EXPECT_EQ("(null)", get(equation("stemmer", 1)));
  EXPECT_EQ("(null)", get(Value(5)));
}

}  // namespace
}  // namespace vstring_test
