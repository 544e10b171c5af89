#include <gtest/gtest.h>

#include <set>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Sources/SourceJSON.h"

namespace kit {
namespace {

TEST(SourceCatalog, RowsAreDistinctSecureAndReadBack) {
    const auto catalog = defaultSourceCatalog();
    ASSERT_EQ(catalog.size(), 45u);
    std::set<std::string> ids, feeds;
    for (const auto& source : catalog) {
        EXPECT_TRUE(ids.insert(source.id).second) << source.id;
        EXPECT_TRUE(feeds.insert(source.feedURL).second) << source.feedURL;
        for (const auto& address : {source.feedURL, source.siteURL}) {
            const auto parsed = WebAddress::parse(address);
            ASSERT_TRUE(parsed) << address;
            EXPECT_EQ(parsed->scheme, "https") << address;
            EXPECT_EQ(parsed->text(), address) << "an address that a strict parser would change";
            EXPECT_EQ(maskedSecrets(address), address);
        }
        EXPECT_EQ(decode<NewsSource>(encode(source)), source);
    }
}

TEST(SourceCatalog, GoogleNewsRowsSearchTheirOwnSite) {
    int rows = 0;
    for (const auto& source : defaultSourceCatalog()) {
        if (source.format != NewsSource::Format::googleNews) continue;
        ++rows;
        const auto domain = WebAddress::parse(source.siteURL)->host;
        EXPECT_NE(source.feedURL.find("q=Apple+site:" + domain + "+when:7d"), std::string::npos);
        EXPECT_TRUE(source.onlyApple);
    }
    EXPECT_EQ(rows, 10);
}

}  // namespace
}  // namespace kit
