// libcrypto, linked statically, takes its memory by malloc and gives it back by free, both unwiped but for what it
// knows to be a key. It accepts other functions as long as it has asked for no memory yet: they are set here before
// main begins.
#include "platform/wiping_heap.h"

#include <openssl/crypto.h>

namespace {

void* make_block(std::size_t size, const char*, int)
{
    return wiping_malloc(size);
}

void* resize_block(void* block, std::size_t size, const char*, int)
{
    return wiping_realloc(block, size);
}

void free_block(void* block, const char*, int)
{
    wiping_free(block);
}

[[maybe_unused]] const int is_set = CRYPTO_set_mem_functions(make_block, resize_block, free_block);

}  // namespace
