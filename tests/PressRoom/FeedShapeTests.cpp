#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <libxml/parser.h>
#include <libxml/xpath.h>

#include "NewsroomKit/Sources/SourceCatalog.h"
#include "tests/PressRoom/SampleWorld.h"

namespace pressroom::testing {
namespace {

/// A well-formed document that is asked by XPath, names without regard to namespaces.
class Document {
public:
    explicit Document(const std::string& xml)
        : document_(xmlReadMemory(xml.data(), static_cast<int>(xml.size()), "feed.xml", nullptr,
                                  XML_PARSE_NONET | XML_PARSE_NOERROR),
                    xmlFreeDoc) {}

    bool isWellFormed() const { return document_ != nullptr; }
    std::string root() const {
        return reinterpret_cast<const char*>(xmlDocGetRootElement(document_.get())->name);
    }

    std::vector<std::string> texts(const std::string& path) const {
        const std::unique_ptr<xmlXPathContext, void (*)(xmlXPathContext*)> context(
            xmlXPathNewContext(document_.get()), xmlXPathFreeContext);
        const std::unique_ptr<xmlXPathObject, void (*)(xmlXPathObject*)> found(
            xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path.c_str()), context.get()),
            xmlXPathFreeObject);
        std::vector<std::string> result;
        if (!found || !found->nodesetval) return result;
        for (int i = 0; i < found->nodesetval->nodeNr; ++i) {
            const std::unique_ptr<xmlChar, void (*)(void*)> text(
                xmlNodeGetContent(found->nodesetval->nodeTab[i]), xmlFree);
            result.emplace_back(reinterpret_cast<const char*>(text.get()));
        }
        return result;
    }

private:
    std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document_;
};

std::string named(const std::string& name) { return "*[local-name()='" + name + "']"; }

struct Shape {
    Platform platform;
    std::string root;
    std::string entries;              ///< path of the entries
    std::vector<std::string> always;  ///< what every entry of the sample has
    std::vector<std::string> never;
    std::size_t longest = 1000;
};

const std::vector<Shape> shapes{
    {Platform::wordPress, "rss", "/rss/channel/item", {"title", "guid", "encoded"}, {"author"}},
    {Platform::rss,
     "rss",
     "/rss/channel/item",
     {"title", "link", "guid", "description", "pubDate"},
     {"encoded"}},
    {Platform::rdf,
     "RDF",
     "/" + named("RDF") + "/" + named("item"),
     {"title", "link", "date"},
     {"pubDate", "guid"}},
    {Platform::atom,
     "feed",
     "/" + named("feed") + "/" + named("entry"),
     {"title", "link", "id", "published", "updated", "content"},
     {"pubDate"}},
    {Platform::linkedList,
     "feed",
     "/" + named("feed") + "/" + named("entry"),
     {"title", "link", "id", "published", "updated", "content"},
     {"summary"}},
    {Platform::appleNewsroom,
     "feed",
     "/" + named("feed") + "/" + named("entry"),
     {"title", "link", "id", "updated", "content"},
     {"published"}},
    {Platform::appleBulletin,
     "rss",
     "/rss/channel/item",
     {"title", "link", "guid", "pubDate", "encoded"},
     {}},
    {Platform::googleNews,
     "rss",
     "/rss/channel/item",
     {"title", "link", "guid", "source", "pubDate"},
     {"encoded"}},
    {Platform::medium,
     "rss",
     "/rss/channel/item",
     {"title", "creator", "encoded"},
     {"description"},
     10},
    {Platform::podcast, "rss", "/rss/channel/item", {"title", "enclosure", "duration"}, {}},
    {Platform::youTube,
     "feed",
     "/" + named("feed") + "/" + named("entry"),
     {"videoId", "group", "published", "updated"},
     {"summary", "content"},
     15},
    {Platform::bluesky,
     "rss",
     "/rss/channel/item",
     {"link", "description", "pubDate", "guid"},
     {"title", "author"},
     30},
    {Platform::mastodon,
     "rss",
     "/rss/channel/item",
     {"link", "description", "guid"},
     {"title", "author"}},
    {Platform::reddit,
     "feed",
     "/" + named("feed") + "/" + named("entry"),
     {"title", "author", "content", "id"},
     {"summary"}},
};

const Shape& shapeOf(Platform platform) {
    return *std::find_if(shapes.begin(), shapes.end(),
                         [&](const Shape& shape) { return shape.platform == platform; });
}

std::size_t dueStories(const WorldSource& source, double minutesAfterAnchor) {
    return static_cast<std::size_t>(std::count_if(
        source.stories.begin(), source.stories.end(),
        [&](const WorldStory& story) { return -story.minutesAgo <= minutesAfterAnchor; }));
}

TEST(FeedShapes, EverySourceServesItsDueStoriesInTheShapeOfItsPlatform) {
    SteeredWorld world(sampleWorld());
    for (const int minutes : {0, 240}) {
        world.passTo(minutes);
        for (const auto& source : sampleWorld()) {
            if (source.fault) continue;
            SCOPED_TRACE(source.id);
            const auto& shape = shapeOf(source.platform);
            const auto response = world.get(source.address);
            ASSERT_EQ(response.status, 200);
            const Document feed(response.body);
            ASSERT_TRUE(feed.isWellFormed());
            EXPECT_EQ(feed.root(), shape.root);
            const auto due = std::min(dueStories(source, minutes), shape.longest);
            EXPECT_EQ(feed.texts(shape.entries).size(), due);
            for (const auto& name : shape.always) {
                EXPECT_EQ(feed.texts(shape.entries + "[" + named(name) + "]").size(), due) << name;
            }
            for (const auto& name : shape.never) {
                EXPECT_TRUE(feed.texts(shape.entries + "/" + named(name)).empty()) << name;
            }
        }
    }
}

