#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/asio/awaitable.hpp>

#include "NewsroomKit/HTTP/HTTPClient.h"
#include "NewsroomKit/Links/LinkHistory.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"

namespace app {

class DeskJobs;

/// Finds the articles behind redirect links, one after the other in the background, and stores
/// them as the stories' `articleLink`. What the link itself or a story with the same headline
/// tells is found at once. Only then the redirect host is asked, as rarely as kit::LinkHistory
/// says; it is left alone for an hour when it wants that or asks for consent. Stories without an
/// answer are not asked for again for a day. Network trouble is nobody's failure: it empties the
/// queue, and what is still wanted is named again.
class LinkResolver {
public:
    enum class Urgency {
        later,  ///< behind what waits
        soon    ///< before it: the user looks at the story
    };

    LinkResolver(DeskJobs& jobs, kit::Clock clock);

    /// Called on the main thread. Passes over stories whose article is known.
    void want(std::vector<std::string> storyIDs, Urgency urgency);

private:
    using WorkerContext = DeskWorker::WorkerContext;
    using Answer = std::optional<std::string>;  ///< a body; nothing after a failure

    // On the worker's thread.
    boost::asio::awaitable<void> work(WorkerContext& context, std::vector<std::string> storyIDs,
                                      Urgency urgency);
    void enqueue(WorkerContext& context, const std::string& storyID, Urgency urgency);
    boost::asio::awaitable<void> ask(WorkerContext& context, std::string storyID);
    /// Sends a request for the story and deals with its failures.
    boost::asio::awaitable<Answer> send(WorkerContext& context, std::string storyID,
                                        kit::HTTPClient::Request request);
    /// Waits until a request may be sent; false when the desk closes meanwhile.
    boost::asio::awaitable<bool> waitForTurn(WorkerContext& context);
    std::optional<StoredStory> find(WorkerContext& context, const std::string& storyID) const;
    std::optional<std::string> knownArticle(WorkerContext& context, const kit::Story& story) const;
    std::string publisherHost(const kit::Story& story) const;
    bool suits(std::string_view link, const kit::Story& story) const;
    void store(WorkerContext& context, StoredStory story, const std::string& link);
    void leaveAlone(WorkerContext& context, std::string storyID);
    void fail(WorkerContext& context, std::string storyID);
    kit::LinkHistory& history(WorkerContext& context);
    void saveHistory(WorkerContext& context);

    DeskJobs& jobs_;
    kit::Clock clock_;
    std::deque<std::string> waiting_;  ///< ids of stories that the host must be asked for
    bool isWorking_ = false;
    std::optional<kit::LinkHistory> history_;
};

}  // namespace app
