#include "PressRoom/Filings/FilingsRequestHandler.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include <fmt/format.h>

#include "PressRoom/Filings/FilingDates.h"
#include "PressRoom/Filings/FilingLists.h"
#include "PressRoom/Filings/FilingPages.h"
#include "PressRoom/Server/Conditional.h"

namespace pressroom {
namespace {

using Kind = MisbehaviourKind;
using std::chrono::sys_seconds;

constexpr std::array kFilingFaults{Kind::silent,  Kind::unavailable, Kind::page,
                                   Kind::missing, Kind::empty,       Kind::huge,
                                   Kind::broken,  Kind::undeclared,  Kind::threshold};
constexpr std::size_t kFurtherEntries = 10'000;

/// Every program has to name a mail address; this one is known for another's abuse.
constexpr std::string_view kBarredHost = "@barred.example";

std::optional<Kind> takeFault(Misbehaviours& misbehaviours, std::string_view name) {
    const auto found = misbehaviours.find(name);
    if (found == misbehaviours.end()) return std::nullopt;
    if (std::ranges::find(kFilingFaults, found->second.kind) == kFilingFaults.end()) {
        throw std::runtime_error(
            fmt::format("{} can't misbehave as \"{}\"", name, kit::rawValue(found->second.kind)));
    }
    return misbehaviours.extract(found).mapped().kind;
}

Response undeclared() {
    return htmlPage(403, "SEC.gov | Your Request Originates from an Undeclared Automated Tool",
                    "<h1>Your Request Originates from an Undeclared Automated Tool</h1>"
                    "<p>Please declare your traffic by updating your user agent.</p>");
}

Response threshold() {
    return htmlPage(403, "SEC.gov | Request Rate Threshold Exceeded",
                    "<h1>Request Rate Threshold Exceeded</h1><p>Access comes back after ten "
                    "minutes.</p>");
}

Response noCompany() {
    return htmlPage(200, "Company Information", "<center><h1>No matching CIK.</h1></center>");
}

Response sent(std::string body, std::string type) {
    return {.headers = {{"Content-Type", std::move(type)},
                        {"Cache-Control", "max-age=0, no-cache, no-store"}},
            .body = std::move(body)};
}

/// What a fault answers instead; nothing for those that change the answer.
std::optional<Response> faulty(std::optional<Kind> fault) {
    if (fault == Kind::silent) return Response{.delivery = {.neverAnswers = true}};
    if (fault == Kind::unavailable) return htmlPage(503, "Busy", "<p>Please come back later.</p>");
    if (fault == Kind::page) return htmlPage(200, "Maintenance", "<p>We are back soon.</p>");
    if (fault == Kind::missing) return noCompany();
    if (fault == Kind::undeclared) return undeclared();
    if (fault == Kind::threshold) return threshold();
    return std::nullopt;
}

bool namesAnAddress(const Request& request) {
    const auto agent = request.header("user-agent").value_or("");
    return agent.find('@') != std::string_view::npos &&
           agent.find(kBarredHost) == std::string_view::npos;
}

/// The number after `name` in a target.
std::int64_t numberAfter(std::string_view target, std::string_view name) {
    const auto at = target.find(name);
    if (at == std::string_view::npos) return 0;
    std::int64_t number = 0;
    for (const char c : target.substr(at + name.size())) {
        if (c < '0' || c > '9' || number > 99'999'999'999) break;
        number = number * 10 + (c - '0');
    }
    return number;
}

const WorldFiler* filerWith(const WorldFilings& world, std::int64_t cik) {
    const auto found = std::ranges::find(world.filers, cik, &WorldFiler::cik);
    return found == world.filers.end() ? nullptr : &*found;
}

}  // namespace

FilingsRequestHandler::FilingsRequestHandler(WorldFilings world, sys_seconds anchor,
                                             Misbehaviours& misbehaviours)
    : world_(std::move(world)),
      anchor_(anchor),
      feedFault_(takeFault(misbehaviours, "filings")),
      archiveFault_(takeFault(misbehaviours, "filings-archive")) {}

std::optional<Response> FilingsRequestHandler::answer(const Request& request,
                                                      sys_seconds now) const {
    if (request.host != "www.sec.gov" && request.host != "data.sec.gov") return std::nullopt;
    if (!namesAnAddress(request)) return undeclared();
    const bool isFeed = request.path() == "/cgi-bin/browse-edgar";
    if (auto instead = faulty(isFeed ? feedFault_ : archiveFault_)) return instead;
    if (isFeed) return feed(request, now);
    return request.host == "data.sec.gov" ? list(request, now) : archived(request, now);
}

Response FilingsRequestHandler::feed(const Request& request, sys_seconds now) const {
    const auto atom = [](std::string body) {
        return sent(std::move(body), "application/atom+xml");
    };
    if (request.target.find("action=getcurrent") != std::string::npos)
        return atom(latestFeed(world_, anchor_, now));
    const auto* const filer = filerWith(world_, numberAfter(request.target, "CIK="));
    if (filer == nullptr) return noCompany();
    if (feedFault_ == Kind::huge) return atom(filerFeed(*filer, anchor_, now, kFurtherEntries));
    auto body = filerFeed(*filer, anchor_, feedFault_ == Kind::empty ? sys_seconds() : now);
    if (feedFault_ == Kind::broken) body.resize(body.size() / 2);
    return atom(std::move(body));
}

Response FilingsRequestHandler::list(const Request& request, sys_seconds now) const {
    const auto* const filer = filerWith(world_, numberAfter(request.target, "/submissions/CIK"));
    if (filer == nullptr) return htmlPage(404, "Not found", "<p>No such file.</p>");
    auto body =
        submissionsList(*filer, anchor_, archiveFault_ == Kind::empty ? sys_seconds() : now);
    if (archiveFault_ == Kind::broken) body.resize(body.size() / 2);
    return sent(std::move(body), "application/json");
}

Response FilingsRequestHandler::archived(const Request& request, sys_seconds now) const {
    const auto path = request.path();
    const auto file = path.substr(path.rfind('/') + 1);
    const auto* const filer = filerWith(world_, numberAfter(path, "/edgar/data/"));
    const auto shown = filer ? shownFilings(*filer, anchor_, now) : std::vector<ListedFiling>();
    for (const auto& [of, filing] : shown) {
        const auto accession = accessionOf(*filer, *filing, anchor_);
        auto folder = accession;
        std::erase(folder, '-');
        if (path.find("/" + folder + "/") == std::string_view::npos) continue;
        if (file == accession + ".txt")
            return sent(submissionText(*filer, *filing, anchor_), "text/plain");
        if (file == accession + "-index.htm")
            return sent(filingIndexPage(*filer, *filing, anchor_), "text/html");
        if (file == "index.json") return sent(filingFolder(*filing), "application/json");
        if (const auto document = filingDocument(*filer, *filing, file, anchor_))
            return sent(*document, file.ends_with(".xml") ? "text/xml" : "text/html");
    }
    return htmlPage(404, "Not found", "<p>No such file.</p>");
}

}  // namespace pressroom
