// What ends the program after an exception that nobody caught.
//
// libstdc++'s own handler prints the exception's type and text first, which a window has no place for, and brings a
// demangler of 45 KB along. It is named in libstdc++'s manual ("Verbose Terminate Handler"), and this one takes its
// place.
#include <cstdlib>

namespace __gnu_cxx {  // NOLINT(bugprone-reserved-identifier)

[[noreturn]] void __verbose_terminate_handler();  // NOLINT(bugprone-reserved-identifier)

void __verbose_terminate_handler()
{
    std::abort();
}

}  // namespace __gnu_cxx
