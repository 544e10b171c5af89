#include "Tarnwick_Brell/CommandLine/CorrectActions.h"

#include <algorithm>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Attribution/TellingOutlet.h"
#include "NewsroomKit/Newsrooms/UUID.h"
#include "Tarnwick_Brell/CommandLine/AnalysisText.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"
#include "Tarnwick_Brell/CommandLine/TimeArgument.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"
#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Presentation/CorrectionText.h"

namespace cli {

namespace {

using kit::Correction;
using CorrectionKind = Correction::Kind;

std::optional<std::string> given(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

template <class E>
std::optional<E> givenEnum(const std::string& raw) {
    return raw.empty() ? std::nullopt : kit::enumFromRaw<E>(raw);
}

Correction::Instead insteadOf(Session& session, CorrectionKind kind,
                              const CorrectOptions& options) {
    switch (kind) {
        case CorrectionKind::notSame:
        case CorrectionKind::same: return {};
        case CorrectionKind::first: {
            if (!kit::isOpenable(options.link))
                throw WrongUsage("The link must be the address of a page of the web.");
            Correction::Instead instead{.outlet = kit::shownOutletName(options.outlet),
                                        .link = options.link};
            if (!options.at.empty()) instead.at = parseTimeArgument(options.at, session.now());
            return instead;
        }
        case CorrectionKind::credit: return {.name = options.name, .by = given(options.by)};
        case CorrectionKind::label:
            return {.kind = givenEnum<kit::StoryKind>(options.kind),
                    .sourcing = givenEnum<kit::Sourcing>(options.sourcing)};
    }
    return {};
}

/// The correction with that id, or the only one whose id begins with it. Throws WrongUsage.
const Correction& correctionNamed(const std::vector<Correction>& corrections,
                                  const std::string& word) {
    const Correction* found = nullptr;
    for (const auto& correction : corrections) {
        if (correction.id == word) return correction;
        if (word.empty() || !correction.id.starts_with(word)) continue;
        if (found)
            throw WrongUsage("More than one correction begins with " + printable(word) + ".");
        found = &correction;
    }
    if (!found) {
        throw WrongUsage(
            fmt::format("There is no correction {}. brell correct lists them.", printable(word)));
    }
    return *found;
}

void printCorrection(Session& session, const Correction& correction, std::string_view what) {
    if (session.options().json) return printValue(session, kit::encode(correction));
    session.out().line(
        fmt::format("{}: {}.", what, printable(app::correctionText(correction).toStdString())));
}

/// Titles of the stories that are still in the library.
std::string storiesText(Session& session, const Correction& correction) {
    std::string text;
    for (const auto& id : correction.stories) {
        const auto found = session.storeForReading().stories().findByID(id, 1);
        const bool isThere = !found.empty() && found.front().story.id == id;
        text += (text.empty() ? "" : "; ") +
                (isThere ? printable(found.front().story.title) : id + " (no longer on the wire)");
    }
    return text;
}

}  // namespace

int listCorrections(Session& session) {
    auto& table = session.storeForReading().corrections();
    const auto corrections = table.all();
    if (session.options().json) {
        printValue(session, kit::encode(corrections));
        return kDone;
    }
    if (corrections.empty()) {
        session.advise("No corrections yet. brell correct --help shows what can be corrected.");
        return kDone;
    }
    const auto& overruled = table.overlay()->overruled();
    TextTable list({Column::whole("made"), Column::cut("correction", 24),
                    Column::cut("stories", 24).dropped(1), Column::whole("id")});
    for (const auto& correction : corrections) {
        auto text = app::correctionText(correction).toStdString();
        if (overruled.contains(correction.id)) text += " (overruled by a later one)";
        list.add({ageText(correction.madeAt, session.now()), printable(text),
                  storiesText(session, correction), correction.id});
    }
    list.print(session.out());
    return kDone;
}

int exportCorrections(Session& session) {
    session.out().write(app::exportedCorrections(session.storeForReading().corrections().all()));
    return kDone;
}

int makeCorrection(Session& session, CorrectionKind kind, const CorrectOptions& options) {
    auto& store = session.store();
    Correction correction{.id = kit::UUID::random().text(),
                          .kind = kind,
                          .instead = insteadOf(session, kind, options),
                          .note = given(options.note),
                          .madeAt = session.now()};
    for (const auto& word : options.stories)
        correction.stories.push_back(storyNamed(store, word).story.id);
    try {
        kit::requireSound(correction);
    } catch (const kit::RecordError& error) {
        throw WrongUsage(fmt::format("This is not a valid correction: {}.", error.what()));
    }
    auto transaction = store.transaction();
    store.corrections().put(correction);
    transaction.commit();
    printCorrection(session, correction, "Corrected");
    return kDone;
}

int undoCorrection(Session& session, const CorrectOptions& options) {
    auto& store = session.store();
    const auto correction = correctionNamed(store.corrections().all(), options.correction);
    auto transaction = store.transaction();
    store.corrections().remove(correction.id, session.now());
    transaction.commit();
    printCorrection(session, correction, "Undone");
    return kDone;
}

int redoCorrection(Session& session, const CorrectOptions& options) {
    auto& store = session.store();
    const auto correction = correctionNamed(store.corrections().removed(), options.correction);
    auto transaction = store.transaction();
    store.corrections().restore(correction.id);
    transaction.commit();
    printCorrection(session, correction, "Corrected again");
    return kDone;
}

}  // namespace cli
