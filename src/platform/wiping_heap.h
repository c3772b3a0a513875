// Freed memory is zeroed first, program-wide.
//
// Secrets pass through memory that no type of ours reaches: the JSON reader's copy of its last token, buffers that grew
// and moved, a library's own text. wiping_heap.cpp therefore replaces the global operator delete by one that zeroes
// what it frees. C libraries that accept an allocator get the functions below: libcurl when it is started
// (net/http_exchange.cpp), libcrypto before main begins (libcrypto_memory.cpp).
#pragma once

#include <cstddef>

void* wiping_malloc(std::size_t size);
void* wiping_calloc(std::size_t count, std::size_t size);
void* wiping_realloc(void* block, std::size_t size);
char* wiping_strdup(const char* text);
void wiping_free(void* block);
