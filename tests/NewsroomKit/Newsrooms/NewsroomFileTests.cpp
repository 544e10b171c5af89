#include <gtest/gtest.h>

#include "NewsroomKit/Newsrooms/NewsroomFile.h"
#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/NewsroomMaking.h"
#include "tests/NewsroomKit/Newsrooms/LayoutFaults.h"

namespace {

using namespace kit;

NewsroomSpec made() {
    return madeNewsroom("Chips", "bolt",
                        std::array{PanelKind::stream, PanelKind::status, PanelKind::brief},
                        {.anyTerms = {"A20", "glass, matte"}, .sourcings = {Sourcing::rumor}});
}

TEST(ANewsroomFile, ReadsBackEqual) {
    auto spec = made();
    spec.prompt = "everything about chips\nand glass";
    spec.panels[0].query = StoryQuery{.excludedTerms = {"case"}, .includesSetAside = true};
    spec.panels[1].options.pages = {"https://www.apple.com/iphone/"};
    EXPECT_EQ(NewsroomFile::read(NewsroomFile::write(spec)), spec);
    EXPECT_EQ(NewsroomFile::read("\xEF\xBB\xBF" + NewsroomFile::write(spec)), spec);
}

TEST(ANewsroomFile, IsRefusedWithTheReason) {
    const auto file = [](auto change) {
        auto json = encode(made());
        change(json.as_object());
        return json::serialize(json);
    };
    const auto panel = [](json::object& spec) -> json::object& {
        return spec["panels"].as_array()[1].as_object();
    };
    const struct {
        std::string file;
        std::string reason;
    } cases[] = {
        {"", ""},
        {"<opml/>", ""},
        {"[]", "an object is expected"},
        {std::string(NewsroomLimits::kFileBytes + 1, ' '), "larger than a newsroom can be"},
        {std::string(100'000, '['), ""},
        {file([](auto& spec) { spec["version"] = 2; }),
         "version: the newsroom was made by a newer"},
        {file([](auto& spec) { spec["name"] = "  "; }), "name: it is empty"},
        {file([](auto& spec) { spec["name"] = "a\u202Eb"; }), "name: the text contains characters"},
        {file([](auto& spec) { spec["name"] = std::string(201, 'x'); }),
         "name: the text is longer"},
        {file([&](auto& spec) { panel(spec)["kind"] = "teapot"; }),
         "panels[1].kind: unknown value \"teapot\""},
        {file([&](auto& spec) { panel(spec).erase("frame"); }),
         "panels[1].frame: the key is missing"},
        {file([&](auto& spec) { panel(spec)["title"] = 7; }), "panels[1].title: "},
        {file([](auto& spec) {
             const auto one = spec["panels"].as_array()[0];
             spec["panels"].as_array().resize(2'000, one);
         }),
         "panels: there are more than 100"},
        {file([](auto& spec) {
             spec["focus"].as_object()["anyTerms"] = json::array(201, json::value("x"));
         }),
         "focus.anyTerms: there are more than 200"},
    };
    for (const auto& [bytes, reason] : cases) {
        try {
            NewsroomFile::read(bytes);
            ADD_FAILURE() << "taken in: " << bytes.substr(0, 200);
        } catch (const RecordError& error) {
            EXPECT_NE(std::string(error.what()).find(reason), std::string::npos) << error.what();
        }
    }
}

TEST(ANewsroomFile, IsPutInOrder) {
    auto spec = NewsroomSpec::builtIn();
    for (auto& panel : spec.panels)
        panel.frame = {.column = 1'000'000'000'000, .row = -5, .width = 0, .height = 1 << 30};
    const auto read = NewsroomFile::read(NewsroomFile::write(spec));
    EXPECT_EQ(read.origin, NewsroomSpec::Origin::manual) << "there is one built-in newsroom";
    EXPECT_EQ(read.panels.size(), spec.panels.size());
    EXPECT_EQ(faultOf(PanelPlacement::of(read.panels)), "");
}

TEST(ANewsroom, IsMadeOfKindsOrOfAnother) {
    const auto spec = made();
    ASSERT_EQ(spec.panels.size(), 3u);
    EXPECT_EQ(spec.panels[0].title, "Brief") << "the top band first";
    EXPECT_EQ(madeNewsroom("x", "star", std::array{PanelKind::stream}, {}).symbol,
              NewsroomSymbols::fallback);
    EXPECT_THROW(madeNewsroom(" ", "bolt", {}, {}), RecordError);
    EXPECT_THROW(madeBeat("x", "bolt", {.anyTerms = {"a\nb"}}, true), RecordError);

    const auto copy = duplicated(NewsroomSpec::builtIn(), "Mine");
    EXPECT_EQ(copy.origin, NewsroomSpec::Origin::manual);
    EXPECT_NE(copy.id.text(), NewsroomSpec::kBuiltInID);
    const auto second = duplicated(copy, "Mine");
    EXPECT_NE(second.panels[0].id, copy.panels[0].id);
    EXPECT_EQ(second.panels[0].frame, copy.panels[0].frame);
}

}  // namespace
