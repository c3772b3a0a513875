"""The licences of what is inside the executable, by their SPDX names ("LicenseRef-" where SPDX has none), and where
their texts are taken from."""
import dataclasses
import typing

from texts import licence_paragraph, passage, whole

GCC_DOC = "/usr/share/doc/gcc-mingw-w64-x86-64-posix/copyright"
MINGW_DOC = "/usr/share/doc/mingw-w64-x86-64-dev/copyright"
JSON_DOC = "share/licenses/nlohmann-json/copyright"
COMMON = "/usr/share/common-licenses/"
GCC_INCLUDE = "/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include/"


@dataclasses.dataclass(frozen=True)
class Licence:
    name: str
    texts: tuple[typing.Callable, ...]


APACHE = Licence("Apache-2.0", (whole("share/licenses/openssl/LICENSE.txt"),))
CURL = Licence("curl", (whole("share/licenses/curl/COPYING"),))
MIT = Licence("MIT", (licence_paragraph(JSON_DOC, "Expat"),))
GCC_RUNTIME = Licence(
    "GPL-3.0-or-later WITH GCC-exception-3.1",
    (
        passage(GCC_DOC, "GCC RUNTIME LIBRARY EXCEPTION", "requirements of the license of GCC."),
        whole(COMMON + "GPL-3"),
    ),
)
# The exception's words are the same in another header of GCC; the demangler's own header is not installed.
GCC_LINKING = Licence(
    "GPL-2.0-or-later WITH GCC-exception-2.0",
    (
        passage(GCC_INCLUDE + "ssp/ssp.h", "In addition to the permissions", "executable.)"),
        whole(COMMON + "GPL-2"),
    ),
)
STL = Licence(
    "LicenseRef-SGI-STL",
    (passage(GCC_INCLUDE + "c++/bits/stl_algobase.h", " * Copyright (c) 1994", "implied warranty.\n */"),),
)
ZPL = Licence("ZPL-2.1", (licence_paragraph(MINGW_DOC, "ZPL-2.1"),))
LUCENT = Licence("LicenseRef-Lucent", (licence_paragraph(MINGW_DOC, "Lucent"),))
DAVID_GAY = Licence("LicenseRef-David-Gay", (licence_paragraph(MINGW_DOC, "David-Gay"),))
KEITH_MARSHALL = Licence("LicenseRef-Keith-Marshall", (licence_paragraph(MINGW_DOC, "Keith-Marshall"),))
PUBLIC_DOMAIN = Licence("LicenseRef-public-domain", (licence_paragraph(MINGW_DOC, "public-domain"),))
LOCKLESS = Licence("BSD-3-Clause", (licence_paragraph(MINGW_DOC, "BSD-3-clause-Lockless"),))
LGPL = Licence("LGPL-2.1-or-later", (whole(COMMON + "LGPL-2.1"),))
STDARG = Licence(
    "LicenseRef-GPL-2.0-or-later-with-include-exception",
    (passage("/usr/share/mingw-w64/include/stdarg.h", "Copyright (C) 1989", "Public License.  */"),),
)
