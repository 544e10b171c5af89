#include "Tarnwick_Brell/CommandLine/ArchiveConsole.h"

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Addresses/WebAddress.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

std::string storyAddress(Session& session, const std::string& word) {
    if (kit::isOpenable(word)) return word;
    if (word.empty() || word.find_first_not_of("0123456789abcdefABCDEF") != word.npos) {
        throw WrongUsage("\"" + word +
                         "\" is neither a web address nor the id of a story. brell wire shows the "
                         "ids.");
    }
    return kit::maskedLogins(storyNamed(session.storeForReading(), word).story.link);
}

std::string linkText(const std::string& url) {
    const auto text = printable(kit::maskedLogins(url));
    return kit::isOpenable(url) ? text : "“" + text + "” (not a web address)";
}

std::string publishedText(kit::Instant instant, bool isDayOnly) {
    return isDayOnly ? namedDayText(instant) : momentText(instant);
}

}  // namespace cli
