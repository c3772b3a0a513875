// The way into a program of libFuzzer, which holds one target.
#include "fuzz/target.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzz_targets().front().check({reinterpret_cast<const char*>(data), size});
    return 0;
}
