#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <set>

#include <QAbstractItemModelTester>

#include "Tarnwick_Brell/Models/Stories/StoryListModel.h"
#include "tests/support/models/TestStories.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

using namespace test;
using kit::Sourcing;
using kit::StoryKind;
using Marks = StoryFilter::Marks;
using Numbers = std::vector<std::int64_t>;

/// A view: what it shows it knows from the model's signals only.
class Mirror : public QObject {
public:
    explicit Mirror(const StoryListModel& list) : list_(list) {
        insert(0, list.rowCount() - 1);
        connect(&list, &StoryListModel::modelReset, this, [this] {
            shown.clear();
            ++resets;
            insert(0, list_.rowCount() - 1);
        });
        connect(&list, &StoryListModel::rowsInserted, this,
                [this](const QModelIndex&, int first, int last) { insert(first, last); });
        connect(&list, &StoryListModel::rowsRemoved, this,
                [this](const QModelIndex&, int first, int last) {
                    shown.erase(shown.begin() + first, shown.begin() + last + 1);
                });
        connect(&list, &StoryListModel::dataChanged, this,
                [this](const QModelIndex& first, const QModelIndex& last) {
                    for (int row = first.row(); row <= last.row(); ++row) {
                        shown[static_cast<std::size_t>(row)] = rowOf(list_, row);
                    }
                });
    }

    static std::string rowOf(const StoryListModel& list, int row) {
        return std::to_string(list.numberAt(row).value_or(-1)) + ' ' +
               list.index(row).data(StoryListModel::SpokenText).toString().toStdString();
    }

    std::vector<std::string> shown;
    int resets = 0;

private:
    void insert(int first, int last) {
        for (int row = first; row <= last; ++row) {
            shown.insert(shown.begin() + row, rowOf(list_, row));
        }
    }

    const StoryListModel& list_;
};

/// What a list must show after changes at random, and why.
class RandomDesk {
public:
    using Wants = std::function<bool(const PackedStory&)>;

    RandomDesk(TestStories& harness, Wants wants, unsigned seed)
        : harness_(harness), wants_(std::move(wants)), random_(seed) {}

    std::set<std::int64_t> shown, held;

    void change(StoryListModel& list) {
        switch (below(16)) {
            case 0: replace(1); break;
            case 1: replace(below(2) == 0 ? 2 : kMost); break;
            case 2: drop(); break;
            case 3: list.setHoldsArrivals(holds_ = !holds_); [[fallthrough]];
            case 4:
                list.showArrivals();
                show(std::exchange(held, {}));
                break;
            case 5:
            case 6: mark(Mark::read); break;
            case 7: mark(Mark::saved); break;
            default: merge(below(8) == 0 ? 150 : 6);
        }
    }

private:
    static constexpr int kMost = 400;

    const Wire& wire() const { return harness_.news->stories(); }
    int below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    PackedStory::Owner story(std::int64_t number) {
        const auto id = "id" + std::to_string(number);
        return PackedStory::make(StoredStory{
            .story = {.id = id,
                      .title = below(3) == 0 ? "An orchard grows" : "A harbour freezes",
                      .sourceName = "Tide " + std::to_string(below(3))},
            .number = number,
            .readAt = below(3) == 0 ? std::optional(harness_.at("10:00")) : std::nullopt});
    }

    /// The wire read anew: as it was from number `lowest` on, and whatever below.
    void replace(int part) {
        Wire::Batch batch;
        for (std::size_t i = 0; i < wire().size() / static_cast<std::size_t>(part); ++i) {
            batch.push_back(PackedStory::make(wire()[i].unpacked()));
        }
        const auto lowest = batch.empty() ? kMost : batch.back()->number();
        for (auto number = lowest - 1; number > 0; --number) {
            if (below(2) == 0) batch.push_back(story(number));
        }
        harness_.change([&](Wire& wire) { return wire.replace(std::move(batch)); });
        shown.clear();
        held.clear();
        for (std::size_t i = 0; i < wire().size(); ++i) {
            if (wants_(wire()[i])) shown.insert(wire()[i].number());
        }
    }

