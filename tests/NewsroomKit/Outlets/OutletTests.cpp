#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "NewsroomKit/Outlets/Outlet.h"
#include "NewsroomKit/Outlets/OutletNames.h"
#include "NewsroomKit/Text/Folding.h"

namespace kit {
namespace {

std::string_view nameOf(const Outlet* outlet) { return outlet ? outlet->name : "none"; }

TEST(OutletTable, NoNameHostOrAccountStandsForTwoOutlets) {
    std::map<std::string, std::string_view> owners;
    const auto claim = [&](std::string key, const Outlet& outlet) {
        const auto [place, isNew] = owners.emplace(std::move(key), outlet.name);
        EXPECT_TRUE(isNew) << place->first << " belongs to " << place->second << " and "
                           << outlet.name;
    };
    for (const Outlet& outlet : knownOutlets()) {
        EXPECT_FALSE(outlet.hosts.empty() && outlet.accounts.empty()) << outlet.name;
        claim("name " + foldedOutletName(outlet.name), outlet);
        forEachPart(outlet.aliases, '|', [&](std::string_view alias) {
            claim("name " + foldedOutletName(alias), outlet);
        });
        forEachPart(outlet.hosts, ' ', [&](std::string_view host) {
            claim("host " + std::string(host), outlet);
            const bool bare =
                host.find('.') != std::string_view::npos &&
                host.find_first_of("/:_ ") == std::string_view::npos && !host.starts_with("www.") &&
                std::none_of(host.begin(), host.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
            EXPECT_TRUE(bare) << host;
        });
        for (const auto accounts : {outlet.accounts, outlet.reporters}) {
            forEachPart(accounts, ' ', [&](std::string_view account) {
                claim("account " + fold(account), outlet);
                const auto colon = account.find(':');
                ASSERT_NE(colon, std::string_view::npos) << account;
                EXPECT_EQ(
                    nameOf(outletOfAccount(account.substr(0, colon), account.substr(colon + 1))),
                    outlet.name);
            });
        }
    }
}

TEST(OutletTable, FindsOutletsByNameHostAndAccount) {
    EXPECT_EQ(nameOf(outletNamed("the financial times")), "Financial Times");
    EXPECT_EQ(nameOf(outletNamed("WSJ")), "The Wall Street Journal");
    EXPECT_EQ(nameOf(outletNamed("Tom’s Guide")), "Tom's Guide");
    EXPECT_EQ(nameOf(outletNamed("Information")), "none");
    EXPECT_EQ(nameOf(outletOfHost("www.Bloomberg.com")), "Bloomberg");
    EXPECT_EQ(nameOf(outletOfHost("finance.yahoo.com")), "Yahoo Finance");
    EXPECT_EQ(nameOf(outletOfHost("notbloomberg.com")), "none");
    EXPECT_EQ(nameOf(outletOfHost("com")), "none");
    EXPECT_EQ(nameOf(outletOfAccount("X", "@MarkGurman")), "Bloomberg");
    EXPECT_EQ(nameOf(outletOfAccount("Bluesky", "@viticci.macstories.net")), "MacStories");
    EXPECT_EQ(nameOf(outletOfAccount("Mastodon", "@desk@9to5mac.com")), "9to5Mac");
    EXPECT_EQ(nameOf(outletOfAccount("Mastodon", "@someone@mastodon.social")), "none");
    EXPECT_EQ(nameOf(outletOfAccount("Threads", "@someone")), "none");
}

}  // namespace
}  // namespace kit
