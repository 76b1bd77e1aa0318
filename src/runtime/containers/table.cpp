// A hash table keyed by text, with chained buckets. Keys are the caller's and are not copied.
#include <cstdlib>
#include <cstring>

#include "host/vstring.h"

namespace {

static_assert(sizeof(VstringTableEntry) == 32);

// The first four bytes fill the hash, the others are folded in. Bytes count as signed, and the
// rotation drops four bits: iteration order follows from this hash, so hosts see it.
uint32_t hash(const char* key) {
  uint32_t h = 0;
  int i = 0;
  for (; i < 4 && key[i] != '\0'; ++i) {
    h = (h << 8) | static_cast<uint32_t>(static_cast<signed char>(key[i]));
  }
  if (i < 4) return h;
  for (const char* rest = key + 4; *rest != '\0'; ++rest) {
    h = ((h << 1) | (h >> 27)) ^ static_cast<uint32_t>(static_cast<signed char>(*rest));
  }
  return h;
}

VstringTableEntry** bucket(const VstringTable* table, const char* key) {
  return &table->buckets[hash(key) % table->bucket_count];
}

VstringTableEntry* find(VstringTableEntry* chain, const char* key) {
  while (chain != nullptr && std::strcmp(chain->key, key) != 0) chain = chain->next;
  return chain;
}

}  // namespace

VstringTable* table_new(uint32_t n) {
  const uint64_t bucket_count = uint64_t{n} + (n % 2 == 1 ? 5 : 6);
  if (bucket_count > UINT32_MAX) return nullptr;
  auto* const table = static_cast<VstringTable*>(std::malloc(sizeof(VstringTable)));
  if (table == nullptr) return nullptr;
  *table = {nullptr, static_cast<uint32_t>(bucket_count), 0, pool_create()};
  table->buckets = static_cast<VstringTableEntry**>(
      pool_alloc0(table->pool, bucket_count, sizeof(VstringTableEntry*)));
  if (table->buckets != nullptr) return table;
  table_free(table);
  return nullptr;
}

VstringTableEntry* table_insert(VstringTable* table, const char* key, uintptr_t value) {
  if (table == nullptr || key == nullptr) return nullptr;
  VstringTableEntry** const chain = bucket(table, key);
  if (VstringTableEntry* const known = find(*chain, key)) {
    known->value = value;
    return known;
  }
  auto* const entry = static_cast<VstringTableEntry*>(pool_alloc(table->pool, sizeof **chain));
  if (entry == nullptr) return nullptr;
  entry->next = *chain;
  entry->key = key;
  entry->value = value;
  *chain = entry;
  ++table->entry_count;
  return entry;
}

VstringTableEntry* table_search(const VstringTable* table, const char* key) {
  if (table == nullptr || key == nullptr) return nullptr;
  return find(*bucket(table, key), key);
}

int table_iter(const VstringTable* table, int (*fn)(const char*, uintptr_t)) {
  if (table == nullptr || fn == nullptr) return 0;
  for (uint32_t i = 0; i < table->bucket_count; ++i) {
    for (const VstringTableEntry* e = table->buckets[i]; e != nullptr; e = e->next) {
      if (fn(e->key, e->value) == 0) return 0;
    }
  }
  return 1;
}

void table_free(VstringTable* table) {
  if (table == nullptr) return;
  pool_destroy(table->pool);
  std::free(table->pool);
  std::free(table);
}
