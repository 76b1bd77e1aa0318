// Match lists as host objects. Positions become 1-based; an empty or missing list becomes the
// empty list in every form.
#include "host/result.h"

using namespace vstring;

namespace {

bool is_empty(const VstringMatchList* list) { return list == nullptr || list->count == 0; }

// What make(match) gives for each match in turn, for new_list and new_sequence.
template <typename Make>
auto each(const VstringMatchList* list, Make make) {
  return [make, match = list->head](std::size_t) mutable {
    const VstringMatch* const current = match;
    match = match->next;
    return make(*current);
  };
}

HostObject position(const HostTable* host, const VstringMatch& match) {
  return host->HostNewInteger(std::int64_t{match.position} + 1);
}

}  // namespace

HostObject MatchListToExpSeq(const HostTable* host, const VstringMatchList* list) {
  if (is_empty(list)) return empty_list(host);
  return new_sequence(host, static_cast<std::size_t>(list->count),
                      each(list, [host](const VstringMatch& m) { return position(host, m); }));
}

HostObject MatchListToExpSeq2(const HostTable* host, const VstringMatchList* list) {
  if (is_empty(list)) return empty_list(host);
  return new_sequence(host, static_cast<std::size_t>(list->count),
                      each(list, [host](const VstringMatch& match) {
                        return new_pair(host, std::int64_t{match.position} + 1, match.data);
                      }));
}

HostObject MatchListToList(const HostTable* host, const VstringMatchList* list) {
  if (is_empty(list)) return empty_list(host);
  return new_list(host, static_cast<std::size_t>(list->count),
                  each(list, [host](const VstringMatch& m) { return position(host, m); }));
}