    void drop() {
        const auto lowest = below(kMost / 4);
        const auto gone =
            harness_.change([&](Wire& wire) { return wire.drop(lowest, kMost - 50); });
        for (const auto number : gone.removedNumbers) {
            shown.erase(number);
            held.erase(number);
        }
    }

    void merge(int count) {
        std::set<std::int64_t> known, came;
        for (int i = below(count); i >= 0; --i) came.insert(1 + below(kMost));
        for (const auto number : came) {
            if (wire().placeOf(number)) known.insert(number);
        }
        harness_.change([&](Wire& wire) {
            Wire::Batch batch;
            for (const auto number : came) batch.push_back(story(number));
            return wire.merge(std::move(batch));
        });
        for (const auto number : came) {
            const bool wanted = wants_(wire()[*wire().placeOf(number)]);
            if (!wanted) shown.erase(number);
            if (wanted && !held.contains(number)) {
                (holds_ && !known.contains(number) ? held : shown).insert(number);
            }
        }
    }

    void mark(Mark mark) {
        Numbers numbers;
        for (int i = below(40); i >= 0; --i) numbers.push_back(1 + below(kMost));
        harness_.mark(mark, numbers, below(2) == 0);
        std::set<std::int64_t> changed(numbers.begin(), numbers.end());
        for (const auto number : held) changed.erase(number);
        show(changed);
    }

    void show(const std::set<std::int64_t>& numbers) {
        for (const auto number : numbers) {
            const auto place = wire().placeOf(number);
            if (place && wants_(wire()[*place])) shown.insert(number);
        }
    }

    TestStories& harness_;
    Wants wants_;
    std::mt19937 random_;
    bool holds_ = false;
};

class StoryListModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        harness_.open();
        list_ = std::make_unique<StoryListModel>(*harness_.news, harness_.desk.clock());
    }

    void fill() {
        ASSERT_TRUE(::test::until([&] { return list_->isComplete(); }));
    }
    /// Stories 1 to `count`.
    void comeMany(int count) {
        std::vector<kit::Story> stories;
        for (int i = 1; i <= count; ++i) {
            stories.push_back(harness_.story("tide", i, "Story " + std::to_string(i)));
        }
        harness_.come(stories);
    }
    Numbers all() const {
        Numbers numbers;
        for (std::size_t i = 0; i < harness_.news->stories().size(); ++i) {
            numbers.push_back(harness_.news->stories()[i].number());
        }
        return numbers;
    }

    TestStories harness_;
    std::unique_ptr<StoryListModel> list_;
};

