#include "wallet_bridge/connect_files.h"

#include "kit/test_folder.h"
#include "platform/files.h"
#include "text/clock.h"
#include "wallet_bridge/binding.h"

#include <gtest/gtest.h>

namespace {

constexpr char kId[] = "1700000000000";

ReplyState state_of(const TestFolder& folder, const std::string& reply)
{
    folder.write(std::string("connect/") + kId + ".rep.json", reply);
    return read_connect_reply(kId);
}

// A program that has started and is bound to no wallet.
class ConnectFiles : public testing::Test {
protected:
    ConnectFiles() { bind_at_startup("C:\\Tools\\Brasslet", "Brasslet"); }

    TestFolder m_folder;
};

}  // namespace

TEST_F(ConnectFiles, TheRequestNamesTheProgramItsFolderAndTheTime)
{
    const std::int64_t before = milliseconds_since_epoch();
    const std::string id = write_connect_request();
    const std::int64_t now = std::stoll(id);
    EXPECT_GE(now, before);
    EXPECT_LE(now, milliseconds_since_epoch());
    EXPECT_EQ(id, std::to_string(now));
    EXPECT_EQ(m_folder.read("connect/" + id + ".req.json"),
              "{\n  \"app\": \"Brasslet\",\n  \"id\": \"" + id +
                  "\",\n  \"instance\": \"C:\\\\Tools\\\\Brasslet\",\n  \"ts\": " + std::to_string(now / 1000) + "\n}");
    EXPECT_FALSE(m_folder.has("connect/" + id + ".rep.json"));
}

TEST_F(ConnectFiles, ARequestThatCannotBeWrittenHasNoId)
{
    m_folder.write("connect", "a file where the folder should be");
    EXPECT_EQ(write_connect_request(), "");
}

TEST(ConnectFilesBeforeTheStart, NoRequestIsWritten)
{
    const TestFolder folder;
    EXPECT_EQ(write_connect_request(), "");
    EXPECT_FALSE(folder.has("connect"));
}

TEST_F(ConnectFiles, WithoutAReplyTheStateIsPending)
{
    EXPECT_EQ(read_connect_reply(kId), ReplyState::pending);
    m_folder.write("connect/1699999999999.rep.json", R"({"ok":true})");
    EXPECT_EQ(read_connect_reply(kId), ReplyState::pending);
}

TEST_F(ConnectFiles, WithoutARequestEveryReplyIsARefusal)
{
    m_folder.write("connect/.rep.json", R"({"ok":true})");
    EXPECT_EQ(read_connect_reply(""), ReplyState::denied);
}

TEST_F(ConnectFiles, AnApprovalBindsTheWalletThatItNames)
{
    EXPECT_EQ(state_of(m_folder, R"({"note":[1],"ok":true,"wallet_id":"7"})"), ReplyState::approved);
    EXPECT_EQ(bound_wallet_id(), "7");
    EXPECT_TRUE(m_folder.has("binds/c__tools_brasslet.json"));
}

TEST_F(ConnectFiles, AnApprovalWithoutAWalletBindsNone)
{
    for (const char* reply : {R"({"ok":true})", R"({"ok":true,"wallet_id":""})"}) {
        EXPECT_EQ(state_of(m_folder, reply), ReplyState::approved) << reply;
        EXPECT_EQ(bound_wallet_id(), "") << reply;
    }
    bind_wallet("3");
    EXPECT_EQ(state_of(m_folder, R"({"ok":true})"), ReplyState::approved);
    EXPECT_EQ(bound_wallet_id(), "3");
}

TEST_F(ConnectFiles, EverythingElseIsARefusalAndBindsNothing)
{
    for (const char* reply : {"",
                              " ",
                              "yes",
                              "{",
                              "[]",
                              "true",
                              "null",
                              R"("ok")",
                              "{}",
                              R"({"wallet_id":"7"})",
                              R"({"ok":false,"wallet_id":"7"})",
                              R"({"ok":1,"wallet_id":"7"})",
                              R"({"ok":"true","wallet_id":"7"})",
                              R"({"ok":null,"wallet_id":"7"})",
                              R"({"ok":[true],"wallet_id":"7"})",
                              R"({"OK":true,"wallet_id":"7"})",
                              R"({"ok":true,"wallet_id":7})",
                              R"({"ok":true,"wallet_id":null})",
                              R"({"ok":true,"wallet_id":["7"]})",
                              R"([{"ok":true,"wallet_id":"7"}])",
                              R"({"ok":true,"wallet_id":"7"} more)",
                              "{\"ok\":true,\"wallet_id\":\"\xFF\"}"}) {
        EXPECT_EQ(state_of(m_folder, reply), ReplyState::denied) << reply;
        EXPECT_EQ(bound_wallet_id(), "") << reply;
    }
}

TEST_F(ConnectFiles, AReplyOfManyLevelsIsARefusal)
{
    const std::string deep(10'000, '[');
    EXPECT_EQ(state_of(m_folder, deep), ReplyState::denied);
    EXPECT_EQ(state_of(m_folder, R"({"ok":true,"wallet_id":"7","note":)" + deep + std::string(10'000, ']') + "}"),
              ReplyState::denied);
}

TEST_F(ConnectFiles, AReplyThatCannotBeOpenedIsARefusal)
{
    ASSERT_TRUE(create_folders(m_folder.data() + "/connect/" + kId + ".rep.json"));
    EXPECT_EQ(read_connect_reply(kId), ReplyState::denied);
}
