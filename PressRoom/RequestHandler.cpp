#include "PressRoom/RequestHandler.h"

#include <fmt/format.h>

#include "PressRoom/World/Markup.h"

namespace pressroom {

Response answerInTurn(const RequestHandlers& handlers, const Request& request,
                      std::chrono::sys_seconds now) {
    if (request.method == "POST") {
        for (const auto& handler : handlers) {
            if (auto response = handler->answerForm(request, now)) return *std::move(response);
        }
    }
    if (request.method != "GET" && request.method != "HEAD") {
        return htmlPage(405, "Method not allowed",
                        "<p>The press room only answers GET and HEAD.</p>");
    }
    for (const auto& handler : handlers) {
        if (auto response = handler->answer(request, now)) return *std::move(response);
    }
    return htmlPage(404, "Not found",
                    fmt::format("<p>The press room has nothing at https://{}{}</p>",
                                escaped(request.host), escaped(request.target)));
}

Response htmlPage(int status, std::string_view title, std::string_view body,
                  std::string_view headLinks) {
    auto html = fmt::format(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<title>{0}</title>\n{2}</head>\n<body>\n<h1>{0}</h1>\n{1}\n</body>\n</html>\n",
        escaped(title), body, headLinks);
    return {.status = status,
            .headers = {{"Content-Type", "text/html; charset=utf-8"}},
            .body = std::move(html)};
}

Response redirect(int status, std::string location) {
    return {.status = status, .headers = {{"Location", std::move(location)}}};
}

}  // namespace pressroom
