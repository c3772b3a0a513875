# Warnings, sanitizers and the hardening of the release, in one interface target that everything links.
add_library(compiler_options INTERFACE)
target_compile_options(compiler_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  # No path of the machine that built it ends up in a binary.
  "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=." "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
target_include_directories(compiler_options INTERFACE "${CMAKE_SOURCE_DIR}/src" "${BRASSLET_GENERATED_DIR}")

option(BRASSLET_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
if(BRASSLET_SANITIZE)
  target_compile_options(compiler_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  target_link_options(compiler_options INTERFACE -fsanitize=address,undefined)
endif()

option(BRASSLET_FUZZ "Coverage for libFuzzer in everything; needs clang" OFF)
if(BRASSLET_FUZZ)
  target_compile_options(compiler_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(WIN32)
  target_compile_definitions(compiler_options INTERFACE
    UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  target_compile_options(compiler_options INTERFACE
    -ffunction-sections -fdata-sections -fstack-protector-strong -fno-ident)
  target_link_options(compiler_options INTERFACE
    -static -fstack-protector-strong
    -Wl,--gc-sections -Wl,--no-insert-timestamp
    -Wl,--dynamicbase -Wl,--nxcompat -Wl,--high-entropy-va
    $<$<NOT:$<CONFIG:Debug>>:-s>)
endif()

# Natively, the tests are linked at every change: LLVM's linker takes half the time.
find_program(BRASSLET_LLD ld.lld)
mark_as_advanced(BRASSLET_LLD)
if(NOT WIN32 AND BRASSLET_LLD)
  target_link_options(compiler_options INTERFACE -fuse-ld=lld)
endif()
