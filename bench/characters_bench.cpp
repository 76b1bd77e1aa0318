// Texts made from a megabyte of prose, beside the standard algorithms, plain loops (built for this
// machine) and stringzilla.
#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_STRINGZILLA
#include "peers/stringzilla.h"
#endif

namespace bench {
namespace {

using Table = std::array<char, 256>;

unsigned char code(char c) { return static_cast<unsigned char>(c); }

std::string mapped(const std::string& text, const Table& table) {
  std::string made = text;
  for (char& c : made) c = table[code(c)];
  return made;
}

Table table_of(int (*map)(int)) {
  Table table;
  for (int c = 0; c < 256; ++c) table[static_cast<std::size_t>(c)] = static_cast<char>(map(c));
  return table;
}

Peers table_peers(const Table& table) {
  Peers peers{peer("plain loop", [=] { return mapped(megabyte(), table); })};
#ifdef VSTRING_PEER_STRINGZILLA
  peers.push_back(peer("stringzilla", [=] {
    std::string made(megabyte().size(), '\0');
    zilla_lookup(made.data(), made.size(), megabyte().data(), table.data());
    return made;
  }));
#endif
  return peers;
}

void add_table(const char* row, VelmorCommand command, const Table& table,
               const std::vector<std::string>& before = {}) {
  job("texts/" + std::string(row), [=] {
    std::vector<HostObject> arguments;
    for (const std::string& text : before) arguments.push_back(argument(text));
    arguments.push_back(argument(megabyte()));
    return against(call(command, arguments), table_peers(table));
  });
}

std::string capitalised(std::string text) {
  bool inside = false;
  for (char& c : text) {
    const int each = code(c);
    c = static_cast<char>(inside ? std::tolower(each) : std::toupper(each));
    inside = std::isalnum(each) != 0;
  }
  return text;
}

std::string counted(const std::string& text) {
  std::array<std::size_t, 256> counts{};
  for (const char c : text) ++counts[code(c)];
  std::string made;
  made.reserve(text.size());
  for (std::size_t c = 0; c < 256; ++c) made.append(counts[c], static_cast<char>(c));
  return made;
}

std::vector<std::string> fields(const std::string& text) {
  std::vector<std::string> found;
  for (const char* at = text.c_str();; ++at) {
    const std::size_t n = std::strcspn(at, " \t\n\v\f\r");
    found.emplace_back(at, n);
    at += n;
    if (*at == '\0') return found;
  }
}

HostObject list_of(const std::vector<std::string>& texts) {
  return list(texts.size(), [&](std::size_t i) { return result(texts[i]); });
}

std::string joined(HostObject texts) {
  std::string made(text_of(velmor_element(texts, 1)));
  for (std::size_t i = 2; i <= velmor_size(texts); ++i) {
    made.append(" ").append(text_of(velmor_element(texts, i)));
  }
  return made;
}

const Jobs added([] {
  const auto text_job = [](const char* row, auto make) {
    job("texts/" + std::string(row), [=] { return make(argument(megabyte())); });
  };
  text_job("reverse", [](HostObject text) {
    return against(call(vstring_reverse, {text}), {peer("std::reverse_copy", [] {
                     std::string made(megabyte().size(), '\0');
                     std::reverse_copy(megabyte().begin(), megabyte().end(), made.begin());
                     return made;
                   })});
  });
  add_table("lowercase", vstring_lowercase, table_of(std::tolower));
  add_table("uppercase", vstring_uppercase, table_of(std::toupper));
  Table vowels = table_of([](int c) { return c; });
  for (const char c : {'a', 'e', 'i', 'o', 'u'}) vowels[code(c)] = static_cast<char>(c - 32);
  add_table("tr", vstring_tr, vowels, {"aeiou", "AEIOU"});
  text_job("capitalise", [](HostObject text) {
    return against(call(vstring_capitalise, {text}),
                   {peer("plain loop", [] { return capitalised(megabyte()); })});
  });
  text_job("sort", [](HostObject text) {
    return against(call(vstring_sort, {text}),
                   {peer("counting", [] { return counted(megabyte()); }), peer("std::sort", [] {
                      std::string made = megabyte();
                      std::sort(made.begin(), made.end());
                      return made;
                    })});
  });
  job("texts/repeat", [] {
    const std::string word = "repetition ";
    return against(call(vstring_repeat, {argument(word), argument(std::int64_t{100'000})}),
                   {peer("append", [=] {
                     std::string made;
                     made.reserve(word.size() * 100'000);
                     for (int i = 0; i < 100'000; ++i) made += word;
                     return made;
                   })});
  });
  text_job("rotate", [](HostObject text) {
    return against(call(vstring_rotate, {text, argument(std::int64_t{1000})}),
                   {peer("std::rotate_copy", [] {
                     std::string made(megabyte().size(), '\0');
                     std::rotate_copy(megabyte().begin(), megabyte().end() - 1000, megabyte().end(),
                                      made.begin());
                     return made;
                   })});
  });
  text_job("insert", [](HostObject text) {
    const std::string few = "a few words";
    return against(
        call(vstring_insert, {text, argument(std::int64_t{500'000}), argument(few)}),
        {peer("append", [=] {
          std::string made;
          made.reserve(megabyte().size() + few.size());
          return made.append(megabyte(), 0, 500'000).append(few).append(megabyte(), 500'000);
        })});
  });
  text_job("split", [](HostObject text) {
    return against(call(vstring_split, {text}),
                   {{"strcspn", [] { return list_of(fields(megabyte())); }}});
  });
  text_job("explode", [](HostObject text) {
    return against(call(vstring_explode, {text}),
                   {{"plain loop", [] {
                       return list(megabyte().size(), [](std::size_t i) {
                         const char letter[] = {megabyte()[i], '\0'};
                         return table()->HostNewString(letter);
                       });
                     }}});
  });
  job("texts/join", [] {
    const HostObject words = argument(fields(megabyte()));
    return against(call(vstring_join, {words}), {peer("append", [=] { return joined(words); })});
  });
});

}  // namespace
}  // namespace bench
