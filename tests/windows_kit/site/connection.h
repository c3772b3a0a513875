// One caller of the kit's proxy.
#pragma once

#include "windows_kit/site/certificates.h"
#include "windows_kit/site/site.h"

#include <winsock2.h>

#include <map>
#include <string>

// Reads "CONNECT HOST:443", plays that host over TLS for one request, and closes the socket. A host that the kit does
// not have gets a refusal.
void serve(SOCKET caller, const std::map<std::string, TlsContext>& hosts, Site& site);
