#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

class Defaults;

/// A case whose docket is followed.
struct FollowedCase {
    std::int64_t docket = 0;  ///< CourtListener's number
    std::string note{};       ///< why the user follows it

    bool operator==(const FollowedCase&) const = default;
};

/// A feed that the user has added: a court's own, or a company's or a wire's.
struct AddedFeed {
    std::string address{};
    std::string name{};  ///< as the user calls it; may be empty

    bool operator==(const AddedFeed&) const = default;
};

/// What the user follows of courts and companies, stored beside the settings.
class FollowedFeeds {
public:
    explicit FollowedFeeds(Defaults& defaults) : defaults_(defaults) {}

    /// In the order of their numbers.
    std::vector<FollowedCase> cases() const;
    /// Empty when there is none.
    std::string courtListenerToken() const;
    std::vector<AddedFeed> courtFeeds() const;
    std::vector<AddedFeed> pressFeeds() const;

    /// Follows the case, or replaces its note.
    void follow(const FollowedCase& followed);
    /// Whether it was followed.
    bool unfollow(std::int64_t docket);

    void addCourtFeed(const AddedFeed& feed);
    void addPressFeed(const AddedFeed& feed);
    /// Whether there was such a feed.
    bool removeCourtFeed(std::string_view address);
    bool removePressFeed(std::string_view address);

private:
    std::vector<AddedFeed> feeds(std::string_view key) const;
    void add(std::string_view key, const std::string& name, const std::string& value);
    bool remove(std::string_view key, std::string_view name);

    Defaults& defaults_;
};

/// The docket in what a user types: its number, or the address of its page at CourtListener.
std::optional<std::int64_t> docketNumberIn(std::string_view text);

}  // namespace app
