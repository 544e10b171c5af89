#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// Answers for some hosts or addresses. Called on several of the server's threads at once, so its
/// state is read-only.
class RequestHandler {
public:
    virtual ~RequestHandler() = default;

    /// Nothing for an address of other handlers. `now` is the world's time.
    virtual std::optional<Response> answer(const Request& request,
                                           std::chrono::sys_seconds now) const = 0;

    /// The same for a form that is posted. Few handlers have one.
    virtual std::optional<Response> answerForm(const Request&, std::chrono::sys_seconds) const {
        return std::nullopt;
    }
};

using RequestHandlers = std::vector<std::unique_ptr<RequestHandler>>;

/// Tries each handler in turn and returns the first answer. An unknown address gets a small page
/// with the status 404. Posted forms that no handler takes and other methods are refused.
Response answerInTurn(const RequestHandlers& handlers, const Request& request,
                      std::chrono::sys_seconds now);

/// A small web page. `headLinks` is inserted into its head unchanged.
Response htmlPage(int status, std::string_view title, std::string_view body,
                  std::string_view headLinks = "");

Response redirect(int status, std::string location);

}  // namespace pressroom
