// Regular expressions: whether there is a match, replacing all, and splitting; and expressions that
// backtracking does not survive. Compiled beforehand, as ours is remembered.
#include "harness/job.h"
#include "harness/texts.h"
#include "peers/hyperscan.h"
#include "peers/regex_engines.h"

namespace bench {
namespace {

using Text = const std::string& (*)();

std::vector<Contestant> first(const std::string& pattern, const std::string& text) {
  std::vector<Contestant> all{
      {"ours", call(vstring_regmatch, {argument(pattern), argument(text)})}};
  add_engines(all, pattern, [&](const auto& engine) {
    return [engine, &text]() -> HostObject {
      const int has = engine.has(text);
      return has < 0 ? 0 : result(has > 0);
    };
  });
#ifdef VSTRING_PEER_HYPERSCAN
  const Hyperscan compiled(pattern, HS_FLAG_DOTALL | HS_FLAG_SINGLEMATCH);
  if (compiled.accepted()) {
    all.push_back({"Hyperscan", [compiled, &text] { return result(compiled.has(text)); }});
  }
#endif
  return all;
}

// `by` has \0 for the match and \1 for a group, as RE2 has; ours has & for \0.
std::vector<Contestant> replace(const std::string& pattern, const std::string& by,
                                const std::string& text) {
  std::string ours = by;
  if (const std::size_t at = ours.find("\\0"); at != ours.npos) ours.replace(at, 2, "&");
  std::vector<Contestant> all{
      {"ours",
       call(vstring_regsubs, {equation(argument(pattern), argument(ours)), argument(text)})}};
  add_engines(all, pattern, [&](const auto& engine) {
    return [engine, by, &text] { return result(engine.replaced(text, by)); };
  });
  return all;
}

std::vector<Contestant> split(const std::string& pattern, const std::string& text) {
  std::vector<Contestant> all{
      {"ours", call(vstring_regsplit, {argument(pattern), argument(text)})}};
  add_engines(all, pattern, [&](const auto& engine) {
    return [engine, &text] {
      std::vector<Span> cuts = engine.matches(text);
      cuts.push_back({text.size(), text.size()});
      return sequence(cuts.size(), [&](std::size_t i) {
        const std::size_t from = i == 0 ? 0 : cuts[i - 1].end;
        return result(text.substr(from, cuts[i].begin - from));
      });
    };
  });
  return all;
}

struct Row {
  const char* name;
  std::string pattern;
};

std::string times(std::size_t n, const std::string& piece) {
  return repeated(piece, n * piece.size());
}

const std::string& some_source() {
  static const std::string text = source().substr(0, 1 << 20);
  return text;
}

const std::string& power() {
  static const std::string text(1 << 20, 'a');
  return text;
}

const Jobs added([] {
  // None matches, so that the whole text is passed.
  const Row absent[] = {
      {"literal", "Zarathustra"},
      {"four alternatives", "Zeus|Odin|Vishnu|Horus"},
      {"common prefix", "internal|interval|interact|interplay"},
      {"class", "[xz][bcdf][kq]"},
      {"digits", "[0-9][0-9][0-9][0-9]"},
      {"anchored", "^[^=]*Zarathustra"},
      {"dollar", "[@=][A-Za-z ,.;:\n]*$"},
      {"nested", "((the|of|and) )+unto upon"},
      {"suffix", "[a-z]+ing[A-Z]"},
      {"long word", times(20, "[a-z]")},
      {"dot star", "God.*=.*man"},
      {"email", "[A-Za-z0-9._]+@[A-Za-z0-9.]+"},
  };
  for (const Row& row : absent) {
    job("regex first/" + std::string(row.name), [=] { return first(row.pattern, prose()); });
  }
  const auto on_power = [](const char* row, const char* pattern) {
    job("regex first/" + std::string(row) + " " + pattern, [=] { return first(pattern, power()); });
  };
  for (const char* const pattern : {"(a|aa)+b", "(a+a+)+b", "(a|a)*b", "(a+a+)+[yz]"}) {
    on_power("runaway", pattern);
  }
  // No single set of bytes is asked for.
  on_power("refused late", "(a|aa)+(b|c)");
  on_power("refused late", "((a|b)*c)*(d|e)");
  job("regex first/runaway .*.*.*=.*", [] { return first(".*.*.*=.*", megabyte()); });

  struct Replacement {
    const char* name;
    const char* pattern;
    const char* by;
    Text text;
  };
  const Replacement replacements[] = {
      {"vowel", "[aeiou]", "<\\0>", megabyte},
      {"word", "[A-Za-z]+", "<\\0>", megabyte},
      {"alternatives", "Jacob|Abraham|Isaac|Joseph", "<\\0>", megabyte},
      {"swap", "([a-z]+) ([a-z]+)", "\\2 \\1", megabyte},
      {"nested", "(([a-z]+) )+and", "<\\2>", megabyte},
      {"hex", "0x[0-9a-fA-F]+", "<\\0>", some_source},
      {"define", "#define[ \t]+([A-Za-z_]+)", "#set \\1", some_source},
      {"literal", "LORD", "<\\0>", megabyte},
      {"comment", "/\\*[^*]*\\*/", "<\\0>", some_source},
      {"any", "(.)", "\\1\\1", megabyte},
  };
  for (const Replacement& row : replacements) {
    job("regex replace/" + std::string(row.name),
        [=] { return replace(row.pattern, row.by, row.text()); });
  }
  job("regex split/blanks", [] { return split("[ \n]+", megabyte()); });
  job("regex split/commas", [] { return split(", *", megabyte()); });
});

}  // namespace
}  // namespace bench
