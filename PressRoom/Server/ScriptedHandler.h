#pragma once

#include <cstddef>
#include <deque>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// Answers by a script: each address has a queue of answers, the last of which repeats. An address
/// without a script gets a 404. Records all requests.
///
///     ScriptedHandler script;
///     script.on("feeds.example", "/a", {{.status = 503}, {.body = "<rss/>"}});
///     Server server(script.handler());
class ScriptedHandler {
public:
    void on(std::string_view host, std::string_view target, std::vector<Response> answers);

    /// The handler refers to this object, which must outlive the server.
    Handler handler();

    /// In the order of arrival.
    std::vector<Request> requests(std::string_view host, std::string_view target) const;

private:
    struct Route {
        std::deque<Response> answers;
        std::vector<Request> requests;
    };

    Response answer(const Request& request);

    mutable std::mutex mutex_;
    std::map<std::string, Route, std::less<>> routes_;  ///< by host and target joined
};

}  // namespace pressroom
