// Many patterns at once, and one pattern in many texts. Building is timed, but for dictionaries.
#include <memory>

#include "harness/job.h"
#include "harness/texts.h"
#include "peers/finders.h"
#include "peers/hyperscan.h"

namespace bench {
namespace {

using Words = std::vector<std::string>;

struct Hit {
  std::size_t offset;
  std::size_t number;
};

HostObject pairs(const std::vector<Hit>& hits) {
  return sequence(hits.size(),
                  [&](std::size_t i) { return pair(hits[i].offset + 1, hits[i].number + 1); });
}

#ifdef VSTRING_PEER_RUST
std::shared_ptr<RustMany> rust_of(const Words& words) {
  std::vector<const char*> texts;
  std::vector<std::size_t> lengths;
  for (const std::string& word : words) {
    texts.push_back(word.data());
    lengths.push_back(word.size());
  }
  return {rust_many_new(texts.data(), lengths.data(), texts.size()), rust_many_free};
}

HostObject rust_hits(const RustMany& automaton, const std::string& text) {
  std::vector<Hit> hits;
  rust_many_all(
      &automaton, text.data(), text.size(),
      [](void* all, std::size_t at, std::size_t number) {
        static_cast<std::vector<Hit>*>(all)->push_back({at, number});
      },
      &hits);
  return pairs(hits);
}
#endif

#ifdef VSTRING_PEER_HYPERSCAN
HostObject hyperscan_hits(const Hyperscan& compiled, const Words& words, const std::string& text) {
  std::vector<Hit> hits;
  compiled.scan(text, [&](unsigned number, std::size_t end) {
    hits.push_back({end - words[number].size(), number});
    return false;
  });
  return pairs(hits);
}
#endif

HostObject dictionary_of(const Words& words) {
  HostObject number = call(vstring_dictCreate, {argument(words)})();
  return argument(velmor_to_integer(number));
}

std::vector<Contestant> search_all(const Words& words) {
  std::vector<Contestant> all{
      {"ours", call(vstring_searchx, {argument(words), argument(prose())})}};
#ifdef VSTRING_PEER_RUST
  all.push_back({"Rust aho-corasick", [=] { return rust_hits(*rust_of(words), prose()); }});
#endif
#ifdef VSTRING_PEER_HYPERSCAN
  all.push_back({"Hyperscan", [=] { return hyperscan_hits(Hyperscan(words), words, prose()); }});
#endif
  return all;
}

std::vector<Contestant> search_dictionary(const Words& words) {
  std::vector<Contestant> all{
      {"ours", call(vstring_dictObjSearch, {dictionary_of(words), argument(prose())})}};
#ifdef VSTRING_PEER_RUST
  all.push_back(
      {"Rust aho-corasick", [built = rust_of(words)] { return rust_hits(*built, prose()); }});
#endif
#ifdef VSTRING_PEER_HYPERSCAN
  all.push_back({"Hyperscan",
                 [=, built = Hyperscan(words)] { return hyperscan_hits(built, words, prose()); }});
#endif
  return all;
}

HostObject nowhere(bool has) { return has ? result(true) : pair(0, 0); }

std::vector<Contestant> search_absent() {
  Words words = some_words(1000);
  std::erase_if(words, [](const std::string& word) { return prose().find(word) != kNowhere; });
  words.resize(100);
  std::vector<Contestant> all{{"ours", call(vstring_search, {argument(words), argument(prose())})}};
#ifdef VSTRING_PEER_RUST
  all.push_back({"Rust aho-corasick", [=] {
                   return nowhere(
                       rust_many_has(rust_of(words).get(), prose().data(), prose().size()));
                 }});
#endif
#ifdef VSTRING_PEER_HYPERSCAN
  all.push_back({"Hyperscan", [=] { return nowhere(Hyperscan(words).has(prose())); }});
#endif
  return all;
}

std::vector<Contestant> build() {
  const Words words = some_words(1000);
  const Work create = call(vstring_dictCreate, {argument(words)});
  std::vector<Contestant> all{{"ours", [=] {
                                 const HostObject made[] = {create()};
                                 const HostObject argseq = velmor_sequence(heap(), 1, made);
                                 velmor_call(heap(), vstring_dictObjFree, argseq, nullptr);
                                 return result(true);
                               }}};
#ifdef VSTRING_PEER_RUST
  all.push_back({"Rust aho-corasick", [=] { return result(rust_of(words) != nullptr); }});
#endif
#ifdef VSTRING_PEER_HYPERSCAN
  all.push_back({"Hyperscan", [=] { return result(Hyperscan(words).accepted()); }});
#endif
  return all;
}

// The lines of the prose, and a pattern that some have.
std::vector<Contestant> list_of_texts() {
  Words lines;
  for (std::size_t from = 0; from < megabyte().size();) {
    const std::size_t end = std::min(megabyte().find('\n', from), megabyte().size());
    lines.push_back(megabyte().substr(from, end - from));
    from = end + 1;
  }
  const std::string pattern = "Jacob";
  const HostObject texts = argument(lines);
  std::vector<Contestant> all{{"ours", call(vstring_search, {argument(pattern), texts})}};
  add_finders(all, pattern, [&](auto finder) {
    return [=] {
      return list(velmor_size(texts), [&](std::size_t i) {
        return result(finder.next(text_of(velmor_element(texts, i + 1)), 0) + 1);
      });
    };
  });
  return all;
}

const Jobs added([] {
  for (const std::size_t n : {10U, 100U, 1000U, 25000U}) {
    job(
        "many patterns/searchx " + std::to_string(n) + " words",
        [=] { return search_all(some_words(n)); }, Order::free);
    job(
        "many patterns/dictionary of " + std::to_string(n) + " words",
        [=] { return search_dictionary(some_words(n)); }, Order::free);
  }
  job("many patterns/first of 100, absent", search_absent);
  job("many patterns/list of texts", list_of_texts);
  job("many patterns/build 1000 words", build);
});

}  // namespace
}  // namespace bench
