#include "NewsroomKit/Library/NoteTitle.h"

#include <algorithm>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kTitleCharacters = 80;
/// More than a line that is shown; a long text is not walked to its end.
constexpr std::size_t kReadBytes = 4'000;

}  // namespace

std::string textBeginning(std::string_view text, std::size_t characters) {
    return std::string(firstCharacters(singleLine(text.substr(0, kReadBytes)), characters));
}

std::string shownTitle(const Note& note) {
    if (!note.title.empty()) return note.title;
    const std::string_view text = note.text;
    for (std::size_t at = 0; at < std::min(text.size(), kReadBytes);) {
        const auto end = std::min(text.find('\n', at), text.size());
        auto line = text.substr(at, end - at);
        // The marks of headings, quotes and lists.
        while (!line.empty() && std::string_view("#>*-+ \t").find(line.front()) != line.npos)
            line.remove_prefix(1);
        if (auto title = textBeginning(line, kTitleCharacters); !title.empty()) return title;
        at = end + 1;
    }
    return "Untitled note";
}

}  // namespace kit
