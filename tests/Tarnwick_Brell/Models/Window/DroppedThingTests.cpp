#include <gtest/gtest.h>

#include <fstream>

#include "Tarnwick_Brell/Models/Window/DroppedThing.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

TEST(DroppedThings, AreToldByWhatTheyAreAndRefusedWithTheReason) {
    using Thing = DroppedThing::Kind;
    struct Case {
        const char* name;
        const char* content;
        Thing kind;
        const char* reason;
    };
    const Case cases[] = {
        {"feeds.xml", "<?xml version=\"1.0\"?>\n<OPML version=\"2.0\"/>", Thing::outlines, ""},
        {"room.json", "\xEF\xBB\xBF{\"name\": 1}", Thing::newsroom, ""},
        {"news.opml", "<rss version=\"2.0\"/>", Thing::refused,
         "“news.opml” is a feed's file. Drop the feed's address."},
        {"photo.png", "\x89PNG", Thing::refused,
         "“photo.png” is neither a list of feeds (OPML) nor a newsroom's file."},
    };
    ::test::TemporaryFolder folder;
    for (const auto& c : cases) {
        const auto path = folder.path() / c.name;
        std::ofstream(path) << c.content;
        const auto dropped =
            DroppedThing::of({QUrl::fromLocalFile(QString::fromStdString(path.string()))}, {});
        EXPECT_EQ(dropped.kind, c.kind) << c.name;
        EXPECT_EQ(dropped.reason.toStdString(), c.reason);
    }
    const auto folderURL = QUrl::fromLocalFile(QString::fromStdString(folder.path().string()));
    EXPECT_TRUE(DroppedThing::of({folderURL}, {}).reason.contains("folder"));
    EXPECT_TRUE(DroppedThing::of({folderURL, folderURL}, {}).reason.contains("one thing"));
}

TEST(DroppedThings, OnlyWebAddressesAreSources) {
    const std::pair<const char*, const char*> cases[] = {
        {"https://tide.example/feed?a=b", "https://tide.example/feed?a=b"},
        {"feed://tide.example/rss", "https://tide.example/rss"},
        {"javascript:alert(1)", ""},
        {"ftp://tide.example/", ""},
    };
    for (const auto& [url, address] : cases)
        EXPECT_EQ(DroppedThing::of({QUrl(QString(url))}, {}).subject.toStdString(), address);
    EXPECT_EQ(DroppedThing::of({}, " https://tide.example/ \n").subject, "https://tide.example/");
    EXPECT_EQ(DroppedThing::of({}, "some words").kind, DroppedThing::Kind::refused);
}

}  // namespace
}  // namespace app
