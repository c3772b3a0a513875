#include "flows/change_refusal.h"

#include "site/site_refusal.h"

std::wstring change_refusal(const HttpReply& reply)
{
    std::wstring sent_on = sent_on_message(reply);
    if (!sent_on.empty()) return sent_on;
    std::wstring refusal = refusal_message(reply);
    if (!refusal.empty()) return refusal;
    return reply.status == 404 ? L"Install the plugin first." : L"";
}
