// Linked lists of words, of 32-bit integers and of texts. Nodes come from a pool of their own, so
// a list is released by destroying its pool.
#include <cstdlib>

#include "host/vstring.h"

namespace {

static_assert(sizeof(VstringListNode) == 16 && sizeof(VstringIntegerNode) == 16 &&
              sizeof(VstringStringNode) == 16);

template <typename List>
List* init(List* list) {
  if (list == nullptr) return nullptr;
  *list = {};
  list->pool = pool_create();
  return list->pool == nullptr ? nullptr : list;
}

template <typename List>
List* create() {
  auto* const list = static_cast<List*>(std::malloc(sizeof(List)));
  if (init(list) != nullptr) return list;
  std::free(list);
  return nullptr;
}

template <typename Node, typename List>
Node* append_node(List* list) {
  auto* const node = static_cast<Node*>(pool_alloc(list->pool, sizeof(Node)));
  if (node == nullptr) return nullptr;
  node->next = nullptr;
  (list->tail == nullptr ? list->head : list->tail->next) = node;
  list->tail = node;
  return node;
}

template <typename Node, typename List, typename Value>
List* append(List* list, Value value) {
  if (list == nullptr) return nullptr;
  Node* const node = append_node<Node>(list);
  if (node == nullptr) return nullptr;
  node->value = value;
  ++list->count;
  return list;
}

template <typename List>
void destroy(List* list) {
  if (list == nullptr) return;
  pool_destroy(list->pool);
  std::free(list->pool);
  *list = {};
}

}  // namespace

VstringList* list_create() { return create<VstringList>(); }
VstringList* list_init(VstringList* list) { return init(list); }

VstringList* list_append(VstringList* list, uintptr_t value) {
  return append<VstringListNode>(list, value);
}

uint32_t list_size(const VstringList* list) { return list == nullptr ? UINT32_MAX : list->count; }

int list_iter(const VstringList* list, int (*fn)(uintptr_t, void*), void* data) {
  if (list == nullptr || fn == nullptr) return -1;
  for (const VstringListNode* node = list->head; node != nullptr; node = node->next) {
    if (fn(node->value, data) == 0) return 0;
  }
  return 1;
}

void list_free(VstringList* list) { destroy(list); }

VstringIntegerList* il_create() { return create<VstringIntegerList>(); }
VstringIntegerList* il_init(VstringIntegerList* list) { return init(list); }

VstringIntegerList* il_append(VstringIntegerList* list, uint32_t value) {
  return append<VstringIntegerNode>(list, value);
}

void il_free(VstringIntegerList* list) { destroy(list); }

VstringStringList* sl_create() { return create<VstringStringList>(); }
VstringStringList* sl_init(VstringStringList* list) { return init(list); }

VstringStringList* sl_append(VstringStringList* list, const char* text) {
  if (list == nullptr) return nullptr;
  // The copy comes first, so that a node never stands in the list without its text.
  char* const copy = pool_strdup(list->pool, text);
  if (copy == nullptr && text != nullptr) return nullptr;
  auto* const node = append_node<VstringStringNode>(list);
  if (node == nullptr) return nullptr;
  node->text = copy;
  return list;
}

int sl_iter(const VstringStringList* list, int (*fn)(const char*, void*), void* data) {
  if (list == nullptr || fn == nullptr) return -1;
  for (const VstringStringNode* node = list->head; node != nullptr; node = node->next) {
    if (fn(node->text, data) == 0) return 0;
  }
  return 1;
}

void sl_free(VstringStringList* list) { destroy(list); }
