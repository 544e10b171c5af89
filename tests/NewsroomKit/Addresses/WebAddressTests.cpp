#include <gtest/gtest.h>

#include <chrono>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace kit {
namespace {

TEST(WebAddress, WhatAStrictParserRefusesIsEscapedAndEscapesStay) {
    struct Case {
        const char* text;
        const char* read;
    };
    const Case cases[] = {
        {"https://example.com/a b?q=c d", "https://example.com/a%20b?q=c%20d"},
        {"https://example.com/caf\u00e9", "https://example.com/caf%C3%A9"},
        {"https://example.com/caf%c3%A9", "https://example.com/caf%c3%A9"},
        {"https://example.com/100%", "https://example.com/100%25"},
        {"https://example.com/100%/%zz%20", "https://example.com/100%25/%25zz%20"},
        {"https://example.com/a|b\"c?d|e#f g", "https://example.com/a%7Cb%22c?d%7Ce#f%20g"},
        {"https://example.com/?a[]=1&b=[x]", "https://example.com/?a%5B%5D=1&b=%5Bx%5D"},
        {"HTTPS://Example.COM:8080/A", "https://example.com:8080/A"},
        {"https://b\u00fccher.example/x", "https://xn--bcher-kva.example/x"},
        {"https://user:p%40ss@[2001:DB8::1]:8443/x", "https://user:p%40ss@[2001:db8::1]:8443/x"},
        {"http://a@b@example.com/x", "http://a%40b@example.com/x"},
        {"https://example.com:/x", "https://example.com/x"},
    };
    for (const auto& c : cases) {
        const auto address = WebAddress::parse(c.text);
        ASSERT_TRUE(address) << c.text;
        EXPECT_EQ(address->text(), c.read);
    }
}

TEST(WebAddress, OnlyAddressesOfTheWebMayBeOpened) {
    for (const char* text :
         {"https://a.example/", "HTTP://a.example", "https://a.example/caf\u00e9?q=a b"}) {
        EXPECT_TRUE(isOpenable(text)) << text;
    }
    for (const char* text :
         {"", "a.example", "https://", "http:/a", "file:///etc/passwd",
          "javascript:https://a.example/", "ftp://a.example/", "https://a.example/\x1b]8;;",
          "https://a.example/\n", " https://a.example/"}) {
        EXPECT_FALSE(isOpenable(text)) << text;
    }
}

TEST(WebAddress, TextWithoutSchemeOrHostIsNoAddress) {
    for (const char* text :
         {"", "example.com", "https://", "https:///path", "mailto:a@example.com",
          "https://exa mple.com/", "https://example.com:port/", "://x",
          "https://example.com:99999/", "at://did:plc:abc/app.bsky.feed.post/3k"}) {
        const auto address = WebAddress::parse(text);
        EXPECT_FALSE(address && address->isHTTP()) << text;
    }
}

TEST(WebAddress, QueryItemsAreDecodedForComparingAndKeptAsWritten) {
    const auto address = WebAddress::parse("https://e.com/?a%3D=1%26&&b&c=&=d");
    ASSERT_TRUE(address);
    const auto items = address->queryItems();
    ASSERT_EQ(items.size(), 4u);
    EXPECT_EQ(items[0].name, "a=");
    EXPECT_EQ(items[0].value, "1&");
    EXPECT_EQ(items[0].raw, "a%3D=1%26");
    EXPECT_EQ(items[1].raw, "b");
    EXPECT_EQ(items[2].raw, "c=");
    EXPECT_EQ(items[3].name, "");
}

TEST(WebAddress, AHostWithPercentOrOfAbsurdLengthIsNone) {
    EXPECT_FALSE(WebAddress::parse("https://quay%2Eexample/1"));
    EXPECT_FALSE(WebAddress::parse("https://quay%zz.example/1"));
    EXPECT_FALSE(WebAddress::parse("https://quay.example%/1"));
    EXPECT_TRUE(WebAddress::parse("https://user%40mail@quay.example/50%25"));

    std::string letters;
    for (int i = 0; i < 500'000; ++i) letters += "ü";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(WebAddress::parse("https://" + letters + ".example/"));
    EXPECT_FALSE(WebAddress::parse("https://name@" + letters));
    EXPECT_FALSE(resolvedAddress("https://quay.example/", "//" + letters));
    EXPECT_TRUE(WebAddress::parse("https://bücher.example/" + letters));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST(WebAddress, AReferenceIsCompletedFromItsPage) {
    struct Case {
        const char* reference;
        const char* resolved;
    };
    const Case cases[] = {
        {"/feed.xml", "https://example.com/feed.xml"},
        {"feed.xml?a=b c", "https://example.com/blog/feed.xml?a=b%20c"},
        {"../up", "https://example.com/up"},
        {"../../../over/../up", "https://example.com/up"},
        {"../../..", "https://example.com/"},
        {"//cdn.example.org/f", "https://cdn.example.org/f"},
        {"//bücher.example/f", "https://xn--bcher-kva.example/f"},
        {" http://other.example/f\n", "http://other.example/f"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(resolvedAddress("https://example.com/blog/post", c.reference), c.resolved)
            << c.reference;
    }
    EXPECT_FALSE(resolvedAddress("not a page", "/feed.xml"));
    EXPECT_FALSE(resolvedAddress("https://example.com/", ""));
    EXPECT_FALSE(resolvedAddress("https://example.com/", "javascript:alert(1)"));
}

TEST(WebAddress, ASubhostEndsWithADotAndTheDomain) {
    EXPECT_TRUE(isHostOrSubhost("x.com", "x.com"));
    EXPECT_TRUE(isHostOrSubhost("news.x.com", "x.com"));
    EXPECT_FALSE(isHostOrSubhost("netflix.com", "x.com"));
    EXPECT_FALSE(isHostOrSubhost("com", "x.com"));
}

}  // namespace
}  // namespace kit
