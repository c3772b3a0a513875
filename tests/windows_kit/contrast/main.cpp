// Switches Windows' high contrast on, and puts back what was set before: when it is told to, or when whoever started it
// is gone, however that ended. Arguments: the handles of an event and of that process, both inherited.
#include <windows.h>

#include <cstdlib>

namespace {

constexpr int kRefused = 2;

HANDLE handle_from(const char* text)
{
    return reinterpret_cast<HANDLE>(std::strtoull(text, nullptr, 10));
}

bool set(HIGHCONTRASTW& setting)
{
    // Nothing is written into the user's profile: after a cut of the power the next start is as it always was.
    return SystemParametersInfoW(SPI_SETHIGHCONTRAST, sizeof setting, &setting, SPIF_SENDCHANGE) != FALSE;
}

}  // namespace

int main(int count, char** arguments)
{
    if (count != 3) return kRefused;
    HIGHCONTRASTW before{};
    before.cbSize = sizeof before;
    if (!SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof before, &before, 0)) return kRefused;
    HIGHCONTRASTW on = before;
    on.dwFlags |= HCF_HIGHCONTRASTON;
    if (!set(on)) return kRefused;
    const HANDLE ends[] = {handle_from(arguments[1]), handle_from(arguments[2])};
    WaitForMultipleObjects(2, ends, FALSE, INFINITE);
    return set(before) ? 0 : 1;
}
