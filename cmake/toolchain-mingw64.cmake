# Cross build for 64-bit Windows with Debian's mingw-w64 (posix threads). The libraries that are linked in come from
# the prefix that scripts/bootstrap fills; Wine runs what the build has to run.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Without "..": CMake would spell the folder in another way when it configures again, and everything would be rebuilt.
get_filename_component(brasslet_root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
set(BRASSLET_DEPS "${brasslet_root}/.deps/windows" CACHE PATH "Prefix of the cross-built libraries")
set(CMAKE_PREFIX_PATH "${BRASSLET_DEPS}")
set(CMAKE_FIND_ROOT_PATH "${BRASSLET_DEPS}" /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../tests/kit/run_windows")
