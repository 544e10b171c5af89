// The effects of the window's actions.
#include <QCoreApplication>

#include "Tarnwick_Brell/Models/Alerts/QuietActions.h"
#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/NotesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/TimelineSubject.h"
#include "Tarnwick_Brell/Models/Settings/SettingChange.h"
#include "Tarnwick_Brell/Models/Stories/CorrectionSteps.h"
#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Models/Window/WindowModel.h"
#include "Tarnwick_Brell/Storage/Settings/SettingKey.h"

namespace app {

using Kind = Destination::Kind;

void WindowModel::connectActions() {
    connect(&actions_, &ActionModel::triggered, this, &WindowModel::execute);
    connect(&palette_, &PaletteModel::actionWanted, &actions_, &ActionModel::trigger);
    connect(&palette_, &PaletteModel::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(&palette_, &PaletteModel::storyWanted, this, &WindowModel::openStory);
    connect(&palette_, &PaletteModel::searchWanted, this, [this](const QString& text) {
        searchFor(text);
        emit viewActionWanted(DeskAction::Search);
    });
    connect(&selected_, &SelectedStory::rowChanged, this, &WindowModel::updateActions);
    connect(&stores_.news, &NewsDesk::undoChanged, this, &WindowModel::updateActions);
    connect(&stores_.undo, &UndoStack::changed, this, &WindowModel::updateActions);
    const auto* reader = selected_.reader();
    connect(reader, &ReaderModel::marksChanged, this, &WindowModel::updateActions);
    connect(reader, &ReaderModel::storyChanged, this, &WindowModel::updateActions);
    connect(&storyList_, &StoryListController::filterChanged, this, &WindowModel::updateActions);
    connect(storyList_.list(), &StoryListModel::arrivalsChanged, this, &WindowModel::updateActions);
    connect(&refresh_, &RefreshStatus::changed, this, &WindowModel::updateActions);
    connect(&appearance_, &Appearance::changed, this, &WindowModel::updateActions);
    connect(&editor_, &NewsroomEditor::changed, this, &WindowModel::updateActions);
    connect(&editor_, &NewsroomEditor::noticed, this, &WindowModel::noticed);
    connect(&newsroomActions_, &NewsroomActions::noticed, this, &WindowModel::noticed);
    connect(&newsroomActions_, &NewsroomActions::sheetWanted, this, &WindowModel::showSheet);
    connect(&newsroomActions_, &NewsroomActions::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
    connect(&editor_, &NewsroomEditor::sheetWanted, this, &WindowModel::showSheet);
    connect(&beatActions_, &BeatActions::sheetWanted, this, &WindowModel::showSheet);
    connect(&beatActions_, &BeatActions::placeWanted, this,
            qOverload<const QString&>(&WindowModel::open));
}

/// Which actions are available depends on what is shown.
void WindowModel::updateActions() {
    const bool isList = place_.isStoryList();
    actions_.setProperty("hasStory", isList && selected_.hasStory());
    actions_.setProperty("hasNewsroom", editor_.canEdit());
    actions_.setProperty("isEditing", editor_.isEditing());
    actions_.setProperty("storyIsSaved", selected_.reader()->isSaved());
    actions_.setProperty("storyIsRead", selected_.reader()->isRead());
    actions_.setProperty("isStoryList", isList);
    actions_.setProperty("hasClusters", isList || (page_ && page_->hasClusters()));
    actions_.setProperty("showsClusters", state_.isClustered(place_.key()));
    actions_.setProperty("showsSetAside", storyList_.showsSetAside());
    actions_.setProperty("showsPictures", appearance_.showsPictures());
    actions_.setProperty("isRefreshing", refresh_.isRefreshing());
    actions_.setProperty("hasArrivals", isList && storyList_.list()->arrivals() > 0);
    actions_.setProperty("canUndo", stores_.undo.canUndo() || stores_.news.canUndo());
    actions_.setProperty("canRedo", stores_.undo.canRedo());
    actions_.setProperty("undoText", stores_.undo.undoText());
    actions_.setProperty("redoText", stores_.undo.redoText());
    actions_.setProperty("isLive", refresh_.isLive());
    QSet<int> ofPage;
    for (const auto& entry : actionTable()) {
        const bool isForPages = entry.need == ActionNeed::page || entry.need == ActionNeed::story;
        if (page_ && isForPages && page_->offers(entry.action)) ofPage << entry.action;
    }
    actions_.setOfPage(ofPage);
}

/// Without a step, the last mark of an earlier run or of another program is undone.
void WindowModel::undoLast() {
    if (stores_.undo.undo() || !stores_.news.undoMarks()) return;
    selected_.stopReading();
}

void WindowModel::step(int by) { clusters_.isShown() ? clusters_.step(by) : selected_.step(by); }

void WindowModel::setClustered(bool clustered) {
    state_.setClustered(place_.key(), clustered);
    if (page_) {
        page_->setClustered(clustered);
    } else {
        clusters_.setWanted(clustered);
    }
    updateActions();
}

void WindowModel::goTo(const std::optional<Destination>& place) {
    if (place) open(*place);
}

/// Shows the reader too, because it contains the trace.
void WindowModel::traceStory() {
    if (state_.reader() == WindowState::Hidden) state_.setReader(WindowState::Right);
    storyActions_.traceStory();
}

void WindowModel::splitStory() {
    const auto problem = splitOff(stores_, selected_.reader()->storyID().toStdString());
    if (!problem.isEmpty()) emit noticed(problem);
}

void WindowModel::openTimelineOf(const QString& storyID) {
    open(TimelineSubject::ofNews(storyID.toStdString()).place());
}

void WindowModel::correctStory(const QString& storyID) {
    showSheet(QStringLiteral("correct:") + storyID);
}

void WindowModel::togglePictures() {
    const auto& key = *SettingKey::named(SettingKey::kPictures);
    const auto problem =
        changeSetting(stores_, key, appearance_.showsPictures() ? "false" : "true");
    if (!problem.isEmpty()) emit noticed(problem);
}

void WindowModel::writeNote() {
    if (state_.reader() == WindowState::Hidden) state_.setReader(WindowState::Right);
    keeping_.write();
}

/// The story of the list, or what the page has chosen.
void WindowModel::putIntoProject() {
    if (page_) return page_->perform(DeskAction::PutIntoProject);
    showSheet(QStringLiteral("put-into-project:story:") + selected_.reader()->storyID());
}

void WindowModel::copyCitation() {
    if (page_) return page_->perform(DeskAction::CopyCitation);
    if (!keeping_.copySelection()) storyActions_.copyCitation();
}

void WindowModel::execute(Action action) {
    switch (action) {
        case DeskAction::ToggleSaved: storyActions_.toggleSaved(); break;
        case DeskAction::ToggleRead: storyActions_.toggleRead(); break;
        case DeskAction::OpenInBrowser: storyActions_.openInBrowser(); break;
        case DeskAction::CopyLink: storyActions_.copyLink(); break;
        case DeskAction::CopyCitation: copyCitation(); break;
        case DeskAction::TraceStory: traceStory(); break;
        case DeskAction::FollowStory:
            showSheet(QStringLiteral("beat-from-story:") + selected_.reader()->storyID());
            break;
        case DeskAction::AlertOnStory:
            showSheet(QStringLiteral("alert-from-story:") + selected_.reader()->storyID());
            break;
        case DeskAction::ShowTimeline: openTimelineOf(selected_.reader()->storyID()); break;
        case DeskAction::FindCoverage:
            if (state_.reader() == WindowState::Hidden) state_.setReader(WindowState::Right);
            selected_.reader()->findCoverage();
            break;
        case DeskAction::ReadArticle:
            if (state_.reader() == WindowState::Hidden) state_.setReader(WindowState::Right);
            selected_.reader()->toggleArticle();
            break;
        case DeskAction::ClipStory: keeping_.clip(); break;
        case DeskAction::WriteNote: writeNote(); break;
        case DeskAction::PutIntoProject: putIntoProject(); break;
        case DeskAction::CorrectStory: correctStory(selected_.reader()->storyID()); break;
        case DeskAction::SplitStory: splitStory(); break;
        case DeskAction::PrintStory: emit printWanted(); break;
        case DeskAction::SaveStoryPDF: storyActions_.savePDF(); break;
        case DeskAction::NextStory:
        case DeskAction::PreviousStory:
            if (page_) {
                emit viewActionWanted(action);
            } else {
                step(action == DeskAction::NextStory ? 1 : -1);
            }
            break;
        case DeskAction::FindInPage:
            find_.open();
            emit viewActionWanted(action);
            break;
        case DeskAction::FindNext: findNext(1); break;
        case DeskAction::FindPrevious: findNext(-1); break;
        case DeskAction::EditNewsroom: editor_.isEditing() ? editor_.end() : editor_.begin(); break;
        case DeskAction::AddPanel:
            editor_.begin();
            editor_.setPicking(true);
            break;
        case DeskAction::ShowPanelOptions: editor_.openOptions(editor_.selected()); break;
        case DeskAction::DuplicatePanel: editor_.duplicateSelected(); break;
        case DeskAction::NewNewsroom: showSheet(QStringLiteral("new-newsroom")); break;
        case DeskAction::ShowBoard: board_.show(place_.id.toStdString()); break;
        case DeskAction::AddSource: showSheet(QStringLiteral("add-source")); break;
        case DeskAction::ImportOutlines: showSheet(QStringLiteral("import-outlines")); break;
        case DeskAction::ExportOutlines: showSheet(QStringLiteral("export-outlines")); break;
        case DeskAction::GiveBackEdits: editor_.giveBack(); break;
        case DeskAction::CopyRow:
        case DeskAction::GoLive:
        case DeskAction::SaveCalendar:
        case DeskAction::FetchSource:
        case DeskAction::SwitchSource:
        case DeskAction::RenameSource:
        case DeskAction::RemoveSource:
        case DeskAction::CopySourceReport:
        case DeskAction::ShowSourceStories:
        case DeskAction::ToggleOnlyApple:
        case DeskAction::ToggleNotInAll:
        case DeskAction::SetSourceInterval:
        case DeskAction::ExportMarkdown:
        case DeskAction::ExportJSON:
        case DeskAction::RemoveCorrection:
        case DeskAction::RemoveKept:
        case DeskAction::RestoreKept:
        case DeskAction::ToggleDone:
        case DeskAction::ShowEarlierText:
        case DeskAction::ShowLaterText:
        case DeskAction::CompareWithEarlierText:
        case DeskAction::CompareWithLaterText:
            if (page_) page_->perform(action);
            break;
        case DeskAction::EndLive: refresh_.endLive(); break;
        case DeskAction::NextUnread: selected_.stepUnread(1); break;
        case DeskAction::PreviousUnread: selected_.stepUnread(-1); break;
        case DeskAction::GoToToday: open(home()); break;
        case DeskAction::GoToWire: open(Destination{Kind::all, {}}); break;
        case DeskAction::GoToUnread: open(Destination{Kind::unread, {}}); break;
        case DeskAction::GoToSaved: open(Destination{Kind::saved, {}}); break;
        case DeskAction::GoToTopStories: open(Destination{Kind::topStories, {}}); break;
        case DeskAction::GoToSources:
            open(Destination{Kind::page, QStringLiteral("sources")});
            break;
        case DeskAction::GoToCorrections:
            open(Destination{Kind::page, QStringLiteral("corrections")});
            break;
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
        case DeskAction::StopRefresh: refresh_.stop(); break;
        case DeskAction::ShowArrivals: storyList_.showArrivals(); break;
        case DeskAction::MarkAllRead: storyActions_.markAllRead(); break;
        case DeskAction::Undo: undoLast(); break;
        case DeskAction::Redo: stores_.undo.redo(); break;
        case DeskAction::OpenWindow: emit windowWanted(place_.key()); break;
        case DeskAction::ShowSettings: showSheet(QStringLiteral("settings")); break;
        case DeskAction::NewBeat: showSheet(QStringLiteral("beat:")); break;
        case DeskAction::NewNote:
            open(LibraryPlace{LibraryPlace::Page::notes, NotesPageModel::kNewNote}.destination());
            break;
        case DeskAction::SearchEverything:
            open(LibraryPlace{LibraryPlace::Page::search, {}}.destination());
            emit viewActionWanted(DeskAction::Search);
            break;
        case DeskAction::NewAlertRule: showSheet(QStringLiteral("alert-rule:")); break;
        case DeskAction::QuietForAnHour: emit noticed(quietForAnHour(stores_)); break;
        case DeskAction::QuietUntilMorning: emit noticed(quietUntilMorning(stores_)); break;
        case DeskAction::EndQuiet: emit noticed(endQuiet(stores_)); break;
        case DeskAction::Quit: QCoreApplication::quit(); break;
        case DeskAction::ToggleSidebar: state_.setSidebarShown(!state_.sidebarShown()); break;
        case DeskAction::ToggleClusters: setClustered(!state_.isClustered(place_.key())); break;
        case DeskAction::ToggleSetAside:
            storyList_.setShowsSetAside(!storyList_.showsSetAside());
            break;
        case DeskAction::MoveReader: state_.moveReader(); break;
        case DeskAction::TogglePictures: togglePictures(); break;
        case DeskAction::UseSystemAppearance: appearance_.setChoice(Appearance::System); break;
        case DeskAction::UseLightAppearance: appearance_.setChoice(Appearance::Light); break;
        case DeskAction::UseDarkAppearance: appearance_.setChoice(Appearance::Dark); break;
        case DeskAction::PageOn:
        case DeskAction::Search:
        case DeskAction::SwitchPane:
        case DeskAction::ShowMenu:
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
            case Kind::page:
                kind = LibraryPlace::of(place)                  ? tr("Library")
                       : place.id == QStringLiteral("activity") ? tr("Wire")
                                                                : tr("Archive");
                break;
            default: kind = tr("Wire"); break;
        }
        places.push_back({place.key(), title, symbol, kind});
    }
    return places;
}

}  // namespace app
