#include <functional>
#include <limits>
#include <set>

#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {
namespace {

using Limits = std::numeric_limits<std::int64_t>;

/// Every optional key is there, and every list has an entry.
NewsroomSpec fullSpec() {
    const StoryQuery query{.anyTerms = {"orchard"},
                           .excludedTerms = {"cider"},
                           .sourceIDs = {"harbour-post"},
                           .sourcings = {Sourcing::onRecord}};
    const PanelSpec panel{.id = UUID::random(),
                          .kind = PanelKind::pageWatch,
                          .title = "Pages",
                          .frame = {-1, 2, Limits::max(), Limits::min()},
                          .query = query,
                          .options = {.alerts = true,
                                      .eventTerms = {"keynote"},
                                      .stockRange = "1y",
                                      .platforms = {"tvOS"},
                                      .pages = {"https://www.apple.com/watch"}}};
    return NewsroomSpec::created({.id = UUID::random(),
                                  .name = "Orchard watch",
                                  .symbol = "globe",
                                  .origin = NewsroomSpec::Origin::described,
                                  .prompt = "What grows?",
                                  .focus = query,
                                  .panels = {panel}});
}

/// Where reading fails; "read" when it does not.
std::string faultPath(const json::value& value) {
    try {
        decode<NewsroomSpec>(value);
        return "read";
    } catch (const RecordError& error) {
        return error.path();
    }
}

using Visit = std::function<void(const std::string& path, json::value& place)>;

/// Every key and the first entry of every list.
void visitBelow(const std::string& path, json::value& value, const Visit& visit) {
    const auto descend = [&](const std::string& inner, json::value& place) {
        visit(inner, place);
        visitBelow(inner, place, visit);
    };
    if (auto* array = value.if_array()) descend(path + "[0]", array->at(0));
    if (auto* object = value.if_object()) {
        for (auto& pair : *object)
            descend((path.empty() ? "" : path + ".") + std::string(pair.key()), pair.value());
    }
}

/// The value without the key at which `path` ends; a list's entry becomes null.
json::value without(const json::value& value, const std::string& path) {
    auto pointer = "/" + path;
    for (const auto* sign : {".", "[", "]"}) {
        for (auto at = pointer.find(sign); at != std::string::npos; at = pointer.find(sign))
            pointer.replace(at, 1, *sign == ']' ? "" : "/");
    }
    const auto parent = pointer.substr(0, pointer.rfind('/'));
    auto less = value;
    if (auto* object = less.at_pointer(parent).if_object())
        object->erase(pointer.substr(parent.size() + 1));
    else
        less.at_pointer(pointer) = nullptr;
    return less;
}

TEST(NewsroomSpec, EveryKeyOfAStoredOneIsReadStrictlyAndAFaultIsNamedByItsPath) {
    auto stored = encode(fullSpec());
    int visited = 0;
    visitBelow("", stored, [&](const std::string& path, json::value& place) {
        ++visited;
        const bool isOption = path.starts_with("panels[0].options.") && !path.ends_with("]");
        const bool mayLack = isOption || path == "prompt" || path == "panels[0].query";
        EXPECT_EQ(faultPath(without(stored, path)), mayLack ? "read" : path) << "missing";
        const auto kept = place;
        place = nullptr;
        EXPECT_EQ(faultPath(stored), mayLack ? "read" : path) << "null";
        place = kept.is_object() ? json::value("text") : json::value(json::object());
        EXPECT_EQ(faultPath(stored), path) << "another type";
        place = kept;
    });
    EXPECT_EQ(visited, 45);
    EXPECT_EQ(faultPath(stored), "read");
}

TEST(NewsroomSpec, UnknownValuesAreRefusedAndOddNumbersKept) {
    struct Case {
        const char* place;
        json::value value;
        const char* fault;
    };
    const Case cases[] = {
        {"/origin", "found", "origin"},
        {"/panels/0/kind", "Stream", "panels[0].kind"},
        {"/focus/sourcings/0", "gossip", "focus.sourcings[0]"},
        {"/id", "8B3D5F20_0000_4000_8000_00000000A7D1", "id"},
        {"/panels/0/id", "{8B3D5F20-0000-4000-8000-00000000A7D1}", "panels[0].id"},
        {"/panels/0/frame/row", 1.5, "panels[0].frame.row"},
        {"/panels/0/frame/row", std::numeric_limits<std::uint64_t>::max(), "panels[0].frame.row"},
        {"/panels/0/frame/row", Limits::min(), "read"},
        {"/symbol", "star", "read"},
        {"/version", 7, "read"},
    };
    for (const auto& c : cases) {
        auto stored = encode(fullSpec());
        stored.at_pointer(c.place) = c.value;
        EXPECT_EQ(faultPath(stored), c.fault) << c.value;
        if (c.fault == std::string("read")) {
            EXPECT_EQ(encode(decode<NewsroomSpec>(stored)), stored);
        }
    }
}

TEST(NewsroomSpec, WhatIsWrittenReadsBackEqualAndLeavesOutWhatIsAbsent) {
    for (const auto& spec : {fullSpec(), NewsroomSpec::builtIn(), NewsroomSpec::created({})})
        EXPECT_EQ(decode<NewsroomSpec>(parseJSON(json::serialize(encode(spec)))), spec);
    const auto today = encode(NewsroomSpec::builtIn());
    EXPECT_FALSE(today.as_object().contains("prompt"));
    EXPECT_FALSE(today.at_pointer("/panels/0").as_object().contains("query"));
    EXPECT_EQ(today.at_pointer("/id"), "8B3D5F20-0000-4000-8000-00000000A7D1");

    auto lower = today;
    lower.at_pointer("/id") = "8b3d5f20-0000-4000-8000-00000000a7d1";
    EXPECT_EQ(encode(decode<NewsroomSpec>(lower)), today);
    std::set<UUID> ids;
    for (const auto& made : {NewsroomSpec::builtIn(), NewsroomSpec::builtIn()})
        for (const auto& panel : made.panels) ids.insert(panel.id);
    EXPECT_EQ(ids.size(), 14U);
}

TEST(NewsroomSpec, EveryFieldCountsForTheHash) {
    const auto original = fullSpec();
    std::set<std::size_t> hashes{std::hash<NewsroomSpec>{}(original)};
    auto stored = encode(original);
    visitBelow("", stored, [&](const std::string& path, json::value& place) {
        const auto kept = place;
        for (const json::value& other :
             {json::value("https://apple.com/mac"), json::value(5), json::value(kept != true),
              json::value("rumor"), json::value("stock"), json::value("builtIn"),
              json::value(UUID::random().text()), json::value(json::array())}) {
            place = other;
            if (faultPath(stored) != "read") continue;
            const auto changed = decode<NewsroomSpec>(stored);
            if (changed == original) continue;
            EXPECT_TRUE(hashes.insert(std::hash<NewsroomSpec>{}(changed)).second) << path;
            break;
        }
        place = kept;
    });
    EXPECT_EQ(hashes.size(), 1 + 40U);
}

TEST(NewsroomSpec, RowsUsedReachToTheLowestEdge) {
    struct Case {
        std::vector<GridFrame> frames;
        std::int64_t rows;
    };
    const Case cases[] = {
        {{}, 0},
        {{{0, 4, 3, 2}, {0, 0, 3, 5}}, 6},
        {{{0, Limits::max(), 1, 2}, {0, Limits::min(), 1, -1}}, Limits::max()},
        {{{0, Limits::min(), 1, -1}}, Limits::min()},
    };
    for (const auto& c : cases) {
        NewsroomSpec spec;
        for (const auto& frame : c.frames) spec.panels.push_back({.frame = frame});
        EXPECT_EQ(spec.rowsUsed(), c.rows);
    }
}

TEST(PanelOptions, OnlyPagesOnApplesDomainOverHTTPSAreKeptInTheirOrder) {
    const std::vector<std::string> kept{"https://apple.com", "HTTPS://Support.APPLE.com/guide?a=b",
                                        "https://a.b.apple.com:8443/"};
    json::array pages;
    for (const auto& page : kept) {
        for (const char* dropped :
             {"http://www.apple.com/", "https://pears.example/apple.com", "https://myapple.com/",
              "https://apple.com.pears.example/", "https://apple.com@pears.example/", "apple.com",
              "", "ftp://apple.com/", "https://", "https://apple.com./",
              "https://pears.example\\@apple.com/"})
            pages.emplace_back(dropped);
        pages.emplace_back(page);
    }
    const auto options = decode<PanelOptions>(json::object{{"pages", pages}});
    EXPECT_EQ(options, PanelOptions{.pages = kept});
    EXPECT_EQ(decode<PanelOptions>(json::object()), PanelOptions{});
    EXPECT_EQ(encode(PanelOptions{}),
              parseJSON(R"({"alerts":false,"eventTerms":[],"stockRange":"1m","platforms":
                  ["iOS","iPadOS","macOS","watchOS","tvOS","visionOS"],"pages":[]})"));
}

TEST(NewsroomLimits, ANewsroomFromElsewhereIsRefusedByTheFirstThingThatIsTooMuch) {
    struct Case {
        const char* fault;
        std::function<void(NewsroomSpec&)> change;
    };
    const Case cases[] = {
        {"", [](auto&) {}},
        {"", [](auto& s) { s.prompt = "two\nlines"; }},
        {"name", [](auto& s) { s.name = " "; }},
        {"name", [](auto& s) { s.name = "a\nb"; }},
        {"", [](auto& s) { s.name = std::string(200, 'x'); }},
        {"name", [](auto& s) { s.name = std::string(201, 'x'); }},
        {"symbol", [](auto& s) { s.symbol = "\x1b[2J"; }},
        {"prompt", [](auto& s) { s.prompt = std::string(4001, 'x'); }},
        {"panels", [](auto& s) { s.panels.resize(101); }},
        {"panels[1].id", [](auto& s) { s.panels.push_back(s.panels[0]); }},
        {"panels[0].title", [](auto& s) { s.panels[0].title = "\u202Egnp.exe"; }},
        {"panels[0].title", [](auto& s) { s.panels[0].title += "\u0085"; }},
        {"panels[0].title",
         [](auto& s) {
             for (int i = 0; i < 2000; ++i) s.panels[0].title += "\u0301";
         }},
        {"panels[0].query.anyTerms", [](auto& s) { s.panels[0].query->anyTerms.resize(201); }},
        {"focus.sourcings", [](auto& s) { s.focus.sourcings.resize(201); }},
        {"focus.excludedTerms[0]", [](auto& s) { s.focus.excludedTerms[0].resize(300, 'x'); }},
        {"panels[0].options.pages[0]",
         [](auto& s) { s.panels[0].options.pages[0].resize(3000, 'x'); }},
    };
    for (const auto& c : cases) {
        auto spec = fullSpec();
        c.change(spec);
        std::string fault;
        try {
            NewsroomLimits::require(spec);
        } catch (const RecordError& error) {
            fault = error.path();
        }
        EXPECT_EQ(fault, c.fault);
    }
}

}  // namespace
}  // namespace kit
