#include "NewsroomKit/PressWires/PressSignals.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Signals/SignalEvent.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

/// The folded words of a text, separated by single spaces, without punctuation.
std::string foldedWords(std::string_view text) {
    std::string words;
    const auto folded = fold(text);
    for (std::size_t at = 0; at < folded.size();) {
        const auto [character, length, valid] = decodeUTF8(folded, at);
        // Wires write quotation marks and dashes in ways of their own.
        if (isLetter(character) || isNumber(character)) {
            words += folded.substr(at, length);
        } else if (!words.empty() && words.back() != ' ') {
            words += ' ';
        }
        at += length;
    }
    if (words.ends_with(' ')) words.pop_back();
    return words;
}

/// A company's name without its legal form.
std::string shortName(std::string_view name) {
    constexpr std::array<std::string_view, 12> forms{
        " incorporated", " inc",     " corp", " corporation", " company", " co",
        " ltd",          " limited", " plc",  " llc",         " ag",      " com"};
    auto words = foldedWords(name);
    for (const auto form : forms) {
        if (words.ends_with(form)) return words.substr(0, words.size() - form.size());
    }
    return words;
}

}  // namespace

bool isOfCompany(const PressRelease& release, std::span<const PressCompany> companies) {
    return std::ranges::any_of(companies, [&](const PressCompany& company) {
        if (release.symbol) {
            return lowercasedASCII(*release.symbol) == lowercasedASCII(company.symbol);
        }
        const auto name = shortName(company.name);
        return release.company && !name.empty() && shortName(*release.company) == name;
    });
}

std::string releaseKey(const PressRelease& release) {
    const auto day = release.published ? signalDay(*release.published) : std::string();
    return day + "|" + foldedWords(release.title);
}

std::vector<Signal> signalsOf(std::span<const PressRelease> added, std::string_view readAt,
                              Instant now) {
    std::vector<Signal> signals;
    for (const auto& release : added) {
        auto signal = signalOf(release.symbol == "AAPL" ? SignalEvent::pressReleaseOfApple
                                                        : SignalEvent::pressRelease);
        signal.id = "press|" + releaseKey(release);
        signal.subject = release.company.value_or(release.symbol.value_or(""));
        const auto company = signal.subject.empty() ? std::string() : signal.subject + ": ";
        signal.title = company + release.title;
        if (!signal.title.ends_with('.')) signal.title += '.';
        signal.detail = release.summary;
        signal.link = release.link;
        signal.happenedAt = release.published;
        signal.seenAt = now;
        signal.evidence = {{"readAt", readAt}};
        signals.push_back(std::move(signal));
    }
    return signals;
}

}  // namespace kit
