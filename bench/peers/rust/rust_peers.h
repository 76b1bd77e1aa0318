// What peers.rs offers to C.
#pragma once
#include <cstddef>

extern "C" {

struct RustFinder;
struct RustMany;
struct RustRegex;
using RustFound = void(void* context, std::size_t, std::size_t);

RustFinder* rust_finder_new(const char* pattern, std::size_t m);
void rust_finder_free(RustFinder*);
std::size_t rust_find(const RustFinder*, const char* text, std::size_t n);
void rust_find_all(const RustFinder*, const char* text, std::size_t n, RustFound*, void* context);

RustMany* rust_many_new(const char* const* patterns, const std::size_t* lengths, std::size_t count);
void rust_many_free(RustMany*);
void rust_many_all(const RustMany*, const char* text, std::size_t n, RustFound*, void* context);
bool rust_many_has(const RustMany*, const char* text, std::size_t n);

RustRegex* rust_regex_new(const char* pattern, std::size_t m);
void rust_regex_free(RustRegex*);
bool rust_regex_has(const RustRegex*, const char* text, std::size_t n);
void rust_regex_replace(const RustRegex*, const char* text, std::size_t n, const char* replacement,
                        std::size_t m, RustFound*, void* context);
void rust_regex_matches(const RustRegex*, const char* text, std::size_t n, RustFound*,
                        void* context);
}
