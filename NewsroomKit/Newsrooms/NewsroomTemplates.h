#pragma once

#include <span>
#include <string>
#include <string_view>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"

namespace kit {

/// A newsroom to begin with, for one kind of work.
struct NewsroomTemplate {
    struct Panel {
        PanelKind kind{};
        std::string_view title{};
        GridFrame frame{};
    };

    std::string_view id{};
    std::string_view name{};
    std::string_view symbol{};
    std::string_view description{};
    std::span<const Panel> panels{};
    /// The words that it proposes as its focus; empty for everything.
    std::span<const std::string_view> focus{};

    StoryQuery focusQuery() const;
};

/// In the order in which they are offered.
std::span<const NewsroomTemplate> newsroomTemplates();

/// Creates a newsroom from a template. Throws RecordError as NewsroomLimits::require does.
NewsroomSpec madeNewsroom(const NewsroomTemplate& from, std::string name, std::string symbol,
                          StoryQuery focus);

}  // namespace kit
