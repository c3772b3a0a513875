// What every test that speaks HTTP has: libcurl started, and a server for the names on 127.0.0.1.
#pragma once

#include "kit/wire/https_server.h"
#include "net/http_exchange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

class NetTest : public testing::Test {
protected:
    void answer(const std::string& request, const std::string& body, int status = 200)
    {
        server.answer(request, Answer{status, body, {}, Fault::none});
    }

    CurlLifetime curl;
    HttpsServer server;
};
