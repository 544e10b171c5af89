#include "NewsroomKit/Newsrooms/NewsroomLimits.h"

#include <set>

#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {

namespace {

using namespace NewsroomLimits;

bool isControl(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

/// Embeddings, overrides and isolates, which can disguise a text.
bool turnsDirection(char32_t c) {
    return (c >= 0x202A && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

enum class Lines { one, many };

void requireText(const std::string& path, std::string_view text, std::size_t most,
                 Lines lines = Lines::one) {
    // Writing and reading it again would change or lose the text.
    if (!isValidUTF8(text)) throw RecordError(path, "the text is not UTF-8");
    // A character can be a long run of marks, so bytes are bounded as well.
    if (text.size() > most * 8 || characterCount(text) > most)
        throw RecordError(path, "the text is longer than " + std::to_string(most) + " characters");
    for (std::size_t at = 0; at < text.size();) {
        const auto decoded = decodeUTF8(text, at);
        at += decoded.length;
        const bool lineBreak = decoded.value == U'\n' && lines == Lines::many;
        if ((isControl(decoded.value) && !lineBreak) || turnsDirection(decoded.value))
            throw RecordError(path, "the text contains characters that cannot be shown");
    }
}

/// Spaces and characters without width.
bool isInvisible(char32_t c) {
    return isWhitespaceOrNewline(c) || c == 0xAD || (c >= 0x200B && c <= 0x200F) ||
           (c >= 0x2060 && c <= 0x2064) || c == 0x3164 || c == 0xFEFF;
}

void requireName(const std::string& name) {
    requireText("name", name, kLineCharacters);
    for (std::size_t at = 0; at < name.size();) {
        const auto decoded = decodeUTF8(name, at);
        if (!isInvisible(decoded.value)) return;
        at += decoded.length;
    }
    throw RecordError("name", "it is empty");
}

void requireTexts(const std::string& path, const std::vector<std::string>& texts,
                  std::size_t most = kLineCharacters) {
    if (texts.size() > kListEntries)
        throw RecordError(path, "there are more than " + std::to_string(kListEntries) + " entries");
    for (std::size_t i = 0; i < texts.size(); ++i)
        requireText(path + "[" + std::to_string(i) + "]", texts[i], most);
}

void requireQuery(const std::string& path, const StoryQuery& query) {
    requireTexts(path + ".anyTerms", query.anyTerms);
    requireTexts(path + ".excludedTerms", query.excludedTerms);
    requireTexts(path + ".sourceIDs", query.sourceIDs);
    if (query.sourcings.size() > kListEntries)
        throw RecordError(path + ".sourcings",
                          "there are more than " + std::to_string(kListEntries) + " entries");
}

void requirePanel(const std::string& path, const PanelSpec& panel) {
    requireText(path + ".title", panel.title, kLineCharacters);
    if (panel.query) requireQuery(path + ".query", *panel.query);
    requireTexts(path + ".options.eventTerms", panel.options.eventTerms);
    requireText(path + ".options.stockRange", panel.options.stockRange, kLineCharacters);
    requireTexts(path + ".options.platforms", panel.options.platforms);
    requireTexts(path + ".options.pages", panel.options.pages, kAddressCharacters);
}

}  // namespace

void NewsroomLimits::require(const Beat& beat) {
    requireName(beat.name);
    requireText("symbol", beat.symbol, kLineCharacters);
    requireQuery("query", beat.query);
}

void NewsroomLimits::require(const NewsroomSpec& spec) {
    requireName(spec.name);
    requireText("symbol", spec.symbol, kLineCharacters);
    if (spec.prompt) requireText("prompt", *spec.prompt, kPromptCharacters, Lines::many);
    requireQuery("focus", spec.focus);
    if (spec.panels.size() > kPanels)
        throw RecordError("panels", "there are more than " + std::to_string(kPanels) + " panels");
    std::set<UUID> seen;
    for (std::size_t i = 0; i < spec.panels.size(); ++i) {
        const auto path = "panels[" + std::to_string(i) + "]";
        if (!seen.insert(spec.panels[i].id).second)
            throw RecordError(path + ".id", "an earlier panel has the same id");
        requirePanel(path, spec.panels[i]);
    }
}

}  // namespace kit
