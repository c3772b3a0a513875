// In the place of kit_site.exe, for the checks of what the kit makes of Windows' refusals: it takes the same orders,
// and says of its authority that Windows refused it with the error in BRASSLET_TRUST_ERROR.
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

int main(int count, char** arguments)
{
    if (count > 1 && std::string(arguments[1]) == "--clean") return std::puts("0") < 0;
    std::puts("port 1");
    std::fflush(stdout);
    for (std::string order; std::getline(std::cin, order);) {
        if (order.starts_with("trust")) std::puts(std::getenv("BRASSLET_TRUST_ERROR"));
        std::puts(".");
        std::fflush(stdout);
    }
    return 0;
}
