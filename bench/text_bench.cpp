// Layout and natural language: wrapping, tabs, words, stems, Soundex keys, formatted times.
#include <sys/wait.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <memory>

#include "harness/job.h"
#include "harness/texts.h"
#ifdef VSTRING_PEER_STEMMER
#include <libstemmer.h>
#endif

namespace bench {
namespace {

std::vector<std::string> plain_words(const std::string& text) {
  std::vector<std::string> found;
  for (std::size_t i = 0; i < text.size();) {
    std::size_t end = i;
    while (end < text.size() && std::isalnum(static_cast<unsigned char>(text[end])) != 0) ++end;
    if (end > i) found.push_back(text.substr(i, end - i));
    i = end + 1;
  }
  return found;
}

std::string plain_expansion(const std::string& text) {
  std::string made;
  std::size_t column = 0;
  for (const char c : text) {
    if (c == '\t') {
      do made += ' ';
      while (++column % 8 != 0);
    } else {
      made += c;
      column = c == '\n' || c == '\r' ? 0 : column + 1;
    }
  }
  return made;
}

// fold of coreutils, on a file; it breaks lines elsewhere, and counts for the pass alone.
HostObject fold(const std::string& path) {
  const pid_t child = fork();
  if (child == 0) {
    if (std::freopen("/dev/null", "w", stdout) != nullptr) {
      execlp("fold", "fold", "-s", "-w", "72", path.c_str(), nullptr);
    }
    _exit(127);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return status == 0 ? result(true) : 0;
}

// ---- Words one by one ----

using Code = std::function<std::string(const std::string&)>;

// Each of the words of the dictionary on which both agree: the peer follows other rules for some.
std::vector<Contestant> coded(VelmorCommand command, const char* who, const Code& peer) {
  std::vector<Work> calls;
  std::vector<std::string> words;
  for (const std::string& word : some_words(5000)) {
    const Work ours = call(command, {argument(word)});
    if (velmor_text(ours()) != peer(word)) continue;
    calls.push_back(ours);
    words.push_back(word);
  }
  return {{"ours", [=] { return list(calls.size(), [&](std::size_t i) { return calls[i](); }); }},
          {who, [=] {
             return list(words.size(), [&](std::size_t i) { return result(peer(words[i])); });
           }}};
}

// The key of R. C. Russell, a vowel or H or W between equal codes separating them.
std::string plain_soundex(const std::string& word) {
  static const char* const kCodes = "01230120022455012623010202";
  std::string key(1, static_cast<char>(std::toupper(static_cast<unsigned char>(word[0]))));
  for (std::size_t i = 1; i < word.size() && key.size() < 4; ++i) {
    const char code = kCodes[word[i] - 'a'];
    if (code != '0' && code != kCodes[word[i - 1] - 'a']) key += code;
  }
  return key.append(4 - key.size(), '0');
}

const Jobs added([] {
  job("texts/wrap", [] {
    const std::string path = text_file("prose");
    return std::vector<Contestant>{
        {"ours", call(vstring_wrap, {argument(prose()), argument(std::int64_t{72})})},
        {"fold -s", [=] { return fold(path); }, Does::something}};
  });
  job("texts/words", [] {
    static const std::string text = [] {  // without apostrophes, in which the two differ
      std::string made = megabyte();
      std::erase(made, '\'');
      return made;
    }();
    return std::vector<Contestant>{{"ours", call(vstring_words, {argument(text)})},
                                   {"plain loop", [] {
                                      const std::vector<std::string> found = plain_words(text);
                                      return list(found.size(),
                                                  [&](std::size_t i) { return result(found[i]); });
                                    }}};
  });
  job("texts/expand", [] {
    static const std::string text = [] {
      std::string made = megabyte();
      for (std::size_t i = 0; i < made.size(); i += 40) made[i] = '\t';
      return made;
    }();
    return std::vector<Contestant>{{"ours", call(vstring_expand, {argument(text)})},
                                   {"plain loop", [] { return result(plain_expansion(text)); }}};
  });

#ifdef VSTRING_PEER_STEMMER
  job("language/Porter", [] {
    const std::shared_ptr<sb_stemmer> stemmer(sb_stemmer_new("porter", nullptr), sb_stemmer_delete);
    return coded(vstring_porter, "libstemmer", [=](const std::string& word) {
      const sb_symbol* const stem =
          sb_stemmer_stem(stemmer.get(), reinterpret_cast<const sb_symbol*>(word.data()),
                          static_cast<int>(word.size()));
      return std::string(reinterpret_cast<const char*>(stem),
                         static_cast<std::size_t>(sb_stemmer_length(stemmer.get())));
    });
  });
#endif
  job("language/Soundex", [] { return coded(vstring_soundex, "plain loop", plain_soundex); });

  job("language/format a time", [] {
    static const std::time_t when = 1'000'000'000;
    static const std::tm record = *std::gmtime(&when);
    const auto format = [](auto formatter) {
      return [=] {
        char text[100];
        formatter(text, sizeof text, "%Y-%m-%d %H:%M:%S", &record);
        return table()->HostNewString(text);
      };
    };
    return std::vector<Contestant>{
        {"ours", format(my_strftime)},
        {"strftime", format([](char* text, std::size_t n, const char* form, const std::tm* tm) {
           return std::strftime(text, n, form, tm);
         })}};
  });
});

}  // namespace
}  // namespace bench
