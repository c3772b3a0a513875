// What a program with Brasslet's window cannot do without before the window is painted: the same controls in the same
// places, as Windows itself makes and draws them; libcurl set up; the keys of a phrase derived once. In the same order,
// and nothing else: no file, no colour, no picture, nothing drawn by the program.
//
// bench_plain_window URL sends one request besides, once the window is there, and then has the title "Asked".
#include "app/layout.h"
#include "bench/floor_window.h"
#include "kit/wallet_files.h"
#include "net/http_exchange.h"
#include "platform/text_conversion.h"
#include "wallet/wallet_keys.h"

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include <iterator>
#include <string>

namespace {

constexpr unsigned kDpi = 96;
constexpr UINT kAsk = WM_APP;

struct Control {
    const wchar_t* window_class;
    const wchar_t* text;
    Rect MainLayout::*place;
};

constexpr Control kControls[] = {
    {L"BUTTON", L"Connect", &MainLayout::connect},
    {L"BUTTON", L"Unbind", &MainLayout::unbind},
    {L"BUTTON", L"", &MainLayout::settings},
    {L"STATIC", L"House paymail", &MainLayout::house_paymail_caption},
    {L"STATIC", L"No house paymail yet", &MainLayout::house_paymail},
    {L"STATIC", L"Payment address", &MainLayout::payment_address_caption},
    {L"STATIC", L"1BoatSLRHtKNngkdXEeobR76b53LETtpyT", &MainLayout::payment_address},
    {L"STATIC", L"Name", &MainLayout::name_caption},
    {L"EDIT", L"alice", &MainLayout::name_field},
    {L"STATIC", L"alice@brasslet.test", &MainLayout::name_preview},
    {L"STATIC", L"Pays this house paymail. Other names stay.", &MainLayout::name_hint},
    {L"STATIC", L"", &MainLayout::kept_names},
    {L"BUTTON", L"Install plugin", &MainLayout::install},
    {L"BUTTON", L"Publish", &MainLayout::publish},
    {L"BUTTON", L"Remove", &MainLayout::remove},
    {L"BUTTON", L"Close", &MainLayout::close},
    {L"STATIC", L"", &MainLayout::status},
    {L"STATIC", L"Version 0.001", &MainLayout::version},
};

HWND controls[std::size(kControls)];

void create_controls(HWND window)
{
    for (std::size_t i = 0; i < std::size(kControls); ++i)
        controls[i] =
            CreateWindowExW(0, kControls[i].window_class, kControls[i].text, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 0,
                            0, 10, 10, window, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void place_controls(int width)
{
    const MainLayout layout = main_layout(width, kDpi);
    for (std::size_t i = 0; i < std::size(kControls); ++i) {
        const Rect& place = layout.*kControls[i].place;
        MoveWindow(controls[i], place.x, place.y, place.width, place.height, FALSE);
    }
}

void ask(HWND window, const std::string& url)
{
    HttpRequest request;
    request.url = url;
    if (exchange(request).status != 0) SetWindowTextW(window, L"Asked");
}

std::string url_to_ask()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::string url = count > 1 ? narrow(words[1]) : std::string();
    LocalFree(words);
    return url;
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam)
{
    switch (message) {
    case WM_CREATE: {
        create_controls(window);
        PostMessageW(window, kAsk, 0, 0);
        return derive_wallet_keys(SecretText(std::string(kPhrase)), 0, 0) ? 0 : -1;
    }
    case WM_SIZE:
        place_controls(LOWORD(lparam));
        return 0;
    case kAsk:
        if (const std::string url = url_to_ask(); !url.empty()) ask(window, url);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, wparam, lparam);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, PSTR, int show)
{
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
    const CurlLifetime curl;
    const INITCOMMONCONTROLSEX standard{sizeof standard, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&standard);
    run_window({L"BenchPlainWindow", L"Plain", procedure, GetSysColorBrush(COLOR_WINDOW),
                WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 640},
               instance, show);
    CoUninitialize();
    return 0;
}
