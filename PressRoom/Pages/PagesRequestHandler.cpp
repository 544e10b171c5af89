#include "PressRoom/Pages/PagesRequestHandler.h"

#include <algorithm>
#include <atomic>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "PressRoom/Server/Conditional.h"
#include "PressRoom/Trackers/WorldTime.h"

namespace pressroom {
namespace {

using std::chrono::sys_seconds;

/// Where redirected addresses lead to: a page of another host.
constexpr std::string_view kElsewhere = "https://www.apple.com/legal/privacy/";

/// Between two answers as many differ as a page can have lines.
std::string answerWords() {
    static std::atomic<std::size_t> number = 0;
    return fmt::format("number {}", ++number);
}

std::vector<std::string> linesAt(const WorldWebPage& page, sys_seconds anchor, sys_seconds now) {
    std::vector<std::string> lines;
    for (const auto& line : page.lines) {
        if (line.minutesAgo && worldTime(anchor, *line.minutesAgo) > now) continue;
        if (line.goneMinutesAgo && worldTime(anchor, *line.goneMinutesAgo) <= now) continue;
        auto text = line.text;
        if (const auto at = text.find("{answer}"); at != text.npos)
            text.replace(at, 8, answerWords());
        lines.push_back(std::move(text));
    }
    return lines;
}

std::string pageDocument(const WorldWebPage& page, const std::vector<std::string>& lines,
                         std::string_view language) {
    return fmt::format(
        "<!doctype html><html lang=\"{}\"><head><title>{}</title><script>var seen = "
        "\"{}\";</script></head><body><nav id=\"globalnav\"><a href=\"/\">Apple</a></nav><main>"
        "<h1>{}</h1>\n{}\n</main><footer>More ways to shop</footer></body></html>",
        language, page.title, answerWords(), page.title, fmt::join(lines, "\n"));
}

Response blockedPage() {
    return htmlPage(200, "Access Denied",
                    "<h1>Access Denied</h1><p>You don't have permission to read this page. "
                    "Reference #18.4d1f3a17.1763</p>");
}

}  // namespace

const WorldPageFault* PagesRequestHandler::faultAt(const WorldWebPage& page,
                                                   sys_seconds now) const {
    const auto fault = std::ranges::find_if(page.faults, [&](const WorldPageFault& one) {
        return worldTime(anchor_, one.minutesAgo) <= now &&
               now < worldTime(anchor_, one.goneMinutesAgo);
    });
    return fault == page.faults.end() ? nullptr : &*fault;
}

std::optional<Response> PagesRequestHandler::answer(const Request& request, sys_seconds now) const {
    const auto page = std::ranges::find_if(pages_.pages, [&](const WorldWebPage& one) {
        return one.host == request.host && one.path == request.path();
    });
    if (page == pages_.pages.end()) return std::nullopt;
    const auto* fault = faultAt(*page, now);
    const std::string_view kind = fault ? fault->kind : "";
    if (kind == "blocked") return blockedPage();
    if (kind == "redirect") return redirect(302, std::string(kElsewhere));
    if (kind == "broken") return htmlPage(500, "Error", "<p>Please come back later.</p>");
    const bool isOld = kind == "old" && fault->asOf;
    auto lines = linesAt(*page, anchor_, isOld ? worldTime(anchor_, *fault->asOf) : now);
    if (kind == "short") lines.resize(lines.size() / 5);
    if (kind == "shuffled" && lines.size() > 2)
        std::rotate(lines.begin() + 1, lines.begin() + 2, lines.end());
    auto body = pageDocument(*page, lines, kind == "foreign" ? "fr" : "en");
    return answerConditionally(
        request, {.body = std::move(body), .contentType = "text/html; charset=utf-8"});
}

}  // namespace pressroom
