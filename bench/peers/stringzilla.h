#pragma once
#include <cstddef>

extern "C" {
const char* zilla_find(const char* text, std::size_t n, const char* pattern, std::size_t m);
void zilla_lookup(char* target, std::size_t n, const char* source, const char* table);
}
