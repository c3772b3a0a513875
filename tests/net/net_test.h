// What every test that speaks HTTP has: libcurl started, and a server for the names on 127.0.0.1.
#pragma once

#include "net/curl_lifetime.h"
#include "net/https_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

class NetTest : public testing::Test {
protected:
    CurlLifetime curl;
    HttpsServer server;
};
