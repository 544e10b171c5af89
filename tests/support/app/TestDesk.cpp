#include "tests/support/app/TestDesk.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceCatalog.h"
#include "PressRoom/Server/Conditional.h"

namespace app::test {

TestDesk::TestDesk(const std::vector<std::string>& hosts) {
    LocalStore store(library(), Database::Access::readWrite);
    auto transaction = store.transaction();
    for (const auto& source : kit::defaultSourceCatalog()) {
        store.sources().setEnabled(source.id, false);
    }
    for (const auto& host : hosts) store.sources().add(source(host));
    transaction.commit();
}

kit::CurlTransport::Options TestDesk::network() const {
    return {.connectTo = "127.0.0.1:" + std::to_string(http.server.port()),
            .caFile = http.authorityFile()};
}

kit::Clock TestDesk::clock() {
    return [this] { return now_.load(); };
}

kit::NewsSource TestDesk::source(const std::string& host) {
    return {.id = host,
            .name = host,
            .feedURL = "https://" + host + "/feed",
            .siteURL = "https://" + host + "/",
            .kind = kit::NewsSource::Kind::custom,
            .category = kit::NewsSource::Category::custom,
            .enabledByDefault = true};
}

void TestDesk::serve(const std::string& host, std::vector<pressroom::Response> answers) {
    http.script.on(host, "/feed", std::move(answers));
}

pressroom::Response TestDesk::feed(const std::string& host, int first, int last) {
    const auto noon =
        std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(12);
    std::string text = "<rss><channel><title>" + host + "</title>";
    for (int i = first; i <= last; ++i) {
        text += fmt::format(
            "<item><title>{0} {1}</title><link>https://{0}/{1}</link>"
            "<pubDate>{2:%a, %d %b %Y %H:%M:%S} GMT</pubDate></item>",
            host, i, noon - std::chrono::hours(100 - i));
    }
    return {.headers = {{"ETag", fmt::format("\"{}-{}\"", first, last)}},
            .body = text + "</channel></rss>"};
}

pressroom::Response TestDesk::dated(pressroom::Response response, kit::Instant moment) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(moment);
    response.headers.emplace_back("Date", pressroom::httpDate(seconds));
    return response;
}

std::size_t TestDesk::requestsOf(const std::string& host) const {
    return http.script.requests(host, "/feed").size();
}

bool TestDesk::lastRequestWasConditional(const std::string& host) const {
    return http.script.requests(host, "/feed").back().header("if-none-match").has_value();
}

}  // namespace app::test
