#include "platform/dns.h"

#include "platform/text_conversion.h"
#include "text/freed_by.h"

#include <windows.h>

#include <windns.h>

#include <memory>
#include <type_traits>

namespace {

using RecordListFree = void(WINAPI*)(void*, DNS_FREE_TYPE);  // not in every SDK
using Library = std::unique_ptr<std::remove_pointer_t<HMODULE>, FreedBy<FreeLibrary>>;

template <typename Function>
Function function_of(const Library& library, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library.get(), name)));
}

SrvRecord record_from(const DNS_RECORDA& record)
{
    SrvRecord made;
    made.type = record.wType;
    if (record.wType != DNS_TYPE_SRV) return made;
    const DNS_SRV_DATAA& srv = record.Data.SRV;
    if (srv.pNameTarget != nullptr) made.target = srv.pNameTarget;
    made.port = srv.wPort;
    made.priority = srv.wPriority;
    return made;
}

constexpr int kLongestDomain = 255;  // characters (RFC 1035)

}  // namespace

static_assert(kDnsTypeSrv == DNS_TYPE_SRV);

std::vector<SrvRecord> query_srv(const std::string& name)
{
    const Library library(LoadLibraryExW(L"dnsapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
    if (!library) return {};
    const auto query = function_of<decltype(&DnsQuery_A)>(library, "DnsQuery_A");
    const auto free_list = function_of<RecordListFree>(library, "DnsRecordListFree");
    if (query == nullptr || free_list == nullptr) return {};

    // The records' types follow the UNICODE setting; those of DnsQuery_A are the narrow ones whatever it is.
    DNS_RECORD* first = nullptr;
    if (query(name.c_str(), kDnsTypeSrv, DNS_QUERY_STANDARD, nullptr, &first, nullptr) != 0) return {};
    std::vector<SrvRecord> records;
    for (auto* record = reinterpret_cast<DNS_RECORDA*>(first); record != nullptr; record = record->pNext)
        records.push_back(record_from(*record));
    free_list(first, DnsFreeRecordList);
    return records;
}

std::optional<std::string> domain_to_ascii(std::string_view domain)
{
    const std::wstring wide = widen(domain);
    wchar_t ascii[kLongestDomain + 1];
    const int length = IdnToAscii(0, wide.data(), static_cast<int>(wide.size()), ascii, kLongestDomain);
    if (length <= 0) return std::nullopt;
    return narrow({ascii, static_cast<std::size_t>(length)});
}
