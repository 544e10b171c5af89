#pragma once

#include <optional>

#include <QString>

namespace app {

/// Where the window can be: a newsroom, a list of stories, a tracker, another page of the desk.
struct Destination {
    enum class Kind { newsroom, all, unread, saved, topStories, beat, source, tracker, page };

    Kind kind = Kind::all;
    QString id{};  ///< of the newsroom, beat, source, tracker or page

    bool isStoryList() const {
        return kind == Kind::all || kind == Kind::unread || kind == Kind::saved ||
               kind == Kind::beat || kind == Kind::source;
    }

    /// "wire:unread", "source:six-colors": what is remembered and handed about.
    QString key() const;
    /// Nothing when it is no key.
    static std::optional<Destination> fromKey(const QString& key);

    bool operator==(const Destination&) const = default;
};

}  // namespace app
