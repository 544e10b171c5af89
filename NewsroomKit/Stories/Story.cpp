#include "NewsroomKit/Stories/Story.h"

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Sources/PlatformHosts.h"
#include "NewsroomKit/Stories/StoryShape.h"
#include "NewsroomKit/Text/Unicode.h"

namespace newsroom {

namespace {

/// Takes values in field order; an absent value counts, so that ("a", nothing) and
/// (nothing, "a") differ.
class Hasher {
public:
    template <class T>
    void add(const T& value) {
        const std::size_t hash = std::hash<T>{}(value);
        hash_ ^= hash + 0x9e3779b97f4a7c15 + (hash_ << 6) + (hash_ >> 2);
    }
    template <class T>
    void add(const std::optional<T>& value) {
        add(value.has_value());
        if (value) add(*value);
    }
    template <class T>
    void add(const std::vector<T>& list) {
        add(list.size());
        for (const T& item : list) add(item);
    }
    template <TabledEnum E>
    void add(const E& value) {
        add(rawValue(value));
    }
    template <Record R>
    void add(const R& record) {
        std::apply([&](const auto&... f) { (add(record.*f.member), ...); }, RecordShape<R>::fields);
    }
    void add(const Instant& instant) { add(instant.time_since_epoch().count()); }

    std::size_t value() const { return hash_; }

private:
    std::size_t hash_ = 0;
};

}  // namespace

bool Story::needsArticleLink() const {
    if (articleLink) return false;
    const auto address = WebAddress::parse(link);
    return address && address->host == hosts::kGoogleNews;
}

std::optional<std::string> Story::shownDestinationName() const {
    if (!destinationName || equalIgnoringCase(*destinationName, sourceName)) return std::nullopt;
    return destinationName;
}

}  // namespace newsroom

std::size_t std::hash<newsroom::Story>::operator()(const newsroom::Story& story) const noexcept {
    newsroom::Hasher hasher;
    hasher.add(story);
    return hasher.value();
}
