#include "Tarnwick_Brell/Models/Actions/ActionTable.h"

#include <stdexcept>

#include <QCoreApplication>

namespace app {

namespace {

using enum ActionGroup;

constexpr ActionEntry goToSidebarItem(Action action, const char* title, const char* key) {
    return {action, goTo, title, nullptr, "sidebar.left", {ActionKey{key}}, ActionNeed::nothing,
            false};
}

#define WORDS(text) QT_TRANSLATE_NOOP("Actions", text)

// clang-format off
constexpr ActionEntry kActions[]{
    {DeskAction::ToggleSaved, thisStory, WORDS("Save story"), WORDS("Remove story from saved"), "bookmark", {{{"S"}}}, ActionNeed::story},
    {DeskAction::ToggleRead, thisStory, WORDS("Mark story as read"), WORDS("Mark story as unread"), "circle.inset.filled", {{{"M"}}}, ActionNeed::story},
    {DeskAction::OpenInBrowser, thisStory, WORDS("Open story in the browser"), nullptr, "arrow.up.right.square", {{{"Return", true}}}, ActionNeed::story},
    {DeskAction::CopyLink, thisStory, WORDS("Copy the story's link"), nullptr, "link", {{{"C"}}}, ActionNeed::story},
    {DeskAction::CopyCitation, thisStory, WORDS("Copy a citation of the story"), nullptr, "quote.opening", {{{"Y"}}}, ActionNeed::story},
    {DeskAction::TraceStory, thisStory, WORDS("Trace where the story started"), nullptr, "arrow.triangle.branch", {{{"T"}}}, ActionNeed::story},
    {DeskAction::FollowStory, thisStory, WORDS("Follow this"), nullptr, "number", {{{"B"}}}, ActionNeed::story},
    {DeskAction::AlertOnStory, thisStory, WORDS("Tell me about this"), nullptr, "bell", {{{"Shift+B"}}}, ActionNeed::story},
    {DeskAction::ShowTimeline, thisStory, WORDS("Show the timeline"), nullptr, "chart.bar.xaxis", {{{"Shift+T"}}}, ActionNeed::story},
    {DeskAction::FindCoverage, thisStory, WORDS("Find who else ran it"), nullptr, "newspaper", {{{"F"}}}, ActionNeed::story},
    {DeskAction::ReadArticle, thisStory, WORDS("Read the text of its page"), nullptr, "doc.text", {{{"A"}}}, ActionNeed::story},
    {DeskAction::ClipStory, thisStory, WORDS("Clip the selected text, or the headline"), nullptr, "scissors", {{{"X"}}}, ActionNeed::story},
    {DeskAction::WriteNote, thisStory, WORDS("Write a note on the story"), nullptr, "pencil", {{{"O"}}}, ActionNeed::story},
    {DeskAction::PutIntoProject, thisStory, WORDS("Put into a project, or take out"), nullptr, "archivebox", {{{"Shift+P"}}}, ActionNeed::story},
    {DeskAction::CorrectStory, thisStory, WORDS("Correct what the desk made of it"), nullptr, "checkmark.seal", {{{"Shift+K"}}}, ActionNeed::story},
    {DeskAction::SplitStory, thisStory, WORDS("Not the same news as the others"), nullptr, "scissors", {{{"Shift+N"}}}, ActionNeed::story},
    {DeskAction::PrintStory, thisStory, WORDS("Print story"), nullptr, "printer", {{{"Ctrl+P"}}}, ActionNeed::story},
    {DeskAction::SaveStoryPDF, thisStory, WORDS("Save story as PDF"), nullptr, "square.and.arrow.down", {{{"Ctrl+Shift+P"}}}, ActionNeed::story},

    {DeskAction::EditNewsroom, thisPage, WORDS("Edit this newsroom"), WORDS("Leave the editing of this newsroom"), "pencil", {{{"E"}}}, ActionNeed::newsroom},
    {DeskAction::AddPanel, thisPage, WORDS("Add a panel to this newsroom"), nullptr, "plus", {{{"Shift+A"}}}, ActionNeed::newsroom},
    {DeskAction::ShowPanelOptions, thisPage, WORDS("Options of the selected panel"), nullptr, "slider.horizontal.3", {{{"Alt+Return"}}}, ActionNeed::editing},
    {DeskAction::DuplicatePanel, thisPage, WORDS("Duplicate the selected panel"), nullptr, "plus.square.on.square", {{{"Ctrl+D"}}}, ActionNeed::editing},
    {DeskAction::GiveBackEdits, thisPage, WORDS("Give back all changes of this editing"), nullptr, "arrow.uturn.backward", {{{"Ctrl+Esc"}}}, ActionNeed::editing},
    {DeskAction::ShowBoard, thisPage, WORDS("Show this newsroom over the whole screen"), nullptr, "arrow.up.left.and.arrow.down.right", {{{"F11"}}}, ActionNeed::newsroom},
    {DeskAction::CopyRow, thisPage, WORDS("Copy the selected row"), nullptr, "doc.on.doc", {{{"Ctrl+C", true}}}, ActionNeed::page},
    {DeskAction::GoLive, thisPage, WORDS("Go live for the selected event"), nullptr, "bolt", {{{"L"}}}, ActionNeed::page},
    {DeskAction::EndLive, thisPage, WORDS("End the live desk"), nullptr, "pause", {{{"Shift+L"}}}, ActionNeed::live},
    {DeskAction::SaveCalendar, thisPage, WORDS("Save the selected event as a calendar file"), nullptr, "calendar", {{{"I"}}}, ActionNeed::page},
    {DeskAction::FetchSource, thisPage, WORDS("Fetch the selected source now"), nullptr, "arrow.clockwise", {{{"Shift+F"}}}, ActionNeed::page},
    {DeskAction::SwitchSource, thisPage, WORDS("Switch the selected source on or off"), nullptr, "power", {{{"Shift+X"}}}, ActionNeed::page},
    {DeskAction::RenameSource, thisPage, WORDS("Rename the selected source"), nullptr, "pencil", {{{"F2"}}}, ActionNeed::page},
    {DeskAction::RemoveSource, thisPage, WORDS("Remove the selected source"), nullptr, "trash", {{{"Delete", true}}}, ActionNeed::page},
    {DeskAction::CopySourceReport, thisPage, WORDS("Copy the report of these sources"), nullptr, "doc.text", {{{"Shift+Y"}}}, ActionNeed::page},
    {DeskAction::ShowSourceStories, thisPage, WORDS("Show the stories of the selected source"), nullptr, "list.bullet", {{{"Shift+O"}}}, ActionNeed::page},
    {DeskAction::ToggleOnlyApple, thisPage, WORDS("Keep only stories about Apple of the selected source, or all"), nullptr, "line.3.horizontal.decrease", {{{"Alt+A"}}}, ActionNeed::page},
    {DeskAction::ToggleNotInAll, thisPage, WORDS("Leave the selected source out of the list of all stories, or not"), nullptr, "eye.slash", {{{"Alt+X"}}}, ActionNeed::page},
    {DeskAction::SetSourceInterval, thisPage, WORDS("Choose how often the selected source is fetched"), nullptr, "clock", {{{"Alt+I"}}}, ActionNeed::page},
    {DeskAction::ExportMarkdown, thisPage, WORDS("Export this page as Markdown"), nullptr, "square.and.arrow.up", {{{"Shift+E"}}}, ActionNeed::page},
    {DeskAction::ExportJSON, thisPage, WORDS("Export this page as JSON"), nullptr, "square.and.arrow.up", {{{"Shift+J"}}}, ActionNeed::page},
    {DeskAction::RemoveCorrection, thisPage, WORDS("Take the selected correction back"), nullptr, "arrow.uturn.backward", {{{"Backspace", true}}}, ActionNeed::page},
    {DeskAction::RemoveKept, thisPage, WORDS("Remove the selected one from here"), nullptr, "trash", {{{"Ctrl+Backspace"}}}, ActionNeed::page},
    {DeskAction::RestoreKept, thisPage, WORDS("Restore the selected one"), nullptr, "arrow.uturn.backward", {{{"Shift+U"}}}, ActionNeed::page},
    {DeskAction::ToggleDone, thisPage, WORDS("Mark as checked, or as to check"), nullptr, "checkmark.circle", {{{"D"}}}, ActionNeed::page},
    {DeskAction::ShowEarlierText, thisPage, WORDS("Show what an earlier text of the page changed"), nullptr, "chevron.left", {{{"["}}}, ActionNeed::page},
    {DeskAction::ShowLaterText, thisPage, WORDS("Show what a later text of the page changed"), nullptr, "chevron.right", {{{"]"}}}, ActionNeed::page},
    {DeskAction::CompareWithEarlierText, thisPage, WORDS("Compare with an earlier text of the page"), nullptr, "chevron.left", {{{"{"}}}, ActionNeed::page},
    {DeskAction::CompareWithLaterText, thisPage, WORDS("Compare with a later text of the page"), nullptr, "chevron.right", {{{"}"}}}, ActionNeed::page},

    {DeskAction::NextStory, goTo, WORDS("Next story"), nullptr, "arrow.down", {{{"J"}, {"Down", true}}}},
    {DeskAction::PreviousStory, goTo, WORDS("Previous story"), nullptr, "arrow.up", {{{"K"}, {"Up", true}}}},
    {DeskAction::PageOn, goTo, WORDS("Page on, then next unread story"), nullptr, "arrow.down.to.line", {{{"Space", true}}}},
    {DeskAction::NextUnread, goTo, WORDS("Next unread story"), nullptr, "chevron.down", {{{"N"}}}},
    {DeskAction::PreviousUnread, goTo, WORDS("Previous unread story"), nullptr, "chevron.up", {{{"P"}}}},
    {DeskAction::GoToToday, goTo, WORDS("Today"), nullptr, "newspaper", {{{"G, T"}}}, ActionNeed::nothing, false},
    {DeskAction::GoToWire, goTo, WORDS("All stories"), nullptr, "tray", {{{"G, W"}}}, ActionNeed::nothing, false},
    {DeskAction::GoToUnread, goTo, WORDS("Unread stories"), nullptr, "circle.inset.filled", {{{"G, U"}}}, ActionNeed::nothing, false},
    {DeskAction::GoToSaved, goTo, WORDS("Saved stories"), nullptr, "bookmark", {{{"G, S"}}}, ActionNeed::nothing, false},
    {DeskAction::GoToTopStories, goTo, WORDS("Top stories"), nullptr, "flame", {{{"G, O"}}}, ActionNeed::nothing, false},
    {DeskAction::GoToSources, goTo, WORDS("Sources"), nullptr, "dot.radiowaves.left.and.right", {{{"G, F"}}}},
    {DeskAction::GoToCorrections, goTo, WORDS("Corrections"), nullptr, "checkmark.seal", {{{"G, C"}}}, ActionNeed::nothing, false},
    goToSidebarItem(DeskAction::SidebarItem1, WORDS("Sidebar item 1"), "Ctrl+1"),
    goToSidebarItem(DeskAction::SidebarItem2, WORDS("Sidebar item 2"), "Ctrl+2"),
    goToSidebarItem(DeskAction::SidebarItem3, WORDS("Sidebar item 3"), "Ctrl+3"),
    goToSidebarItem(DeskAction::SidebarItem4, WORDS("Sidebar item 4"), "Ctrl+4"),
    goToSidebarItem(DeskAction::SidebarItem5, WORDS("Sidebar item 5"), "Ctrl+5"),
    goToSidebarItem(DeskAction::SidebarItem6, WORDS("Sidebar item 6"), "Ctrl+6"),
    goToSidebarItem(DeskAction::SidebarItem7, WORDS("Sidebar item 7"), "Ctrl+7"),
    goToSidebarItem(DeskAction::SidebarItem8, WORDS("Sidebar item 8"), "Ctrl+8"),
    goToSidebarItem(DeskAction::SidebarItem9, WORDS("Sidebar item 9"), "Ctrl+9"),

    {DeskAction::NewNewsroom, work, WORDS("New newsroom"), nullptr, "plus", {{{"Ctrl+N"}}}},
    {DeskAction::AddSource, work, WORDS("Add a source"), nullptr, "plus", {{{"Ctrl+Shift+N"}}}},
    {DeskAction::ImportOutlines, work, WORDS("Import a list of feeds (OPML)"), nullptr, "square.and.arrow.down", {{{"Ctrl+Shift+I"}}}},
    {DeskAction::ExportOutlines, work, WORDS("Export sources (OPML)"), nullptr, "square.and.arrow.up", {{{"Ctrl+Shift+E"}}}},
    {DeskAction::Search, work, WORDS("Search stories"), nullptr, "magnifyingglass", {{{"Ctrl+F"}, {"/"}}}},
    {DeskAction::FindInPage, work, WORDS("Find in this page"), nullptr, "doc.text.magnifyingglass", {{{"Ctrl+G"}}}},
    {DeskAction::FindNext, work, WORDS("Next match in this page"), nullptr, "chevron.down", {{{"F3"}}}},
    {DeskAction::FindPrevious, work, WORDS("Previous match in this page"), nullptr, "chevron.up", {{{"Shift+F3"}}}},
    {DeskAction::Refresh, work, WORDS("Refresh all sources"), nullptr, "arrow.clockwise", {{{"R"}}}},
    {DeskAction::StopRefresh, work, WORDS("Stop refreshing"), nullptr, "xmark", {{{"Shift+R"}}}, ActionNeed::refreshing},
    {DeskAction::ShowArrivals, work, WORDS("Show new stories"), nullptr, "arrow.up", {{{"."}}}, ActionNeed::arrivals},
    {DeskAction::MarkAllRead, work, WORDS("Mark all stories in this list read"), nullptr, "checklist", {{{"Shift+M"}}}},
    {DeskAction::NewBeat, work, WORDS("New beat"), nullptr, "plus", {{{"Ctrl+Shift+B"}}}},
    {DeskAction::NewNote, work, WORDS("New note"), nullptr, "pencil", {{{"Ctrl+Alt+N"}}}},
    {DeskAction::SearchEverything, work, WORDS("Search everything that is kept"), nullptr, "magnifyingglass", {{{"Ctrl+Shift+F"}}}},
    {DeskAction::NewAlertRule, work, WORDS("New alert rule"), nullptr, "bell", {{{"Ctrl+Shift+A"}}}},
    {DeskAction::QuietForAnHour, work, WORDS("Quiet for an hour"), nullptr, "moon", {{{"Ctrl+Shift+Q"}}}},
    {DeskAction::QuietUntilMorning, work, WORDS("Quiet until tomorrow, 7:00"), nullptr, "moon", {{{"Ctrl+Shift+M"}}}},
    {DeskAction::EndQuiet, work, WORDS("End quiet"), nullptr, "bell", {{{"Ctrl+Shift+U"}}}},
    {DeskAction::ShowSettings, work, WORDS("Settings"), nullptr, "slider.horizontal.3", {{{"Ctrl+,"}}}},
    {DeskAction::Undo, work, WORDS("Undo the last mark"), nullptr, "arrow.uturn.backward", {{{"Ctrl+Z"}}}, ActionNeed::undoable},
    {DeskAction::Redo, work, WORDS("Redo"), nullptr, "arrow.uturn.forward", {{{"Ctrl+Shift+Z"}}}, ActionNeed::redoable},
    {DeskAction::ShowMenu, work, WORDS("Show the menu of what is selected"), nullptr, "ellipsis", {{{"Shift+F10"}, {"Menu"}}}, ActionNeed::nothing, false},
    {DeskAction::ShowPalette, work, WORDS("Find a command, place or story"), nullptr, "list.bullet", {{{"Ctrl+K"}}}, ActionNeed::nothing, false},
    {DeskAction::ShowKeys, work, WORDS("Show all keys"), nullptr, "keyboard", {{{"?"}}}},
    {DeskAction::OpenWindow, work, WORDS("Open this page in another window"), nullptr, "plus.square.on.square", {{{"Ctrl+Shift+O"}}}},
    {DeskAction::Quit, work, WORDS("Quit"), nullptr, "power", {{{"Ctrl+Q"}}}},

    {DeskAction::ToggleSidebar, view, WORDS("Show or hide the sidebar"), nullptr, "sidebar.left", {{{"Ctrl+\\"}}}},
    {DeskAction::SwitchPane, view, WORDS("To the page's pane, and back"), nullptr, "rectangle.split", {{{"F6"}}}},
    {DeskAction::ToggleClusters, view, WORDS("Show clusters in place of stories"), WORDS("Show stories in place of clusters"), "rectangle.stack", {{{"Shift+C"}}}, ActionNeed::clusters},
    {DeskAction::ToggleSetAside, view, WORDS("Show stories that are set aside"), WORDS("Hide stories that are set aside"), "eye", {{{"Shift+S"}}}, ActionNeed::storyList},
    {DeskAction::MoveReader, view, WORDS("Reader right, below or hidden"), nullptr, "sidebar.right", {{{"V"}}}},
    {DeskAction::TogglePictures, view, WORDS("Show pictures, fetched from their publishers"), WORDS("Hide pictures"), "photo", {{{"Shift+I"}}}},
    {DeskAction::UseSystemAppearance, view, WORDS("Light or dark as the desktop"), nullptr, "circle.lefthalf.filled", {{{"Ctrl+Shift+Y"}}}},
    {DeskAction::UseLightAppearance, view, WORDS("Always light"), nullptr, "sun.max", {{{"Ctrl+Shift+L"}}}},
    {DeskAction::UseDarkAppearance, view, WORDS("Always dark"), nullptr, "moon", {{{"Ctrl+Shift+D"}}}},
};
// clang-format on

#undef WORDS

}  // namespace

std::span<const ActionEntry> actionTable() { return kActions; }

const ActionEntry& entryOf(Action action) {
    for (const auto& entry : kActions) {
        if (entry.action == action) return entry;
    }
    throw std::logic_error("an action that the table lacks");
}

}  // namespace app
