#include "NewsroomKit/Library/BookmarkFile.h"

#include <algorithm>

#include "NewsroomKit/Library/LineText.h"

namespace kit {

namespace {

std::string escapedHTML(std::string_view text) {
    std::string out;
    for (const char c : singleLine(text)) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            case '\'': out += "&#39;"; break;
            default: out += c;
        }
    }
    return out;
}

std::string tagList(const std::vector<std::string>& tags) {
    std::string list;
    for (auto tag : tags) {
        std::ranges::replace(tag, ',', ' ');
        if (!list.empty()) list += ',';
        list += escapedHTML(tag);
    }
    return list;
}

}  // namespace

std::string bookmarkFile(std::span<const SavedStory> stories) {
    std::string file =
        "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
        "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
        "<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks</H1>\n<DL><p>\n";
    for (const auto& story : stories) {
        const auto seconds = std::chrono::floor<std::chrono::seconds>(story.savedAt);
        file += "    <DT><A HREF=\"" + escapedHTML(story.articleLink.value_or(story.link)) +
                "\" ADD_DATE=\"" + std::to_string(seconds.time_since_epoch().count()) + '"';
        if (!story.tags.empty()) file += " TAGS=\"" + tagList(story.tags) + '"';
        file += '>' + escapedHTML(story.title) + "</A>\n";
        if (!story.excerpt.empty()) file += "    <DD>" + escapedHTML(story.excerpt) + '\n';
    }
    return file + "</DL><p>\n";
}

}  // namespace kit
