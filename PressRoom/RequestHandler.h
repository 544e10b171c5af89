#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "PressRoom/Server/Message.h"

namespace pressroom {

/// Knows the answers of some hosts or addresses. Asked on the server's threads, several at
/// once, so what it holds is only read.
class RequestHandler {
public:
    virtual ~RequestHandler() = default;

    /// Nothing when the address is none of its own. `now` is the world's time.
    virtual std::optional<Response> answer(const Request& request,
                                           std::chrono::sys_seconds now) const = 0;
};

using Answerers = std::vector<std::unique_ptr<RequestHandler>>;

/// Asks each in turn; the first answer stands. An address nobody knows gets a small page
/// with the status 404, a method other than GET and HEAD is refused.
Response answerInTurn(const Answerers& answerers, const Request& request,
                      std::chrono::sys_seconds now);

/// A small web page. `headLinks` is put into its head as it stands.
Response htmlPage(int status, std::string_view title, std::string_view body,
                  std::string_view headLinks = "");

Response redirect(int status, std::string location);

}  // namespace pressroom
