#pragma once

#include <cstddef>
#include <list>
#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kit {

/// The one form in which links are compared and hashed: https, lower-case host, no
/// fragment, no default port, no trailing "/", tracking items dropped and the remaining
/// query sorted. Text that is not an http(s) address comes back trimmed and unchanged.
std::string canonicalLink(std::string_view text);

/// canonicalLink with a bounded cache, because feeds repeat the same links on every refresh. The
/// least recently used entry is evicted first. Thread-safe.
class CanonicalLinks {
public:
    static constexpr std::size_t kCountLimit = 6000;

    explicit CanonicalLinks(std::size_t countLimit = kCountLimit);

    std::string of(std::string_view text);

    std::size_t count() const;

private:
    struct Answer {
        std::string text;
        std::string canonical;
    };

    const std::size_t countLimit_;
    mutable std::mutex mutex_;
    std::list<Answer> byUse_;  ///< most recently used first; the index's keys point into it
    std::unordered_map<std::string_view, std::list<Answer>::iterator> index_;
};

}  // namespace kit
