#include <gtest/gtest.h>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {
namespace {

using kit::Instant;
using kit::Signal;
using kit::SignalKind;
using kit::SignalWeight;

Instant at(int second) { return Instant(std::chrono::seconds(second)); }

Signal signal(const char* id, SignalKind kind, SignalWeight weight, int seen,
              const char* title = "") {
    return {.id = id,
            .kind = kind,
            .subject = "Harbor-7",
            .title = title,
            .detail = "as Apple's list has it",
            .seenAt = at(seen),
            .weight = weight};
}

std::string ids(const std::vector<LoggedSignal>& found) {
    std::string text;
    for (const auto& logged : found) text += logged.signal.id;
    return text;
}

class SignalLogTest : public ::testing::Test {
protected:
    LocalStore store_{Database::kInMemory, Database::Access::readWrite};
    SignalLog& log_ = store_.signalLog();
};

TEST_F(SignalLogTest, ASignalIsLoggedOnceAndComesBackWhole) {
    Signal full = signal("a", SignalKind::docket, SignalWeight::major, 50, "Order entered.");
    full.link = "https://court.example/4";
    full.happenedAt = at(10);
    full.dayOnly = true;
    full.evidence = {{"after", "4"}};
    const auto plain = signal("b", SignalKind::page, SignalWeight::routine, 60);
    const std::vector<Signal> first{full, plain}, again{full, plain, full};
    EXPECT_EQ(log_.add(first), first);
    const auto last = log_.lastNumber();
    auto changed = plain;
    changed.id = "c";
    const std::vector<Signal> more{full, changed};
    EXPECT_EQ(log_.add(again), std::vector<Signal>{});
    EXPECT_EQ(log_.add(more), std::vector<Signal>{changed});
    EXPECT_EQ(log_.newest(5).at(2).signal, full);
    EXPECT_EQ(ids(log_.after(last)), "c");
    EXPECT_EQ(kit::decode<Signal>(kit::encode(full)), full);
}

TEST_F(SignalLogTest, SelectionsCombineAndTheLastLoggedComesFirst) {
    using enum SignalKind;
    using enum SignalWeight;
    const std::vector<Signal> all{
        signal("a", release, major, 10, "macOS 27.2 is out."),
        signal("b", release, notable, 20, "macOS 27.3 beta is out."),
        signal("c", chart, routine, 30, "Café Tide leads the chart."),
        signal("d", service, major, 25, "Mail has an outage."),  // the clock was set back
        signal("e", service, notable, 40, "Mail works again, author:none."),
    };
    log_.add(all);
    const auto said = [](const char* text) {
        return SearchText::parse(text, SearchText::LastWord::stillTyped, SearchText::Authors::none);
    };
    const struct {
        SignalSelection selection;
        const char* found;
    } cases[] = {
        {{}, "edcba"},
        {{.kinds = {release, chart}}, "cba"},
        {{.leastWeight = notable}, "edba"},
        {{.kinds = {release, service}, .leastWeight = major}, "da"},
        {{.search = said("cafe")}, "c"},
        {{.search = said("out -beta")}, "a"},
        {{.search = said("-out")}, "edc"},
        {{.leastWeight = major, .search = said("-mail")}, "a"},
        {{.search = said("harbor list mai")}, "ed"},
        {{.search = said("author:none")}, "e"},
        {{.kinds = {chart}, .search = said("mail")}, ""},
        {{.search = said("notable")}, ""},
        {{.since = at(25)}, "edc"},
        {{.until = at(30)}, "dba"},
        {{.kinds = {service, chart}, .since = at(26), .until = at(40)}, "c"},
        {{.before = 3}, "ba"},
        {{.search = said("mail"), .before = 5}, "d"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ids(log_.newest(9, c.selection)), c.found)
            << c.selection.search.wanted << " " << &c - cases;
    }
    EXPECT_EQ(ids(log_.newest(2)), "ed");
}

}  // namespace
}  // namespace app
