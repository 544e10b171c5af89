#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Codec.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// Something that the desk saw change about the same subject: a build, a page, a filing.
struct TimelineSignal {
    std::string id{};
    std::string kind{};
    std::string title{};
    std::optional<Instant> happenedAt{};
    std::optional<Instant> seenAt{};

    bool isRelease() const { return kind == "release"; }
    /// When it happened, as far as that is known; absent when no time is known at all.
    std::optional<Instant> at() const { return happenedAt ? happenedAt : seenAt; }

    bool operator==(const TimelineSignal&) const = default;
};

/// A step of a subject from the first rumor to its release.
struct TimelineStage {
    enum class Stage { firstRumor, firstReport, onRecord, confirmed, released };

    Stage stage = Stage::firstRumor;
    std::optional<std::string> story{};   ///< id
    std::optional<std::string> signal{};  ///< id, where a signal is the step
    Instant at{};
    std::optional<double> days{};  ///< since the stage before it

    bool operator==(const TimelineStage&) const = default;
};

/// The stages that the stories of one subject, with their corrections applied, and its signals have
/// reached, by time. Rumors and reports after the confirmation are no stage.
std::vector<TimelineStage> subjectTimeline(std::span<const Story* const> stories,
                                           std::span<const TimelineSignal> changes);

template <>
inline constexpr std::array<EnumRow<TimelineStage::Stage>, 5> enumTable<TimelineStage::Stage>{{
    {TimelineStage::Stage::firstRumor, "firstRumor", "First rumor"},
    {TimelineStage::Stage::firstReport, "firstReport", "First report"},
    {TimelineStage::Stage::onRecord, "onRecord", "Apple on the record"},
    {TimelineStage::Stage::confirmed, "confirmed", "Confirmed"},
    {TimelineStage::Stage::released, "released", "Released"},
}};

template <>
struct JSONFields<TimelineSignal> {
    static constexpr auto fields = std::tuple{
        field("id", &TimelineSignal::id),         field("kind", &TimelineSignal::kind),
        field("title", &TimelineSignal::title),   field("happenedAt", &TimelineSignal::happenedAt),
        field("seenAt", &TimelineSignal::seenAt),
    };
};

template <>
struct JSONFields<TimelineStage> {
    static constexpr auto fields = std::tuple{
        field("stage", &TimelineStage::stage),   field("story", &TimelineStage::story),
        field("signal", &TimelineStage::signal), field("at", &TimelineStage::at),
        field("days", &TimelineStage::days),
    };
};

}  // namespace kit