TEST_F(StoryListModelTest, ViewsKnowEveryRowWhateverChangesInTheWire) {
    struct Case {
        StoryFilter filter;
        RandomDesk::Wants wants;
    };
    const std::vector<Case> cases{
        {{}, [](auto&) { return true; }},
        {{.marks = Marks::unread}, [](auto& story) { return !story.isRead(); }},
        {{.query = {.anyTerms = {"orchard"}}, .marks = Marks::saved},
         [](auto& story) { return story.isSaved() && story.title() == "An orchard grows"; }}};
    unsigned seed = 1;
    for (const auto& [filter, wants] : cases) {
        list_ = std::make_unique<StoryListModel>(*harness_.news, harness_.desk.clock());
        const QAbstractItemModelTester tester(
            list_.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
        Mirror view(*list_);
        RandomDesk random(harness_, wants, seed++);
        harness_.change([](Wire& wire) { return wire.replace({}); });
        list_->show(filter);
        for (int round = 0; round < 400; ++round) {
            random.change(*list_);
            ASSERT_NO_FATAL_FAILURE(fill());
            ASSERT_EQ(list_->numbers(), Numbers(random.shown.rbegin(), random.shown.rend()));
            ASSERT_EQ(list_->arrivals(), static_cast<int>(random.held.size()));
            std::vector<std::string> rows;
            int unread = 0;
            for (int row = 0; row < list_->count(); ++row) {
                rows.push_back(Mirror::rowOf(*list_, row));
                unread += !list_->index(row).data(StoryListModel::IsRead).toBool();
            }
            ASSERT_TRUE(view.shown == rows) << "round " << round;
            ASSERT_EQ(list_->unread(), unread);
        }
        EXPECT_LT(view.resets, 120) << "most changes move no row that stays";
    }
}

TEST_F(StoryListModelTest, AWireThatIsReadAnewLeavesRowsThatStayAlone) {
    comeMany(30);
    list_->show({});
    fill();
    Mirror view(*list_);
    harness_.change([&](Wire& wire) {
        Wire::Batch batch;
        for (std::size_t i = 0; i < wire.size(); ++i) {
            auto story = wire[i].unpacked();
            if (i == 3) story.readAt = harness_.at("11:00");
            batch.push_back(PackedStory::make(story));
        }
        batch.push_back(PackedStory::make(StoredStory{.story = {.id = "old"}, .number = 5}));
        return wire.replace(std::move(batch));
    });
    fill();
    EXPECT_EQ(view.resets, 0);
    EXPECT_EQ(list_->count(), 31);
    EXPECT_EQ(list_->unread(), 30);
    EXPECT_EQ(view.shown.at(3), Mirror::rowOf(*list_, 3)) << "marked by another program";
}

TEST_F(StoryListModelTest, ManyMarksAtOnceKeepRowsAndBringTheStoriesThatAreWantedNow) {
    comeMany(700);
    list_->show({.marks = Marks::unread});
    fill();
    harness_.mark(Mark::read, all(), true);
    EXPECT_EQ(list_->count(), 700) << "none leaves";
    EXPECT_EQ(list_->unread(), 0);
    list_->show({.marks = Marks::unread});
    fill();
    EXPECT_EQ(list_->count(), 0);
    harness_.mark(Mark::read, all(), false);
    EXPECT_EQ(list_->count(), 700) << "as when all is taken back";
    EXPECT_EQ(list_->unread(), 700);
}

TEST_F(StoryListModelTest, FiltersNarrowByEveryChoice) {
    auto podcast = harness_.story("tide", 10, "podcast");
    podcast.kind = StoryKind::podcast;
    auto deal = harness_.story("tide", 20, "deal");
    deal.kind = StoryKind::deal;
    auto rumor = harness_.story("post", 30, "rumor");
    rumor.sourcing = Sourcing::rumor;
    auto apple = harness_.story("post", 40, "apple");
    apple.isAppleSource = true;
    harness_.come({podcast, deal, rumor, apple});
    harness_.mark(Mark::saved, {harness_.news->stories().find(deal.id)->number()}, true);

    const std::vector<std::pair<StoryFilter, QString>> cases{
        {{}, "apple rumor podcast"},
        {{.showsSetAside = true}, "apple rumor deal podcast"},
        {{.query = {.includesSetAside = true}}, "apple rumor deal podcast"},
        {{.kinds = {StoryKind::deal}}, "deal"},
        {{.kinds = {StoryKind::podcast, StoryKind::deal}}, "deal podcast"},
        {{.sourcings = {Sourcing::rumor}}, "rumor"},
        {{.sourceIDs = {"post"}}, "apple rumor"},
        {{.kinds = {StoryKind::podcast}, .sourceIDs = {"post"}}, ""},
        {{.isAppleOnly = true}, "apple"},
        {{.marks = Marks::saved}, ""},
        {{.marks = Marks::saved, .showsSetAside = true}, "deal"},
        {{.query = {.sourceIDs = {"tide"}}}, "podcast"},
        {{.query = {.anyTerms = {"deal"}}, .showsSetAside = true}, "deal"}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        list_->show(cases[i].first);
        fill();
        EXPECT_EQ(column(*list_, "title").join(' '), cases[i].second) << i;
    }
}

}  // namespace
}  // namespace app
