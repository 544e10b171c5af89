#include <chrono>
#include <exception>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/SecretMasking.h"
#include "NewsroomKit/Sources/SourceShape.h"
#include "Tarnwick_Brell/CommandLine/Engine.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/SourceText.h"
#include "Tarnwick_Brell/CommandLine/SourcesActions.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceAdding.h"

namespace brell {

namespace {

template <class T>
const T& valueOf(const std::variant<T, desk::AddSourceError>& result) {
    if (const auto* error = std::get_if<desk::AddSourceError>(&result)) {
        throw WorkFailed(printable(error->description()));
    }
    return std::get<T>(result);
}

std::string storiesOf(const desk::AddressCheck& check) {
    return std::to_string(check.storyCount) +
           collapsedText(static_cast<std::int64_t>(check.storyCount),
                         static_cast<std::int64_t>(check.collapsed)) +
           (check.tooOld > 0 ? fmt::format(", {} too old to be kept", check.tooOld) : "");
}

void printCheck(Session& session, const desk::AddressCheck& check) {
    auto& out = session.out();
    out.line(out.bold(printable(check.name)));
    out.line("feed     " + printable(newsroom::maskedSecrets(check.feedURL)));
    out.line("site     " + printable(check.siteURL));
    out.line(
        fmt::format("stories  {}{}", storiesOf(check),
                    check.newestStory ? ", the newest of " + dayAndTime(*check.newestStory) : ""));
    for (const auto& title : check.titles) {
        out.line(cutTo("         " + printable(title), out.width()));
    }
}

boost::json::object recordOf(const desk::AddressCheck& check) {
    boost::json::object record{{"name", check.name},
                               {"feedURL", check.feedURL},
                               {"siteURL", check.siteURL},
                               {"storyCount", check.storyCount},
                               {"collapsed", check.collapsed},
                               {"tooOld", check.tooOld},
                               {"titles", newsroom::encode(check.titles)}};
    if (check.newestStory) record["newestStory"] = newsroom::encode(*check.newestStory);
    return record;
}

}  // namespace

int checkAddress(Session& session, const std::string& address) {
    Engine engine(session.network(), newsroom::Conditional::no);
    auto& store = session.storeForReading();
    desk::SourceRoster roster(store.sources());
    desk::SourceAdding adding(store, roster, engine.fetching(), &currentInstant,
                              std::chrono::duration<double>(session.defaults().storyRetention()));
    const auto checked = engine.await(adding.check(address));
    const auto& check = valueOf(checked);
    if (session.options().json) {
        session.out().line(boost::json::serialize(recordOf(check)));
    } else {
        printCheck(session, check);
    }
    return kDone;
}

/// What was added before a failure stays added, and is told.
int addSources(Session& session, const std::vector<std::string>& addresses, bool unchecked) {
    Engine engine(session.network(), newsroom::Conditional::no);
    auto& store = session.store();
    desk::SourceRoster roster(store.sources());
    desk::SourceAdding adding(store, roster, engine.fetching(), &currentInstant,
                              std::chrono::duration<double>(session.defaults().storyRetention()));
    boost::json::array added;
    std::exception_ptr failure;
    for (const auto& address : addresses) {
        try {
            const auto result =
                unchecked ? adding.addUnchecked(address) : engine.await(adding.add(address));
            const auto& source = valueOf(result);
            added.push_back(newsroom::encode(source));
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

}  // namespace brell
