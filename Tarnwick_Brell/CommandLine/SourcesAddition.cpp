#include <chrono>
#include <exception>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Sources/SourceJSON.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/SourceText.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/SourceAdder.h"

namespace cli {

namespace {

template <class T>
const T& valueOf(const std::variant<T, app::AddSourceError>& result) {
    if (const auto* error = std::get_if<app::AddSourceError>(&result)) {
        throw WorkFailed(printable(error->description()));
    }
    return std::get<T>(result);
}

std::string storiesOf(const app::AddressCheck& check) {
    return std::to_string(check.storyCount) +
           collapsedText(static_cast<std::int64_t>(check.storyCount),
                         static_cast<std::int64_t>(check.collapsed)) +
           (check.tooOld > 0 ? fmt::format(", {} too old to be kept", check.tooOld) : "");
}

void printCheck(Session& session, const app::AddressCheck& check) {
    auto& out = session.out();
    out.line(out.bold(printable(check.name)));
    out.line("feed     " + printable(kit::maskedSecrets(check.feedURL)));
    out.line("site     " + printable(check.siteURL));
    out.line(
        fmt::format("stories  {}{}", storiesOf(check),
                    check.newestStory ? ", the newest of " + momentText(*check.newestStory) : ""));
    for (const auto& story : check.first) {
        out.line(cutTo("         " + printable(story.title), out.width()));
    }
}

boost::json::object recordOf(const app::AddressCheck& check) {
    boost::json::array titles;
    for (const auto& story : check.first) titles.emplace_back(story.title);
    boost::json::object record{{"name", check.name},           {"feedURL", check.feedURL},
                               {"siteURL", check.siteURL},     {"storyCount", check.storyCount},
                               {"collapsed", check.collapsed}, {"tooOld", check.tooOld},
                               {"titles", std::move(titles)}};
    if (check.newestStory) record["newestStory"] = kit::encode(*check.newestStory);
    return record;
}

}  // namespace

int checkAddress(Session& session, const std::string& address) {
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    auto& store = session.storeForReading();
    app::SourceRegistry registry(store.sources());
    app::SourceAdder adding(store, registry, fetcher.fetching(), &currentInstant,
                            std::chrono::duration<double>(session.defaults().storyRetention()));
    const auto checked = fetcher.await(adding.check(address));
    const auto& check = valueOf(checked);
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(check)));
    } else {
        printCheck(session, check);
    }
    return kDone;
}

/// Sources added before a failure stay added and are reported.
int addSources(Session& session, const std::vector<std::string>& addresses, bool unchecked) {
    BlockingFetcher fetcher(session.network(), kit::Conditional::no);
    auto& store = session.store();
    app::SourceRegistry registry(store.sources());
    app::SourceAdder adding(store, registry, fetcher.fetching(), &currentInstant,
                            std::chrono::duration<double>(session.defaults().storyRetention()));
    boost::json::array added;
    std::exception_ptr failure;
    for (const auto& address : addresses) {
        try {
            const auto result =
                unchecked ? adding.addWithoutFetching(address) : fetcher.await(adding.add(address));
            const auto& source = valueOf(result);
            added.push_back(kit::encode(source));
            if (session.options().json) continue;
            session.out().line(fmt::format("Added {} ({}).", printable(source.name), source.id));
        } catch (const WorkFailed&) {
            failure = std::current_exception();
            break;
        }
    }
    if (session.options().json && !added.empty()) {
        session.out().line(boost::json::serialize(added));
    }
    if (failure) std::rethrow_exception(failure);
    return kDone;
}

}  // namespace cli
