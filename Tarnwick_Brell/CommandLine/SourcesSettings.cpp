#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <QString>
#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

constexpr int kMostMinutes = 24 * 60;
constexpr const char* kUsual = "usual";

std::optional<int> minutesOf(const std::string& typed) {
    bool isNumber = false;
    const int minutes = QString::fromStdString(typed).toInt(&isNumber);
    return isNumber && minutes >= 0 && minutes <= kMostMinutes ? std::optional(minutes)
                                                               : std::nullopt;
}

app::SourceOptions changed(app::SourceOptions options, const SourceWishes& wishes) {
    if (wishes.onlyApple) {
        options.onlyApple =
            wishes.onlyApple == kUsual ? std::nullopt : std::optional(wishes.onlyApple == "yes");
    }
    if (wishes.inAll) options.notInAll = wishes.inAll == "no";
    if (wishes.interval) {
        options.minimumInterval.reset();
        if (const auto minutes = minutesOf(*wishes.interval))
            options.minimumInterval =
                std::chrono::duration<double>(std::chrono::minutes(*minutes)).count();
    }
    return options;
}

/// "every story, not in All, at most every 30 minutes"
std::string optionsText(const kit::NewsSource& source, const app::SourceOptions& options) {
    const auto minutes = static_cast<int>(source.minimumInterval / 60);
    return fmt::format(
        "{}, {}, {}", source.onlyApple ? "only stories about Apple" : "every story",
        options.notInAll ? "not in All" : "in All",
        minutes < 1 ? "with every pass" : fmt::format("at most every {} min", minutes));
}

}  // namespace

std::string intervalComplaint(const std::string& typed) {
    if (typed == kUsual || minutesOf(typed)) return {};
    return fmt::format("\"{}\" is neither \"usual\" nor a whole number from 0 to {}", typed,
                       kMostMinutes);
}

int setSourceOptions(Session& session, const std::vector<std::string>& ids,
                     const SourceWishes& wishes) {
    if (!wishes.onlyApple && !wishes.inAll && !wishes.interval)
        throw WrongUsage("Name what to set: --only-apple, --in-all or --interval.");
    auto& store = session.store();
    app::SourceRegistry registry(store.sources());
    for (const auto& id : ids) sourceNamed(registry, id);
    auto transaction = store.transaction();
    auto options = store.sources().options();
    for (const auto& id : ids) {
        options[id] = changed(options[id], wishes);
        registry.setOptions(id, options[id]);
    }
    transaction.commit();

    boost::json::array records;
    for (const auto& id : ids) {
        const auto& source = sourceNamed(registry, id);
        if (session.options().json) {
            auto record = kit::encode(source).get_object();
            record["notInAll"] = options[id].notInAll;
            records.push_back(std::move(record));
        } else {
            session.out().line(
                fmt::format("{}: {}.", printable(source.name), optionsText(source, options[id])));
        }
    }
    if (session.options().json) session.out().line(boost::json::serialize(records));
    return kDone;
}

}  // namespace cli
