// Match lists: positions, each with a number of the caller's choice, in the order found.
#include <cstdlib>

#include "host/vstring.h"
#include "runtime/scratch.h"

VstringMatchList* MatchListCreate() {
  return MatchListInit(static_cast<VstringMatchList*>(std::malloc(sizeof(VstringMatchList))));
}

VstringMatchList* MatchListInit(VstringMatchList* list) {
  if (list != nullptr) *list = {0, nullptr, nullptr};
  return list;
}

VstringMatchList* AddMatchToList(VstringMatchList* list, int32_t position, int32_t data) {
  if (list == nullptr) return nullptr;
  auto* const match = static_cast<VstringMatch*>(std::malloc(sizeof(VstringMatch)));
  if (match == nullptr) return nullptr;
  *match = {nullptr, position, data};
  (list->tail == nullptr ? list->head : list->tail->next) = match;
  list->tail = match;
  ++list->count;
  return list;
}

void FreeMatchList(VstringMatchList* list) {
  if (list == nullptr) return;
  while (VstringMatch* const match = list->head) {
    list->head = match->next;
    // A caller may have put its first match into the scratch buffer, which is not ours to free.
    if (static_cast<void*>(match) != vstring::scratch) std::free(match);
  }
  MatchListInit(list);
}
