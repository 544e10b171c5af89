#include "Tarnwick_Brell/Desk/SourceRegistry.h"

#include <algorithm>
#include <iterator>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "NewsroomKit/Text/Folding.h"
#include "Tarnwick_Brell/Desk/StoryIntake.h"

namespace app {

using kit::NewsSource;

namespace {

constexpr std::size_t kLongestWords = 39;
constexpr std::size_t kHashDigits = 8;

/// "Café & Bar News" becomes "cafe-bar-news"; a name in another script gives nothing.
std::string slug(std::string_view name) {
    std::string words;
    for (const char c : kit::fold(name)) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        if (plain) {
            words += c;
        } else if (!words.empty() && words.back() != '-') {
            words += '-';
        }
        if (words.size() == kLongestWords) break;
    }
    while (words.ends_with('-')) words.pop_back();
    return words;
}

/// The last hexadecimal digits of the hash that stories have their ids from.
std::string hashDigits(std::string_view text) {
    auto digits = kit::storyID(text);
    digits.insert(0, kHashDigits, '0');  // The hash is written without leading zeros.
    return digits.substr(digits.size() - kHashDigits);
}

}  // namespace

SourceRegistry::SourceRegistry(SourceTable& table) : table_(table) { reload(); }

void SourceRegistry::reload() {
    sources_ = kit::defaultSourceCatalog();
    for (auto& source : table_.customSources()) sources_.push_back(std::move(source));
    removed_ = table_.removedSources();
    switches_ = table_.switches();
    options_ = table_.options();
    index();
    for (const auto& [id, options] : options_) {
        const auto place = places_.find(id);
        if (place == places_.end()) continue;
        auto& source = sources_[place->second];
        source.onlyApple = options.onlyApple.value_or(source.onlyApple);
        source.minimumInterval = options.minimumInterval.value_or(source.minimumInterval);
    }
}

void SourceRegistry::index() {
    feeds_.reset();
    places_.clear();
    for (std::size_t i = 0; i < sources_.size(); ++i) places_.emplace(sources_[i].id, i);
}

const SourceRegistry::Feeds& SourceRegistry::feeds() const {
    if (feeds_) return *feeds_;
    Feeds made;
    for (std::size_t i = 0; i < sources_.size(); ++i) {
        made.places.emplace(kit::canonicalLink(sources_[i].feedURL), i);
    }
    for (const auto& source : removed_) {
        made.removed[kit::canonicalLink(source.feedURL)] = source.id;
    }
    return feeds_.emplace(std::move(made));
}

std::vector<NewsSource> SourceRegistry::enabledSources() const {
    std::vector<NewsSource> enabled;
    std::copy_if(sources_.begin(), sources_.end(), std::back_inserter(enabled),
                 [&](const NewsSource& source) { return isEnabled(source); });
    return enabled;
}

SourceListState SourceRegistry::state() const {
    SourceListState state{.sources = sources_, .options = options_};
    for (const auto& source : enabledSources()) state.enabled.insert(source.id);
    return state;
}

bool SourceRegistry::isEnabled(const NewsSource& source) const {
    const auto entry = switches_.find(source.id);
    return entry == switches_.end() ? source.enabledByDefault : entry->second;
}

const NewsSource* SourceRegistry::find(std::string_view id) const {
    const auto found = places_.find(std::string(id));
    return found == places_.end() ? nullptr : &sources_[found->second];
}

const NewsSource* SourceRegistry::findByFeed(std::string_view feedURL) const {
    const auto& places = feeds().places;
    const auto found = places.find(kit::canonicalLink(feedURL));
    return found == places.end() ? nullptr : &sources_[found->second];
}

NewsSource* SourceRegistry::findOwn(std::string_view id) {
    const auto found = places_.find(std::string(id));
    if (found == places_.end()) return nullptr;
    auto& source = sources_[found->second];
    return source.kind == NewsSource::Kind::custom ? &source : nullptr;
}

void SourceRegistry::setEnabled(std::string_view id, bool enabled) {
    table_.setEnabled(id, enabled);
    switches_[std::string(id)] = enabled;
}

void SourceRegistry::setOptions(std::string_view id, const SourceOptions& options) {
    table_.setOptions(id, options);
    // What is no longer set is as in the catalogue again.
    reload();
}

std::string SourceRegistry::freshID(std::string_view name, std::string_view host,
                                    std::string hashed) const {
    const auto isTaken = [&](const std::string& id) {
        return find(id) != nullptr ||
               std::any_of(removed_.begin(), removed_.end(),
                           [&](const NewsSource& source) { return source.id == id; });
    };
    std::string words = slug(name);
    if (words.empty()) words = slug(host);
    if (words.empty()) words = "source";
    for (;; hashed += '|') {
        auto id = words + '-' + hashDigits(hashed);
        if (!isTaken(id)) return id;
    }
}

NewsSource SourceRegistry::add(std::string_view name, std::string_view feedURL,
                               std::string_view siteURL) {
    const auto address = kit::WebAddress::parse(feedURL);
    const auto canonical = kit::canonicalLink(feedURL);
    // Lists of other readers often name a feed by its address, password and all.
    NewsSource source{.name = shortenedName(kit::maskedSecrets(name)),
                      .feedURL = std::string(feedURL),
                      .siteURL = std::string(siteURL),
                      .kind = NewsSource::Kind::custom,
                      .category = NewsSource::Category::custom,
                      .format = NewsSource::Format::feed,
                      .enabledByDefault = true};
    if (source.siteURL.empty()) {
        source.siteURL =
            address ? address->scheme + "://" + address->host + "/" : std::string(feedURL);
    }
    if (const auto former = feeds().removed.find(canonical); former != feeds().removed.end()) {
        source.id = former->second;
        table_.restore(source);
        std::erase_if(removed_, [&](const NewsSource& other) { return other.id == source.id; });
        feeds_->removed.erase(canonical);
    } else {
        source.id = freshID(source.name, address ? address->host : "", canonical);
        table_.add(source);
    }
    places_.emplace(source.id, sources_.size());
    feeds_->places.emplace(canonical, sources_.size());
    sources_.push_back(source);
    return source;
}

bool SourceRegistry::rename(std::string_view id, std::string_view name) {
    auto* source = findOwn(id);
    if (!source) return false;
    // The record stays as it was added: options are kept apart from it.
    for (auto& record : table_.customSources()) {
        if (record.id != id) continue;
        record.name = shortenedName(kit::maskedSecrets(name));
        table_.update(record);
        source->name = record.name;
    }
    return true;
}

void SourceRegistry::remove(const std::vector<std::string>& ids, kit::Instant now) {
    std::set<std::string_view> leaving;
    for (const auto& id : ids) {
        const auto* source = findOwn(id);
        if (!source || !leaving.insert(id).second) continue;
        table_.remove(id, now);
        switches_.erase(id);
        options_.erase(id);
        removed_.push_back(*source);
    }
    std::erase_if(sources_, [&](const auto& source) { return leaving.contains(source.id); });
    index();
}

}  // namespace app
