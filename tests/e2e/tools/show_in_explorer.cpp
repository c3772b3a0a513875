// Shows the file of the one argument selected in Explorer, by the program's own code.
#include "platform/text_conversion.h"
#include "platform/windows/shell.h"

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

int main()
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count != 2 || FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    show_in_explorer(narrow(words[1]), nullptr);
    LocalFree(static_cast<HLOCAL>(words));
    CoUninitialize();
    return 0;
}
