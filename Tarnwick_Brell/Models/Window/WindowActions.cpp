// What the window's actions do.
#include <QCoreApplication>

#include "Tarnwick_Brell/Models/Window/WindowModel.h"

namespace app {

using Kind = Destination::Kind;

void WindowModel::connectActions() {
    connect(&actions_, &ActionModel::triggered, this, &WindowModel::carryOut);
    connect(&palette_, &PaletteModel::actionWanted, &actions_, &ActionModel::trigger);
    connect(&palette_, &PaletteModel::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(&palette_, &PaletteModel::storyWanted, this, &WindowModel::openStory);
    connect(&palette_, &PaletteModel::searchWanted, this, [this](const QString& text) {
        searchFor(text);
        emit viewActionWanted(DeskAction::Search);
    });
    connect(&wire_, &WirePage::currentRowChanged, this, &WindowModel::lookAtStory);
    connect(&wire_, &WirePage::undoChanged, this, &WindowModel::lookAtStory);
    connect(wire_.reader(), &ReaderModel::marksChanged, this, &WindowModel::lookAtStory);
    connect(wire_.reader(), &ReaderModel::storyChanged, this, &WindowModel::lookAtStory);
    connect(wire_.list(), &StoryListModel::arrivalsChanged, this, &WindowModel::lookAtStory);
}

/// What can be done depends on what is shown.
void WindowModel::lookAtStory() {
    const bool isList = place_.isStoryList();
    actions_.setProperty("hasStory", isList && wire_.hasStory());
    actions_.setProperty("storyIsSaved", wire_.reader()->isSaved());
    actions_.setProperty("storyIsRead", wire_.reader()->isRead());
    actions_.setProperty("hasArrivals", isList && wire_.list()->arrivals() > 0);
    actions_.setProperty("canUndo", wire_.canUndo());
}

void WindowModel::goTo(const std::optional<Destination>& place) {
    if (place) open(*place);
}

/// The trace stands in the reader, so whoever asks for it wants that too.
void WindowModel::traceStory() {
    if (state_.reader() == WindowState::Hidden) state_.setReader(WindowState::Right);
    wire_.traceStory();
}

void WindowModel::carryOut(Action action) {
    switch (action) {
        case DeskAction::ToggleSaved: wire_.toggleSaved(); break;
        case DeskAction::ToggleRead: wire_.toggleRead(); break;
        case DeskAction::OpenInBrowser: wire_.openInBrowser(); break;
        case DeskAction::CopyLink: wire_.copyLink(); break;
        case DeskAction::CopyCitation: wire_.copyCitation(); break;
        case DeskAction::TraceStory: traceStory(); break;
        case DeskAction::NextStory: wire_.step(1); break;
        case DeskAction::PreviousStory: wire_.step(-1); break;
        case DeskAction::NextUnread: wire_.stepUnread(1); break;
        case DeskAction::PreviousUnread: wire_.stepUnread(-1); break;
        case DeskAction::GoToToday: open(home()); break;
        case DeskAction::GoToWire: open(Destination{Kind::all, {}}); break;
        case DeskAction::GoToUnread: open(Destination{Kind::unread, {}}); break;
        case DeskAction::GoToSaved: open(Destination{Kind::saved, {}}); break;
        case DeskAction::GoToTopStories: open(Destination{Kind::topStories, {}}); break;
        case DeskAction::SidebarItem1:
        case DeskAction::SidebarItem2:
        case DeskAction::SidebarItem3:
        case DeskAction::SidebarItem4:
        case DeskAction::SidebarItem5:
        case DeskAction::SidebarItem6:
        case DeskAction::SidebarItem7:
        case DeskAction::SidebarItem8:
        case DeskAction::SidebarItem9:
            goTo(sidebar_.item(action - DeskAction::SidebarItem1 + 1));
            break;
        case DeskAction::Refresh: refresh_.refresh(); break;
        case DeskAction::ShowArrivals: wire_.showArrivals(); break;
        case DeskAction::MarkAllRead: wire_.markAllRead(); break;
        case DeskAction::Undo: wire_.undo(); break;
        case DeskAction::Quit: QCoreApplication::quit(); break;
        case DeskAction::ToggleSidebar: state_.setSidebarShown(!state_.sidebarShown()); break;
        case DeskAction::MoveReader: state_.moveReader(); break;
        case DeskAction::UseSystemAppearance: appearance_.setChoice(Appearance::System); break;
        case DeskAction::UseLightAppearance: appearance_.setChoice(Appearance::Light); break;
        case DeskAction::UseDarkAppearance: appearance_.setChoice(Appearance::Dark); break;
        case DeskAction::PageOn:
        case DeskAction::Search:
        case DeskAction::ShowPalette:
        case DeskAction::ShowKeys: emit viewActionWanted(action); break;
    }
}

std::vector<PalettePlace> WindowModel::palettePlaces() const {
    std::vector<PalettePlace> places;
    for (const auto& [place, title, symbol] : sidebar_.destinations()) {
        QString kind;
        switch (place.kind) {
            case Kind::newsroom: kind = tr("Newsroom"); break;
            case Kind::beat: kind = tr("Beat"); break;
            case Kind::source: kind = tr("Source"); break;
            case Kind::tracker: kind = tr("Tracker"); break;
            default: kind = tr("Wire"); break;
        }
        places.push_back({place.key(), title, symbol, kind});
    }
    return places;
}

}  // namespace app
