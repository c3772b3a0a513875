# Values fixed at build time. The defaults are reserved names (RFC 2606, RFC 5737): a default build cannot reach
# somebody's real host.
set(BRASSLET_MAKERS_PAGE "https://corvane.example/brasslet" CACHE STRING "Page that announces new builds")
set(BRASSLET_HOUSE_DOMAIN "corvane.example" CACHE STRING "Domain of the wallet maker's own paymails")
set(BRASSLET_WALLET_SERVICE_HOST "wallet.example" CACHE STRING "Host of the wallet service")
set(BRASSLET_WALLET_SERVICE_ADDRESS "192.0.2.10" CACHE STRING "IPv4 address that the wallet service host is pinned to")
set(BRASSLET_PLUGIN_AUTHOR "Corvane" CACHE STRING "Author line of the WordPress plugin")
set(BRASSLET_BROADCASTER "https://arc.example" CACHE STRING "Broadcaster that the plugin proposes")

# The version is this number in thousandths; everything that tells a version is made from it.
set(BRASSLET_BUILD 1)
math(EXPR whole "${BRASSLET_BUILD} / 1000")
math(EXPR thousandths "1000 + ${BRASSLET_BUILD} % 1000")
string(SUBSTRING "${thousandths}" 1 3 thousandths)
set(BRASSLET_VERSION "${whole}.${thousandths}")

string(REPLACE "." "\\." BRASSLET_HOUSE_DOMAIN_PATTERN "${BRASSLET_HOUSE_DOMAIN}")
set(BRASSLET_GENERATED_DIR "${CMAKE_BINARY_DIR}/generated")
configure_file("${CMAKE_SOURCE_DIR}/cmake/build_values.h.in" "${BRASSLET_GENERATED_DIR}/build_values.h" @ONLY)
include(plugin_text)
