#include "Tarnwick_Brell/Desk/SourceRoster.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Text/Folding.h"

namespace desk {

namespace {

using newsroom::NewsSource;

constexpr std::size_t kLongestID = 48;

/// "Café & Bar News" becomes "cafe-bar-news"; a name in another script gives nothing.
std::string slug(std::string_view name) {
    std::string id;
    for (const char c : newsroom::fold(name)) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (plain) {
            id += c;
        } else if (!id.empty() && id.back() != '-') {
            id += '-';
        }
        if (id.size() == kLongestID) break;
    }
    while (id.ends_with('-')) id.pop_back();
    return id;
}

}  // namespace

SourceRoster::SourceRoster(SourceTable& table)
    : table_(table), sources_(newsroom::defaultSourceCatalog()), switches_(table.switches()) {
    for (auto& source : table.customSources()) sources_.push_back(std::move(source));
}

std::vector<NewsSource> SourceRoster::enabledSources() const {
    std::vector<NewsSource> enabled;
    std::copy_if(sources_.begin(), sources_.end(), std::back_inserter(enabled),
                 [&](const NewsSource& source) { return isEnabled(source); });
    return enabled;
}

bool SourceRoster::isEnabled(const NewsSource& source) const {
    const auto entry = switches_.find(source.id);
    return entry == switches_.end() ? source.enabledByDefault : entry->second;
}

const NewsSource* SourceRoster::find(std::string_view id) const {
    const auto found = std::find_if(sources_.begin(), sources_.end(),
                                    [&](const NewsSource& source) { return source.id == id; });
    return found == sources_.end() ? nullptr : &*found;
}

const NewsSource* SourceRoster::findByFeed(std::string_view feedURL) const {
    const auto canonical = newsroom::canonicalLink(feedURL);
    const auto found =
        std::find_if(sources_.begin(), sources_.end(), [&](const NewsSource& source) {
            return newsroom::canonicalLink(source.feedURL) == canonical;
        });
    return found == sources_.end() ? nullptr : &*found;
}

void SourceRoster::setEnabled(std::string_view id, bool enabled) {
    table_.setEnabled(id, enabled);
    switches_[std::string(id)] = enabled;
}

NewsSource SourceRoster::add(std::string_view name, std::string_view feedURL) {
    const auto address = newsroom::WebAddress::parse(feedURL);
    const std::string host = address ? address->host : std::string("source");
    std::string base = slug(name);
    if (base.empty()) base = slug(host);
    std::string id = base;
    for (int number = 2; find(id); ++number) id = base + "-" + std::to_string(number);

    NewsSource source{
        .id = id,
        .name = std::string(name),
        .feedURL = std::string(feedURL),
        .siteURL = address ? address->scheme + "://" + host + "/" : std::string(feedURL),
        .kind = NewsSource::Kind::custom,
        .category = NewsSource::Category::custom,
        .format = NewsSource::Format::feed,
        .enabledByDefault = true};
    table_.add(source);
    sources_.push_back(source);
    return source;
}

}  // namespace desk
