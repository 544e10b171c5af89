#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

std::span<const Kind> kinds() {
    static constexpr std::array<Kind, 41> all{{
        {"fold", "text", fold},
        {"phrase", "phrase, text", phrase},
        {"link", "link", link},
        {"storyid", "text", storyID},
        {"publisher", "link, feed", publisher},
        {"label", "title, summary, isAppleSource", label},
        {"address", "text", address},
        {"catalogue", "nothing: {}", catalogue},
        {"date", "text", date},
        {"feed", "path or text", feed},
        {"excerpt", "html, limit", excerpt},
        {"stories", "path or text, source, now", stories},
        {"story", "entry, source, now", story},
        {"query", "query, stories", query},
        {"grid", "kinds", grid},
        {"newsroom", "spec", newsroomSpec},
        {"newsroom-make", "id, name, symbol, origin, focus, panels; prompt", newsroomMake},
        {"status", "path or text; since", status},
        {"problems", "known, consumer, developer: each or none", problems},
        {"releases", "text, knownBuilds", releases},
        {"events", "text", events},
        {"quote", "text", quote},
        {"signing", "path or text", signing},
        {"updates", "path or text", updates},
        {"chart", "path or text", chart},
        {"attribution", "stories; archive, trace, corrections", attribution},
        {"clusters", "stories; memory, corrections", clusters},
        {"ledger", "stories, now; clusters, corrections", ledger},
        {"timeline", "stories; signals, corrections", timeline},
        {"alert", "rule, events; quietHours, quietUntil, until", alert},
        {"price", "rule, quotes", price},
        {"moves", "quote, stories; zone", moves},
        {"filings", "path or text", filings},
        {"ownership", "path or text; filed", ownership},
        {"notice", "path or text", notice},
        {"docket", "path or text", docket},
        {"press", "path or text", press},
        {"page", "html, path or text; url, contentType, status", page},
        {"pagediff", "before, after (HTML; url), or beforeText, afterText (lines)", pageDiff},
        {"backend", "source, before, after, or beforeBase64, afterBase64", backend},
        {"archive-url", "operation; after, before, offset, limit, or urls, or url", archiveURL},
    }};
    return all;
}

std::string document(const json::object& input) {
    if (input.contains("text")) return required<std::string>(input, "text");
    if (!input.contains("path")) throw kit::RecordError("", "either path or text is needed");
    const auto path = required<std::string>(input, "path");
    std::error_code error;
    // Opening a pipe would wait for its writer.
    const bool regular = std::filesystem::is_regular_file(path, error);
    std::ifstream file;
    if (regular) file.open(path, std::ios::binary);
    if (!file.is_open()) throw WorkFailed("The file " + path + " can't be read.");
    std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return bytes;
}

}  // namespace cli::inspect
