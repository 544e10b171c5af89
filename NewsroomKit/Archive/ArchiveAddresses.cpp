#include "NewsroomKit/Archive/ArchiveAddresses.h"

#include <cmath>

#include <boost/url/encode.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>

namespace kit {

namespace {

std::string wholeSeconds(double seconds) {
    constexpr double firstTooLarge = 9223372036854775808.0;
    // Written so that a NaN fails the comparison.
    if (!(std::abs(seconds) < firstTooLarge)) throw UnsendableInstant();
    return std::to_string(static_cast<std::int64_t>(seconds));
}

std::string queryValue(std::string_view text) {
    return boost::urls::encode(text, boost::urls::unreserved_chars);
}

}  // namespace

std::string archiveBaseAt(std::string_view serviceAddress) {
    while (serviceAddress.ends_with('/')) serviceAddress.remove_suffix(1);
    return std::string(serviceAddress) + "/wp-json/tb-archive/v1/";
}

std::string ArchiveAddresses::stories(ArchivePeriod period, std::int64_t offset,
                                      std::int64_t limit) const {
    return std::string(base) + "stories?after=" + wholeSeconds(period.after) +
           "&before=" + wholeSeconds(period.before) + "&offset=" + std::to_string(offset) +
           "&limit=" + std::to_string(limit);
}

std::string ArchiveAddresses::status() const { return std::string(base) + "status"; }

std::string ArchiveAddresses::credits(const std::vector<std::string>& stories) const {
    auto address = std::string(base) + "credits?urls=";
    for (const auto& story : stories) {
        if (&story != &stories.front()) address += ',';
        address += queryValue(story);
    }
    return address;
}

std::string ArchiveAddresses::trace(std::string_view story) const {
    return std::string(base) + "trace?url=" + queryValue(story);
}

}  // namespace kit