TEST(FeedShapes, TheSampleWorldServesEveryRowOfTheCatalogue) {
    std::map<std::string, std::pair<std::string, std::string>> served, wanted;
    for (const auto& source : sampleWorld()) served[source.id] = {source.address, source.home};
    for (const auto& row : kit::defaultSourceCatalog()) wanted[row.id] = {row.feedURL, row.siteURL};
    EXPECT_EQ(served, wanted);
}

TEST(FeedShapes, TheSampleWorldUsesEveryPlatformAndHasNewsToCome) {
    std::set<Platform> platforms;
    std::size_t stories = 0, later = 0;
    for (const auto& source : sampleWorld()) {
        platforms.insert(source.platform);
        stories += source.stories.size();
        later += source.stories.size() - dueStories(source, 0);
    }
    EXPECT_EQ(platforms.size(), kit::enumTable<Platform>.size());
    EXPECT_GE(stories, 450u);
    EXPECT_GE(later, 40u) << "a running desk would see too little arrive";
}

WorldSource source(Platform platform, std::vector<WorldStory> stories) {
    return {.id = "sample",
            .platform = platform,
            .address = "https://sample.example/feed",
            .home = "https://sample.example/",
            .title = "Sample",
            .description = "A & B",
            .articles = "https://sample.example/{year}/{month}/{slug}",
            .author = "Sample Press",
            .account = std::nullopt,
            .footer = std::nullopt,
            .fault = std::nullopt,
            .stories = std::move(stories)};
}

WorldStory story(double minutesAgo, std::string title) {
    WorldStory result;
    result.minutesAgo = minutesAgo;
    result.title = std::move(title);
    result.text = "Two sentences. No more.";
    return result;
}

TEST(FeedShapes, OddItemsKeepTheirOddities) {
    auto undated = story(30, "Undated");
    undated.undated = true;
    auto future = story(30, "Future");
    future.datedMinutesAgo = -1440;
    auto guidOnly = story(30, "Guid only");
    guidOnly.guidOnly = true;
    auto marked = story(30, "Marks < & > ]]> “quotes” 🍎");
    marked.text = "A ]]> B & <b>";
    const SteeredWorld world({source(Platform::wordPress, {undated, future, guidOnly, marked})});
    const Document feed(world.get("https://sample.example/feed").body);
    ASSERT_TRUE(feed.isWellFormed());
    const auto item = [&](const std::string& title, const std::string& rest) {
        return feed.texts("//item[title=\"" + title + "\"]/" + rest);
    };
    EXPECT_TRUE(item("Undated", "pubDate").empty());
    EXPECT_EQ(item("Future", "pubDate").front(), "Thu, 19 Nov 2026 11:06:40 +0000");
    EXPECT_TRUE(item("Guid only", "link").empty());
    EXPECT_EQ(item("Guid only", "guid").front(), "https://sample.example/2026/11/guid-only");
    EXPECT_EQ(item("Marks < & > ]]> “quotes” 🍎", named("encoded")).front(),
              "<p>A ]]&gt; B &amp; &lt;b&gt;</p>");
}

TEST(FeedShapes, ALinkToAnotherSourceCarriesItsTrackingItems) {
    auto origin = source(Platform::wordPress, {story(60, "Origin")});
    auto linking = source(Platform::linkedList, {story(30, "Linked")});
    linking.id = "linking";
    linking.address = "https://linking.example/feed";
    linking.home = "https://linking.example/";
    linking.articles = "https://linking.example/linked/{slug}";
    linking.stories[0].linkOf = "sample:origin";
    linking.stories[0].tracking = "utm_source=linking";
    const SteeredWorld world({origin, linking});
    const Document feed(world.get("https://linking.example/feed").body);
    const auto link = [&](const std::string& rel) {
        return feed.texts("//" + named("entry") + "/" + named("link") + "[@rel='" + rel +
                          "']/@href");
    };
    EXPECT_EQ(link("alternate"),
              std::vector<std::string>{"https://sample.example/2026/11/origin?utm_source=linking"});
    EXPECT_EQ(link("related"), std::vector<std::string>{"https://linking.example/linked/linked"});
}

TEST(FeedShapes, AGoogleHeadlineEndsWithItsPublisherAndHidesTheAddress) {
    auto news = source(Platform::googleNews, {story(60, "Apple Moves")});
    const SteeredWorld world({news});
    const Document feed(world.get(news.address).body);
    EXPECT_EQ(feed.texts("//item/title").front(), "Apple Moves - Sample Press");
    EXPECT_EQ(feed.texts("//item/source").front(), "Sample Press");
    const auto link = feed.texts("//item/link").front();
    EXPECT_TRUE(link.starts_with("https://news.google.com/rss/articles/CBMi")) << link;
    EXPECT_EQ(world.get(link).status, 200);
}

}  // namespace
}  // namespace pressroom::testing
