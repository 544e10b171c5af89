#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceJSON.h"
#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

using kit::NewsSource;

const NewsSource& ownSource(const app::SourceRegistry& registry, const std::string& id,
                            std::string_view advice) {
    const auto& source = sourceNamed(registry, id);
    if (source.kind == NewsSource::Kind::custom) return source;
    throw WorkFailed(fmt::format("{} belongs to the catalogue; {}.", source.name, advice));
}

}  // namespace

int switchSources(Session& session, const std::vector<std::string>& ids, bool enabled) {
    auto& store = session.store();
    app::SourceRegistry registry(store.sources());
    for (const auto& id : ids) sourceNamed(registry, id);
    auto transaction = store.transaction();
    for (const auto& id : ids) registry.setEnabled(id, enabled);
    transaction.commit();

    boost::json::array changed;
    for (const auto& id : ids) {
        changed.push_back({{"id", id}, {"enabled", enabled}});
        if (session.options().json) continue;
        session.out().line(fmt::format("{} is {}.", printable(sourceNamed(registry, id).name),
                                       enabled ? "on" : "off"));
    }
    if (session.options().json) session.out().line(boost::json::serialize(changed));
    return kDone;
}

int renameSource(Session& session, const std::string& id, const std::string& name) {
    const auto wanted = printable(kit::trimWhitespaceAndNewlines(name));
    if (wanted.empty()) throw WrongUsage("A source needs a name.");
    app::SourceRegistry registry(session.store().sources());
    const auto former = ownSource(registry, id, "its name can't be changed").name;
    registry.rename(id, wanted);
    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(sourceNamed(registry, id))));
    } else {
        session.out().line(fmt::format("{} is now named {}.", printable(former), wanted));
    }
    return kDone;
}

/// Removes all of the sources or none.
int removeSources(Session& session, const std::vector<std::string>& ids) {
    auto& store = session.store();
    app::SourceRegistry registry(store.sources());
    std::vector<NewsSource> removed;
    for (const auto& id : ids) {
        const auto& source = ownSource(registry, id, "disable it instead");
        if (std::find(removed.begin(), removed.end(), source) == removed.end()) {
            removed.push_back(source);
        }
    }
    auto transaction = store.transaction();
    registry.remove(ids, session.now());
    transaction.commit();

    if (session.options().json) {
        session.out().line(boost::json::serialize(kit::encode(removed)));
        return kDone;
    }
    for (const auto& source : removed) {
        session.out().line(
            fmt::format("Removed {}. Its stories stay in the wire.", printable(source.name)));
    }
    return kDone;
}

}  // namespace cli
