// Wildcards, beside fnmatch.
#include <fnmatch.h>

#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

const Jobs added([] {
  const auto add = [](const char* row, const std::string& pattern, const std::string& (*text)()) {
    job("wildcards/" + std::string(row), [=] {
      return against(
          call(vstring_wild, {argument(pattern), argument(text())}),
          {peer("fnmatch", [=] { return fnmatch(pattern.c_str(), text().c_str(), 0) == 0; })});
    });
  };
  add("words", "*Zarathustra spoke*", megabyte);
  add("words in a row", "*God*light*darkness*Zion*Babylon*", megabyte);
  add("question", "*G?d s?w*Zar?thustra*", megabyte);
  add("class", "*[xyz]o[^a-u]*[0-9][0-9][0-9][0-9]*", megabyte);
  add("many stars in a short text", "*o*o*o*o*o*o*!", []() -> const std::string& {
    static const std::string text = megabyte().substr(0, 200);
    return text;
  });
});

}  // namespace
}  // namespace bench
