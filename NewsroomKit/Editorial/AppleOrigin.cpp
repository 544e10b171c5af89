#include "NewsroomKit/Editorial/AppleOrigin.h"

#include "NewsroomKit/Text/Pattern.h"

namespace kit {

namespace {

bool titleHasAppleSpeaking(std::string_view title) {
    static const Pattern headline(
        R"(^Apple(?:'s|’s)?\s+(?:says|announces|announced|confirms|confirmed|unveils|details|)"
        R"(updates|releases|publishes|launches|moves to|)"
        R"(is (?:changing|updating|adding|removing|tightening))\b)",
        Pattern::Letters::ignoringCase);
    return headline.occursIn(title);
}

bool summaryHasAppleSpeaking(std::string_view summary) {
    static const Pattern statement(
        // "The company has announced plans", "Apple confirmed on"
        R"(\b(?:Apple|the company)\s+(?:has\s+)?(?:announced|confirmed)\s+)"
        R"((?:plans?|that|today|on|it|new|changes)\b|)"
        // "Apple said in a short press release"
        R"(\b(?:Apple|the company)\s+)"
        R"((?:announced|said|says|confirmed|revealed|detailed|explained|shared)\s+)"
        R"((?:in|on|via|through)\s+(?:a|an|its|the)\s+(?:[\w-]+\s+){0,3})"
        R"((?:post|press release|statement|support document|newsroom|developer news|)"
        R"(announcement|update|email)\b|)"
        // "In a blog post published this morning, Apple said"
        R"(\bIn a (?:post|press release|statement|support document|developer news post|blog post) )"
        R"((?:on|to|published|today)[^.]{0,60}\bApple\s+(?:announced|said|says|confirmed)\b)",
        Pattern::Letters::ignoringCase);
    return statement.occursIn(summary);
}

}  // namespace

bool AppleOrigin::isAppleOnRecord(const Story& story) {
    return isAppleOnRecord(story.title, story.summary);
}

bool AppleOrigin::isAppleOnRecord(std::string_view title, std::string_view summary) {
    return explain(title, summary).has_value();
}

std::optional<RuleHit::Where> AppleOrigin::explain(std::string_view title,
                                                   std::string_view summary) {
    if (titleHasAppleSpeaking(title)) return RuleHit::Where::title;
    if (summaryHasAppleSpeaking(summary)) return RuleHit::Where::summary;
    return std::nullopt;
}

}  // namespace kit
