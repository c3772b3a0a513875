"""The works of others that can be inside the executable: what they are called, how the files that they give are known,
which Debian package brought those, and under which licences they are."""
import dataclasses
import fnmatch
import typing

import licences as by
from texts import holders, passage

GCC = "/usr/lib/gcc/x86_64-w64-mingw32/*"
MINGW = "/usr/x86_64-w64-mingw32/lib/"
HEADERS = "/usr/share/mingw-w64/include/"
GCC_HOLDERS = passage(by.GCC_DOC, "Copyright (C) 1986", "Foundation, Inc.")
# The headers that somebody holds rights in.
NOT_PUBLIC_DOMAIN = tuple("mingw-w64-headers/" + name for name in (
    "crt/stdarg.h", "include/knownfolders.h", "include/objectarray.idl", "include/propkeydef.h", "include/propsys.idl",
    "include/rpcsal.h", "include/structuredquerycondition.idl"))


@dataclasses.dataclass(frozen=True)
class Component:
    name: str
    purpose: str
    inputs: tuple[str, ...]  # patterns: archive(member), object, or header
    package: str  # Debian's name of it: the source package when cross_built, otherwise the one that is installed
    home: str
    licences: tuple[by.Licence, ...]  # all of them apply
    holders: typing.Callable
    cross_built: bool = False
    is_data: bool = False  # a list in the source tree, not code: `package` is a source package that has the same list
    remark: str = ""

    def gave(self, file):
        return any(fnmatch.fnmatchcase(file, pattern) for pattern in self.inputs)


# A file belongs to the first that matches.
COMPONENTS = (
    Component(
        "OpenSSL libcrypto", "hashes, ciphers, elliptic curves",
        ("*/.deps/windows/lib/libcrypto.a(*)", "*/.deps/windows/include/openssl/*"),
        "openssl", "https://www.openssl.org/", (by.APACHE,),
        passage("share/licenses/openssl/README.md", "Copyright (c) 1998", "All rights reserved."), cross_built=True),
    Component(
        "libcurl", "HTTPS requests",
        ("*/.deps/windows/lib/libcurl.a(*)", "*/.deps/windows/include/curl/*"),
        "curl", "https://curl.se/", (by.CURL,),
        passage("share/licenses/curl/COPYING", "Copyright (c)", "All rights reserved."), cross_built=True),
    Component(
        "JSON for Modern C++", "reading and writing JSON; headers only",
        ("*/.deps/windows/include/nlohmann/*",),
        "nlohmann-json3", "https://json.nlohmann.me/", (by.MIT,),
        holders(by.JSON_DOC, "*", "include/"), cross_built=True),
    Component(
        "libiberty demangler", "part of libstdc++: names in the text about an exception that nobody caught",
        (GCC + "/libstdc++.a(cp-demangle.o)",),
        "g++-mingw-w64-x86-64-posix", "https://gcc.gnu.org/", (by.GCC_LINKING,), GCC_HOLDERS),
    Component(
        "libstdc++", "GCC's C++ library",
        (GCC + "/libstdc++.a(*)", GCC + "/include/c++/*"),
        "g++-mingw-w64-x86-64-posix", "https://gcc.gnu.org/onlinedocs/libstdc++/", (by.GCC_RUNTIME, by.STL),
        GCC_HOLDERS),
    Component(
        "libssp", "GCC's guard of the stack",
        (GCC + "/libssp.a(*)", GCC + "/libssp_nonshared.a(*)"),
        "gcc-mingw-w64-x86-64-posix", "https://gcc.gnu.org/", (by.GCC_RUNTIME,), GCC_HOLDERS),
    Component(
        "libgcc", "GCC's own run time: exceptions, start-up, the compiler's headers",
        (GCC + "/libgcc.a(*)", GCC + "/libgcc_eh.a(*)", GCC + "/crt*.o", GCC + "/include/*.h",
         GCC + "/include-fixed/*.h"),
        "gcc-mingw-w64-x86-64-posix", "https://gcc.gnu.org/", (by.GCC_RUNTIME,), GCC_HOLDERS),
    Component(
        "winpthreads", "threads and locks under libstdc++",
        (MINGW + "lib*.a(libwinpthread_la-*)", HEADERS + "pthread*.h", HEADERS + "semaphore.h"),
        "mingw-w64-x86-64-dev", "https://www.mingw-w64.org/", (by.MIT, by.LOCKLESS, by.PUBLIC_DOMAIN),
        holders(by.MINGW_DOC, "mingw-w64-libraries/winpthreads/*", "mingw-w64-libraries/winpthreads/include/")),
    Component(
        "mingw-w64 runtime", "start-up, C functions, the imports from Windows' own libraries",
        (MINGW + "crt*.o", MINGW + "lib*.a(*)"),
        "mingw-w64-x86-64-dev", "https://www.mingw-w64.org/",
        (by.ZPL, by.LUCENT, by.DAVID_GAY, by.KEITH_MARSHALL, by.PUBLIC_DOMAIN),
        holders(by.MINGW_DOC, "*", "mingw-w64-crt/gdtoa/", "mingw-w64-crt/stdio/mingw_")),
    Component(
        "mingw-w64 headers", "what Windows and the C library declare",
        (HEADERS + "*",),
        "mingw-w64-common", "https://www.mingw-w64.org/", (by.LGPL, by.STDARG, by.PUBLIC_DOMAIN),
        holders(by.MINGW_DOC, "*", *NOT_PUBLIC_DOMAIN),
        remark="Declarations and constants, the use of which section 5 of LGPL-2.1 leaves unrestricted."),
    Component(
        "BIP39 English word list", "the words of recovery phrases",
        ("*/src/wallet/english_words.inc",),
        "python-mnemonic", "https://github.com/bitcoin/bips/blob/master/bip-0039/english.txt", (by.MIT,),
        lambda prefix: "Copyright 2013-2014 Pavol Rusnak <stick@satoshilabs.com>", is_data=True,
        remark="The SHA-256 is that of the published list, a word a line."),
)
