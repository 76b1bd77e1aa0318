// What entry points remember from call to call, each part let go of beside the file that keeps it.
#pragma once
#include "host/vstring.h"

namespace vstring {

// Each also allows what it protects.
void forget_dictionaries(const HostTable* host);
void forget_weights(const HostTable* host);

void forget_last_class();  // of random
void forget_lancaster_trace();

}  // namespace vstring
