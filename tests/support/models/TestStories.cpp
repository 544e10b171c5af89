#include "tests/support/models/TestStories.h"

#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"
#include "tests/support/EventLoop.h"

namespace app::test {

void TestStories::open() {
    TestPanels::open();
    newsrooms = std::make_unique<NewsroomStore>(news->worker(), desk.clock());
    alerts = std::make_unique<AlertStore>(news->worker(), desk.clock());
    newsrooms->load();
    alerts->load();
    ::test::until([&] { return newsrooms->isLoaded() && alerts->isLoaded(); });
}

void TestStories::come(const std::vector<kit::Story>& stories) {
    change([&](Wire& wire) {
        Wire::Batch batch;
        for (const auto& story : stories) {
            const auto* known = wire.find(story.id);
            const auto number = known ? known->number() : firstStoryNumber(story.publishedAt);
            batch.push_back(PackedStory::make(StoredStory{.story = story, .number = number}));
        }
        return wire.merge(std::move(batch));
    });
}

void TestStories::mark(Mark mark, const std::vector<std::int64_t>& numbers, bool on) {
    auto& wire = const_cast<Wire&>(news->stories());
    const auto changed =
        mark == Mark::read ? wire.setRead(numbers, on) : wire.setSaved(numbers, on);
    emit news->marksChanged(changed);
}

kit::Story TestStories::story(const std::string& outlet, int minute,
                              const std::string& title) const {
    const auto link = "https://" + outlet + ".example/" + std::to_string(minute);
    return {.id = kit::storyID(link),
            .link = link,
            .title = title,
            .publishedAt = at("00:00") + std::chrono::minutes(minute),
            .sourceID = outlet,
            .sourceName = outlet};
}

std::string TestStories::idOf(const std::string& title) const {
    const auto& wire = news->stories();
    for (std::size_t i = 0; i < wire.size(); ++i) {
        if (wire[i].title() == title) return std::string(wire[i].id());
    }
    return {};
}

QStringList column(const QAbstractItemModel& model, const char* role) {
    const auto key = model.roleNames().key(role);
    QStringList texts;
    for (int i = 0; i < model.rowCount(); ++i) texts << model.index(i, 0).data(key).toString();
    return texts;
}

}  // namespace app::test
