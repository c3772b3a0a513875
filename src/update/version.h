// The program's own build number, in thousandths of a version. Read by the resource compiler too.
#pragma once

#define BRASSLET_BUILD 1
#define BRASSLET_VERSION "0.001"
