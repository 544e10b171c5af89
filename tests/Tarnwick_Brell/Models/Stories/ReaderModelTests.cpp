#include <gtest/gtest.h>

#include "Tarnwick_Brell/Models/Stories/ReaderModel.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using kit::Sourcing;
using kit::StoryKind;
using ::test::until;

constexpr const char* kHeadsetPhotos = "Quillmark headset appears in blue factory photos";

class ReaderModelTest : public ::testing::Test {
protected:
    void open() {
        harness_.open();
        reader_ =
            std::make_unique<ReaderModel>(*harness_.news, harness_.defaults, harness_.desk.clock());
    }
    void show(const kit::Story& story) {
        reader_->show(harness_.news->stories().find(story.id)->number());
    }

    TestStories harness_;
    std::unique_ptr<ReaderModel> reader_;
};

TEST_F(ReaderModelTest, TellsTheStoryItsEarlierWordingsAndHowToCiteIt) {
    const auto story = harness_.story("Harbour", 610, kHeadsetPhotos);
    auto before = story;
    before.title = "Headset seen in blue";
    harness_.tell(before);
    harness_.tell(story);
    harness_.tell("Lantern", "10:14", kHeadsetPhotos);
    harness_.tell("Meridian", "10:30", kHeadsetPhotos);
    open();
    show(story);
    EXPECT_EQ(reader_->title(), kHeadsetPhotos);
    EXPECT_EQ(
        reader_->citation(),
        QString("“%1”, Harbour, 20 Nov 2026, https://Harbour.example/610").arg(kHeadsetPhotos));
    EXPECT_TRUE(until([&] {
        return column(*reader_->wordings(), "title") == QStringList("Headset seen in blue");
    }));
    EXPECT_TRUE(until([&] { return reader_->timeline()->rowCount() == 3; }));
    EXPECT_EQ(column(*reader_->timeline(), "outlet").join(' '), "Harbour Lantern Meridian");
    EXPECT_EQ(column(*reader_->timeline(), "lead").join('|'), "First|+4 min|+20 min");
    EXPECT_EQ(reader_->timelineFact(), "Harbour led by 4 min");

    auto revised = story;
    revised.title = "Quillmark shows its headset";
    harness_.come({revised});
    EXPECT_EQ(reader_->title(), "Quillmark shows its headset");
    harness_.change([](Wire& wire) { return wire.replace({}); });
    EXPECT_TRUE(reader_->hasStory()) << "it is still being read";
}

TEST_F(ReaderModelTest, SaysWhyAStoryHasItsLabels) {
    open();
    auto rumor = harness_.story("tide", 10, "Blue headset reportedly delayed");
    rumor.sourcing = Sourcing::report;
    auto podcast = harness_.story("tide", 20, "Episode 12");
    podcast.kind = StoryKind::podcast;
    harness_.come({rumor, podcast});
    show(rumor);
    EXPECT_EQ(reader_->sourcingLabel(), "Report");
    EXPECT_EQ(reader_->sourcingReason(), "The headline says “reportedly”.");
    EXPECT_EQ(reader_->kindReason(), "") << "coverage is the rule";
    show(podcast);
    EXPECT_EQ(reader_->kindLabel(), "Podcast");
    EXPECT_NE(reader_->kindReason(), "");
    EXPECT_EQ(reader_->sourcingLabel(), "");
}

TEST_F(ReaderModelTest, FollowsMarksHoweverTheyCome) {
    open();
    const auto story = harness_.story("tide", 10, "Marked");
    harness_.come({story});
    show(story);
    int changes = 0;
    QObject::connect(reader_.get(), &ReaderModel::marksChanged, [&] { ++changes; });
    const auto number = harness_.news->stories()[0].number();
    harness_.mark(Mark::saved, {number}, true);
    EXPECT_TRUE(reader_->isSaved());
    EXPECT_EQ(changes, 1);
    harness_.change([&](Wire& wire) {
        Wire::Batch batch;
        batch.push_back(PackedStory::make(
            StoredStory{.story = story, .number = number, .readAt = harness_.at("11:00")}));
        return wire.merge(std::move(batch));
    });
    EXPECT_TRUE(reader_->isRead());
    EXPECT_EQ(changes, 2) << "by another program";
}

TEST_F(ReaderModelTest, TextFromOutsideIsShortAndCannotTurnWhatStandsAround) {
    open();
    const auto endless = harness_.story("tide", 10, std::string(100'000, 'x'));
    auto turned = harness_.story("\u202Etide", 20, "A\u202Eb\u2066c\u0007d\ne");
    turned.author = "\u2067Ann";
    harness_.come({endless, turned});
    show(endless);
    EXPECT_EQ(reader_->title().size(), 1000);
    EXPECT_TRUE(reader_->title().endsWith(u'…'));
    show(turned);
    EXPECT_EQ(reader_->title(), "Abc d e");
    EXPECT_EQ(reader_->source(), "tide");
    EXPECT_EQ(reader_->author(), "by Ann");
    EXPECT_FALSE(reader_->citation().contains(QChar(0x202E)));
}

}  // namespace
}  // namespace app
