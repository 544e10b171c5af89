#include "Tarnwick_Brell/Trackers/TrackerFetcher.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Log/Log.h"

namespace app {

using kit::FetchError;
using kit::HTTPClientError;
using kit::URLError;

namespace {

std::string hostOf(const std::string& address) {
    const auto parsed = kit::WebAddress::parse(address);
    return parsed ? parsed->host : std::string();
}

}  // namespace

bool isOurFault(const FetchError& error) {
    return error == FetchError(URLError::cancelled) ||
           error == FetchError(URLError::notConnectedToInternet);
}

bool hasStatus(const FetchError& error, int status) {
    return error ==
           FetchError(HTTPClientError{.kind = HTTPClientError::Kind::status, .statusCode = status});
}

std::string failureText(const FetchError& error, const std::string& notFoundText,
                        const std::string& untrustedHint) {
    if (hasStatus(error, 404) && !notFoundText.empty()) return notFoundText;
    const bool isUntrusted = error == FetchError(URLError::serverCertificateUntrusted);
    if (isUntrusted && !untrustedHint.empty()) return error.description() + " " + untrustedHint;
    return error.description();
}

void TrackerFetcher::recordFailure(const std::string& name, std::string error) {
    auto transaction = store_.transaction();
    auto health = store_.trackerCopies().health(name);
    ++health.failures;
    health.lastAttempt = clock_();
    health.lastError = std::move(error);
    store_.trackerCopies().setHealth(name, health);
    kit::log(kit::LogCategory::trackers, kit::LogLevel::info, "{}: {}", name,
             health.lastError.value_or(""));
    transaction.commit();
}

std::optional<std::string> TrackerFetcher::pauseText(const std::string& address) {
    const auto now = clock_();
    const auto pauses = store_.hostPauses().load(now);
    const auto pause = pauses.find(hostOf(address));
    if (pause == pauses.end()) return std::nullopt;
    return HostBackoff::sentence(pause->second, now);
}

bool TrackerFetcher::wasAskedWithin(const std::string& name, std::chrono::minutes interval) {
    if (interval == std::chrono::minutes(0)) return false;
    const auto last = store_.trackerCopies().health(name).lastAttempt;
    // One in the future was before the clock was set back.
    return last && *last <= clock_() && clock_() - *last < interval;
}

bool TrackerFetcher::isRefused(const std::string& address, const std::string& credential) {
    return !credential.empty() && store_.state().text("refused/" + hostOf(address)) == credential;
}

void TrackerFetcher::setRefused(const std::string& address, const std::string& credential) {
    store_.state().setText("refused/" + hostOf(address), credential);
}

void TrackerFetcher::backOff(const std::string& address, std::chrono::seconds wanted) {
    if (wanted <= std::chrono::seconds(0)) return;
    const auto pause = std::min<std::chrono::seconds>(wanted, HostBackoff::kLongest);
    store_.hostPauses().set(hostOf(address), clock_() + pause);
}

}  // namespace app
