"""What the loader binds before the program's first instruction: nothing that it would look for in the program's own
folder, and nothing that an older Windows lacks, which has to get as far as saying that it is too old."""
import re
import subprocess

import pytest
from executable import opened

# Of the value names under HKLM\SYSTEM\CurrentControlSet\Control\Session Manager\KnownDLLs, those that every Windows from
# Vista to 11 has: the loader takes these from the system's folder, whatever lies elsewhere. Not every library of the
# list has been on it always (shcore, normaliz), so it is kept short.
KNOWN_DLLS = {
    "advapi32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "rpcrt4.dll", "shell32.dll",
    "shlwapi.dll", "user32.dll", "ws2_32.dll",
}
BY_MANIFEST = {"comctl32.dll"}  # bound side by side, from Windows' own store of versions
HEADERS = ["winsock2.h", "ws2tcpip.h", "windows.h", "commctrl.h", "shellapi.h", "shlobj.h", "objbase.h", "wincrypt.h"]
# Declared by no header: what the compiler itself calls.
UNDECLARED = {"__C_specific_handler", "__WSAFDIsSet"}


def imports():
    return {entry.dll.decode().lower(): {function.name.decode() for function in entry.imports if function.name}
            for entry in opened().DIRECTORY_ENTRY_IMPORT}


def test_the_loader_looks_for_none_of_its_libraries_beside_it():
    assert imports().keys() - KNOWN_DLLS == BY_MANIFEST


def undeclared(names, tmp_path, version):
    """Those that the toolchain's headers do not declare for this version of Windows."""
    source = tmp_path / "imports.c"
    lines = [f"#include <{header}>" for header in HEADERS]
    source.write_text("\n".join(lines + [f"const void *of_{name} = (void *){name};" for name in sorted(names)]) + "\n")
    done = subprocess.run(
        ["x86_64-w64-mingw32-gcc-posix", "-fsyntax-only", "-fmax-errors=0", "-w", f"-D_WIN32_WINNT={version}",
         f"-DWINVER={version}", source], capture_output=True, text=True, check=False, env={"LC_ALL": "C", "PATH": "/usr/bin"})
    return set(re.findall(r"error: '(\w+)' undeclared", done.stderr))


WINDOWS_7 = "0x0601"


@pytest.mark.parametrize("library", ["kernel32.dll", "user32.dll", "gdi32.dll", "advapi32.dll", "shell32.dll", "ole32.dll",
                                     "ws2_32.dll", "comctl32.dll"])
def test_windows_7_has_every_function_that_the_loader_binds(library, tmp_path):
    assert undeclared(imports()[library] - UNDECLARED, tmp_path, WINDOWS_7) == set()


def test_the_headers_know_which_functions_are_newer(tmp_path):
    newer = {"SetProcessDpiAwarenessContext", "AdjustWindowRectExForDpi", "SetProcessMitigationPolicy"}
    assert undeclared(newer | {"CreateWindowExW"}, tmp_path, WINDOWS_7) == newer
    assert undeclared(newer, tmp_path, "0x0A00") == set()
