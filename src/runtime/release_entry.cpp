// Entry point: vstringRelease. What is kept from call to call goes back to its start, here and when
// the library is unloaded.
#include <cstdint>

#include "charclass/filter.h"
#include "host/release.h"
#include "host/vstring.h"
#include "random/generator.h"
#include "runtime/memory.h"
#include "search/many/dictionary.h"
#include "search/regex/error.h"
#include "search/regex/pattern_cache.h"

using namespace vstring;

void vstringRelease(const HostTable* host) {
  // No call waits: all that is held, abandoned ones have left behind.
  memory::let_go_of_abandoned(host, reinterpret_cast<const void*>(UINTPTR_MAX));
  forget_dictionaries(host);
  forget_weights(host);
  forget_last_class();
  forget_lancaster_trace();
  regex::forget_pattern();
  regex::forget_error();
  charclass::forget_filters();
  random::process_generator = random::Generator();
}

// Only plain memory: at this time the host may be gone.
[[gnu::destructor]] static void unload() {
  memory::free_blocks();
  search::clear_dictionaries();
  regex::forget_pattern();
}
