#pragma once

#include <string>

#include "NewsroomKit/Newsrooms/NewsroomSymbols.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "NewsroomKit/Queries/StoryQuery.h"

namespace kit {

/// A topic that the user follows: a query with a name.
struct Beat {
    UUID id{};
    std::string name{};
    std::string symbol{};  ///< one of NewsroomSymbols, or what was stored
    StoryQuery query{};
    bool alerts = false;  ///< new matching stories raise notifications

    bool operator==(const Beat&) const = default;
};

template <>
struct JSONFields<Beat> {
    static constexpr auto fields = std::tuple{
        field("id", &Beat::id),         field("name", &Beat::name),
        field("symbol", &Beat::symbol), field("query", &Beat::query),
        field("alerts", &Beat::alerts),
    };
};

}  // namespace kit
