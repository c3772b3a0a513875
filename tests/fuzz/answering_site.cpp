#include "fuzz/answering_site.h"

AnsweringSite& answering_site()
{
    static AnsweringSite instance;
    return instance;
}

HttpReply exchange(const HttpRequest& request)
{
    AnsweringSite& site = answering_site();
    site.requests.push_back(request);
    HttpReply reply;
    reply.status = 200;
    reply.body = site.body_for(request);
    return reply;
}
