// How the time grows with the length of the text: each command on texts of 1 KB to 1 MB.
#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

void add(const std::string& row, std::size_t longest,
         const std::function<Work(const std::string& letters, std::size_t n)>& prepare) {
  for (std::size_t n = 1 << 10; n <= longest; n *= 4) {
    job("growth/" + row + " n " + std::to_string(n),
        [=] { return against(prepare(random_text(n, "abcdefghijklmnopqrstuvwxyz", 1), n), {}); });
  }
}

// Of a random text.
void add(const std::string& row, VelmorCommand command, std::size_t longest = 1 << 20) {
  add(row, longest,
      [=](const std::string& letters, std::size_t) { return call(command, {argument(letters)}); });
}

const Jobs added([] {
  add("searchx, a hard pattern", 1 << 20, [](const std::string&, std::size_t n) {
    const std::string text = repeated("b" + std::string(62, 'a'), n);
    return call(vstring_searchx, {argument("b" + std::string(63, 'a')), argument(text)});
  });
  add("regmatch, a runaway pattern", 1 << 20, [](const std::string&, std::size_t n) {
    return call(vstring_regmatch, {argument("(a|aa)+(b|c)"), argument(std::string(n, 'a'))});
  });
  add("asearch, 3 edits", 1 << 20, [](const std::string& letters, std::size_t) {
    return call(vstring_asearch,
                {argument("mississippi"), argument(letters), argument(std::int64_t{3})});
  });
  add("lynfac", vstring_lynfac);
  add("sort", vstring_sort);
  add("suffixarray", vstring_suffixarray);
  add("repetitions", vstring_repetitions);
  add("levenshtein", 1 << 16, [](const std::string& letters, std::size_t n) {
    return call(vstring_levenshtein,
                {argument(letters), argument(random_text(n, "abcdefghijklmnopqrstuvwxyz", 2))});
  });
});

}  // namespace
}  // namespace bench
