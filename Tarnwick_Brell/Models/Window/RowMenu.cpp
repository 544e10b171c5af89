#include "Tarnwick_Brell/Models/Window/RowMenu.h"

#include <utility>

#include <QClipboard>
#include <QGuiApplication>

namespace app {

RowMenu::RowMenu(const NewsDesk& desk, StoryActions& stories, ActionModel& actions, QObject* parent)
    : QObject(parent), desk_(desk), stories_(stories), actions_(actions) {}

bool RowMenu::show(const QVariantMap& facts) {
    const auto fact = [&](const char* name) {
        return facts.value(QString::fromLatin1(name)).toString();
    };
    shown_.clear();
    commands_.clear();
    if (facts.value(QStringLiteral("opens")).toBool())
        add({.title = tr("Open"), .symbol = QStringLiteral("arrow.right"), .keyText = tr("Enter")},
            [this] { emit openWanted(); });
    if (desk_.stories().find(fact("storyID").toStdString())) {
        addStory(fact("storyID"));
    } else if (!fact("link").isEmpty()) {
        addLink(fact("link"));
    }
    addAlert(fact("quote"), fact("subject"));
    addPageActions();
    const auto text = fact("spokenText");
    if (!text.isEmpty() && !actions_.row(DeskAction::CopyRow).isEnabled)
        add({.title = tr("Copy this row as text"), .symbol = QStringLiteral("doc.on.doc")},
            [this, text] { copy(text, tr("Row copied.")); });
    rows_.setRows(shown_);
    return !shown_.empty();
}

void RowMenu::addStory(const QString& storyID) {
    const bool isSaved = desk_.isSaved(storyID.toStdString());
    for (const auto action : {DeskAction::OpenInBrowser, DeskAction::ToggleSaved,
                              DeskAction::CopyLink, DeskAction::CopyCitation}) {
        addAction(action, isSaved && action == DeskAction::ToggleSaved,
                  [this, action, storyID] { stories_.perform(action, storyID); });
    }
    addAction(DeskAction::ShowTimeline, false, [this, storyID] { emit timelineWanted(storyID); });
    addAction(DeskAction::CorrectStory, false, [this, storyID] { emit correctionWanted(storyID); });
}

void RowMenu::addAction(DeskAction::Value action, bool isUndone, std::function<void()> run) {
    const auto& entry = entryOf(action);
    add({.title = titleOf(entry, isUndone),
         .symbol =
             QString::fromLatin1(entry.symbol.data(), static_cast<qsizetype>(entry.symbol.size()))},
        std::move(run));
}

void RowMenu::addLink(const QString& link) {
    add({.title = tr("Open in the browser"), .symbol = QStringLiteral("arrow.up.right.square")},
        [this, link] { emit linkWanted(link); });
    add({.title = tr("Copy the link"), .symbol = QStringLiteral("link")},
        [this, link] { copy(link, tr("Link copied.")); });
}

void RowMenu::addAlert(const QString& quote, const QString& subject) {
    if (quote.isEmpty() && subject.isEmpty()) return;
    const auto sheet = quote.isEmpty() ? QStringLiteral("alert-from-words:") + subject
                                       : QStringLiteral("alert-from-quote:") + quote;
    addAction(DeskAction::AlertOnStory, false, [this, sheet] { emit sheetWanted(sheet); });
}

void RowMenu::addPageActions() {
    for (const auto& entry : actionTable()) {
        const auto& action = actions_.row(entry.action);
        if (entry.need != ActionNeed::page || !action.isEnabled) continue;
        add({.title = action.title, .symbol = action.symbol, .keyText = action.keyText()},
            [this, which = entry.action] { actions_.trigger(which); });
    }
}

void RowMenu::add(RowMenuRow row, std::function<void()> run) {
    shown_.push_back(std::move(row));
    commands_.push_back(std::move(run));
}

void RowMenu::run(int row) {
    if (row < 0 || row >= std::ssize(commands_)) return;
    // What it does may fill the menu again.
    const auto command = commands_[static_cast<std::size_t>(row)];
    command();
}

void RowMenu::copy(const QString& text, const QString& notice) {
    QGuiApplication::clipboard()->setText(text);
    emit noticed(notice);
}

}  // namespace app
