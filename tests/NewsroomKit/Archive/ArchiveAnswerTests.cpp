#include <gtest/gtest.h>

#include "NewsroomKit/Archive/ArchiveFetch.h"
#include "NewsroomKit/Archive/ArchivePage.h"
#include "NewsroomKit/Archive/ArchiveStatus.h"
#include "NewsroomKit/Archive/TraceResult.h"

namespace kit {
namespace {

std::string page(std::string_view items) {
    return R"({"total":"213","offset":50.0,"items":[)" + std::string(items) + "]}";
}

std::string trace(std::string_view members) {
    return R"({"url":"u","nodes":[{"kind":"story","url":"a","precision":"day","depth":"1",)" +
           std::string(members) + "}]}";
}

TEST(ArchiveAnswers, NumbersAndTruthsReadInEveryFormAndNullIsAbsent) {
    const auto stories = archiveAnswer<ArchivePage>(
        "\xEF\xBB\xBF" +
        page(R"({"source":"s","source_name":"S","url":"u","title":"t","author":null,"lead":null,)"
             R"("published_at":"2026-11-02T18:00:00+01:00","day_only":"1","credits":null})"));
    EXPECT_EQ(stories.total, 213);
    EXPECT_EQ(stories.offset, 50);
    EXPECT_TRUE(stories.items[0].isDayOnly());
    EXPECT_FALSE(stories.items[0].author || stories.items[0].credits);
    EXPECT_EQ(stories.items[0].publishedAt, parseISO8601("2026-11-02T17:00:00Z"));

    for (const auto& [text, truth] : {std::pair("true", true),
                                      {"1", true},
                                      {R"("true")", true},
                                      {"0", false},
                                      {R"("0")", false}}) {
        const auto status = archiveAnswer<ArchiveStatus>(
            R"({"sources":[{"id":"s","name":"S","listed":"7","stored":null}],"complete":)" +
            std::string(text) + "}");
        EXPECT_EQ(bool(status.complete), truth) << text;
        EXPECT_EQ(status.sources[0].listed, LenientInt{7});
        EXPECT_FALSE(status.sources[0].stored || status.sources[0].waiting);
    }
    // Scripting languages write an object without keys as a list without items.
    EXPECT_TRUE(archiveAnswer<ServerCredits>(R"({"credits":[],"pending":[]})").credits.empty());
}

TEST(ArchiveAnswers, AFaultAnywhereRefusesTheAnswerWhole) {
    struct Case {
        std::string fault;
        std::function<void()> read;
    };
    const auto stories = [](std::string body) { return [=] { archiveAnswer<ArchivePage>(body); }; };
    const auto credits = [](std::string body) {
        return [=] { archiveAnswer<ServerCredits>(body); };
    };
    const auto traces = [](std::string body) { return [=] { archiveAnswer<TraceResult>(body); }; };
    const Case cases[] = {
        {"items[0].title: the key is missing",
         stories(page(R"({"source":"s","source_name":"S","url":"u"})"))},
        {"items[0].published_at: Unreadable date 2026-11-02",
         stories(page(R"({"source":"s","source_name":"S","url":"u","title":"t",)"
                      R"("published_at":"2026-11-02"})"))},
        {"items[0].published_at: Unreadable date 1767225600",
         stories(page(R"({"source":"s","source_name":"S","url":"u","title":"t",)"
                      R"("published_at":1767225600})"))},
        {"credits.https://a.example/[0].posted_at: Unreadable date 1767225600",
         credits(R"({"pending":[],"credits":{"https://a.example/":)"
                 R"([{"kind":"k","name":"n","posted_at":1767225600}]}})")},
        {"nodes[0].published_at: Unreadable date 1767225600",
         traces(trace(R"("published_at":1767225600)"))},
        {"total: a whole number is expected", stories(R"({"total":"12 or so"})")},
        {"credits.https://a.example/[1].name: the key is missing",
         credits(R"({"credits":{"https://a.example/":[{"kind":"k","name":"n"},{"kind":"k"}]}})")},
        {"credits: an object is expected", credits(R"({"credits":[1],"pending":[]})")},
        {"pending: the key is missing", credits(R"({"credits":{}})")},
        {"nodes[0].published_at: Unreadable date yesterday",
         traces(trace(R"("published_at":"yesterday")"))},
        {"nodes[0].readable: true or false is expected", traces(trace(R"("readable":"maybe")"))},
        {"nodes[0].precision: unknown value \"hour\"",
         traces(R"({"url":"u","nodes":[{"kind":"k","url":"a","precision":"hour","depth":0}]})")},
    };
    for (const auto& c : cases) {
        try {
            c.read();
            ADD_FAILURE() << "read in spite of: " << c.fault;
        } catch (const RecordError& error) {
            EXPECT_EQ(error.what(), c.fault);
        }
    }
}

TEST(ArchiveAnswers, ATraceIsWrittenAsItWasReadAndSaysHowEachNodeRefers) {
    const auto text =
        trace(R"("title":"t","publisher":"p","published_at":"2026-11-02T18:00:00Z","readable":0,)"
              R"("relation":"named","note":"n","platform":"Bluesky")");
    const auto read = archiveAnswer<TraceResult>(text);
    EXPECT_EQ(json::serialize(encode(read)),
              R"({"url":"u","nodes":[{"kind":"story","url":"a","title":"t","publisher":"p",)"
              R"("published_at":"2026-11-02T18:00:00Z","precision":"day","readable":false,)"
              R"("relation":"named","depth":1,"note":"n","platform":"Bluesky"}]})");
    for (const auto& [relation, wording] :
         {std::pair("named", "named as"), {"linked", "linked as"}, {"quoted", ""}}) {
        EXPECT_EQ(TraceNode{.relation = relation}.relationWording(), wording);
    }
}

}  // namespace
}  // namespace kit
