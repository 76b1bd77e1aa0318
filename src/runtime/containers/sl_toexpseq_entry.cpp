// A string list as a host expression sequence.
#include "host/vstring.h"

HostObject sl_toexpseq(const HostTable* host, const VstringStringList* list, int64_t n) {
  const HostObject sequence = host->HostNewExpSeq(n);
  const VstringStringNode* node = list == nullptr ? nullptr : list->head;
  for (int64_t i = 1; i <= n && node != nullptr; ++i, node = node->next) {
    const char* const text = node->text == nullptr ? "" : node->text;
    const HostObject element = host->HostNewString(text);
    reinterpret_cast<HostObject*>(sequence)[i] = element;
  }
  return sequence;
}
