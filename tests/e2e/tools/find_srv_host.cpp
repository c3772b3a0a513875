// Prints the host that the system's DNS client names for the paymails of a domain: find_srv_host DOMAIN. An empty line:
// there is none.
#include "paymail/discovery.h"

#include <iostream>

int main(int count, char** words)
{
    if (count != 2) return 2;
    std::cout << find_srv_host(words[1]) << '\n';
    return 0;
}
