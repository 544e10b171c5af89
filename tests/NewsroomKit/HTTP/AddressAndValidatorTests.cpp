#include <gtest/gtest.h>

#include "NewsroomKit/HTTP/PrivateAddress.h"
#include "NewsroomKit/HTTP/ValidatorTable.h"

namespace kit {
namespace {

// clang-format off
TEST(PrivateAddress, knowsThisMachineAndItsNetworkInAllSpellings) {
    for (const char* ip :
         {"127.0.0.1", "127.255.255.255", "0.0.0.0", "10.0.0.1", "10.255.255.255", "172.16.0.1",
          "172.31.255.255", "192.168.0.1", "169.254.169.254", "100.64.0.1", "100.127.255.255",
          "255.255.255.255", "224.0.0.1", "198.19.0.1", "::", "::1", "fe80::1", "fe80::1%1",
          "febf::1", "fc00::1", "fdff::1", "fec0::1", "ff02::1", "::ffff:127.0.0.1",
          "::ffff:192.168.1.1", "::10.0.0.1", "64:ff9b::7f00:1", "2002:7f00:1::", "",
          "feeds.example", "127.1"}) {
        // clang-format on
        EXPECT_TRUE(isPrivateAddress(ip)) << ip;
    }
}

TEST(PrivateAddress, leavesTheNeighboursOfItsBlocksPublic) {
    for (const char* ip :
         {"1.1.1.1",         "9.255.255.255",   "11.0.0.0",       "126.255.255.255",
          "128.0.0.0",       "172.15.255.255",  "172.32.0.0",     "192.167.255.255",
          "192.169.0.0",     "169.253.255.255", "169.255.0.0",    "100.63.255.255",
          "100.128.0.0",     "198.17.255.255",  "198.20.0.0",     "223.255.255.255",
          "2606:4700::1111", "2001:db8::1",     "::ffff:1.1.1.1", "64:ff9b::101:101",
          "2002:101:101::",  "fbff::1",         "fe00::1"}) {
        EXPECT_FALSE(isPrivateAddress(ip)) << ip;
    }
}

TEST(ValidatorTable, comesBackFromAnExportAsItWas) {
    ValidatorTable table;
    table.store("https://a.example/", {.entityTag = "\"1\"", .lastModified = "Monday"});
    table.store("https://b.example/", {.entityTag = "\"2\""});
    ValidatorTable other;
    other.store("https://c.example/", {.entityTag = "\"3\""});
    other.replace(table.entries());
    EXPECT_EQ(other.entries(), table.entries());
}

TEST(ValidatorTable, forgetsOneAddressAndKeepsTheOthers) {
    ValidatorTable table;
    table.store("https://a.example/", {.entityTag = "\"1\""});
    table.store("https://b.example/", {.entityTag = "\"2\""});
    table.forget("https://a.example/");
    EXPECT_EQ(table.find("https://a.example/"), Validators{});
    EXPECT_EQ(table.find("https://b.example/").entityTag, "\"2\"");
}

TEST(ValidatorTable, keepsNoTextThatIsTooLongToSend) {
    const std::string longest(8192, 'a');
    ValidatorTable table;
    table.store("https://a.example/", {.entityTag = longest, .lastModified = longest + "a"});
    table.store("https://b.example/", {.entityTag = "\"1\""});
    table.store("https://b.example/", {.entityTag = longest + "a"});
    EXPECT_EQ(table.entries(),
              (ValidatorTable::Entries{{"https://a.example/", {.entityTag = longest}}}));
    table.replace({{"https://c.example/", {.lastModified = longest + "a"}}});
    EXPECT_TRUE(table.entries().empty());
}

TEST(ValidatorTable, importsNoTextThatWouldAddAHeader) {
    ValidatorTable table;
    table.replace({{"https://a.example/", {.entityTag = "\"1\"\r\nHost: b", .lastModified = "ok"}},
                   {"https://b.example/", {.entityTag = std::string("a\0b", 3)}}});
    EXPECT_EQ(table.entries(),
              (ValidatorTable::Entries{{"https://a.example/", {.lastModified = "ok"}}}));
}

}  // namespace
}  // namespace kit
