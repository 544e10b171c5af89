#pragma once

#include <string>
#include <vector>

#include <QString>

#include "NewsroomKit/Queries/StoryQuery.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Sidebar/Destination.h"

namespace app {

/// What a timeline is about, as the place of its page names it.
struct TimelineSubject {
    enum class Kind { none, words, beat, news };

    Kind kind = Kind::none;
    std::vector<std::string> words{};  ///< of `words`: a story mentions one of them
    std::string id{};                  ///< of the beat, or of a story of the news

    static TimelineSubject ofBeat(const std::string& id) { return {Kind::beat, {}, id}; }
    static TimelineSubject ofNews(const std::string& storyID) { return {Kind::news, {}, storyID}; }
    /// Words with commas between them; none are no subject.
    static TimelineSubject ofWords(const QString& typed);

    static bool isPlace(const Destination& place);
    static TimelineSubject of(const Destination& place);
    Destination place() const;

    /// Which stories it is about; of news, the ones like its headline.
    kit::StoryQuery query(const DeskStores& stores) const;
    /// "HomePad, home hub", a beat's name, a headline.
    QString name(const DeskStores& stores) const;

    bool operator==(const TimelineSubject&) const = default;
};

}  // namespace app
