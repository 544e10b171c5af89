#pragma once

#include <string>
#include <utility>

#include "NewsroomKit/Archive/ArchiveAddresses.h"
#include "NewsroomKit/Records/UnreadableAnswer.h"
#include "Tarnwick_Brell/CommandLine/BlockingFetcher.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Session.h"

/// Common parts of the story archive's commands.
namespace cli {

/// The address for an argument, which is an address itself or the id of a story of the wire. Call
/// it after Session::network(). Throws WrongUsage and WorkFailed.
std::string storyAddress(Session& session, const std::string& word);

/// An address from an answer as text, marked when it is not a web address.
std::string linkText(const std::string& url);

/// "2026-11-02 08:30 CET", or the day alone.
std::string publishedText(kit::Instant instant, bool isDayOnly);

template <class Answer>
boost::asio::awaitable<Answer> answerOrFailure(
    boost::asio::awaitable<kit::FetchResult<Answer>> fetch) {
    auto result = co_await std::move(fetch);
    if (!result) throw WorkFailed(result.error().description());
    co_return std::move(result).value();
}

/// Runs the request `ask`, which receives an API and returns what it fetches. Throws WorkFailed.
///
///     askArchive<StoryArchiveAPI>(session, network, [](auto& api) { return api.status(); });
template <class API, class Ask>
auto askArchive(Session& session, kit::CurlTransport::Options network, Ask ask) {
    BlockingFetcher fetcher(std::move(network), kit::Conditional::no);
    const API api{.base = kit::archiveBaseAt(session.defaults().serviceAddress()),
                  .http = fetcher.http()};
    try {
        return fetcher.await(answerOrFailure(ask(api)));
    } catch (const kit::RecordError& error) {
        throw WorkFailed(kit::unreadableAnswer(error));
    }
}

}  // namespace cli
