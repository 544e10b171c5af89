#pragma once

#include <QObject>
#include <qqmlregistration.h>

/// What the user can do in the window, wherever it is asked for: menus, keys, the palette.
namespace app::DeskAction {

Q_NAMESPACE
QML_ELEMENT

enum Value {
    // This story
    ToggleSaved,
    ToggleRead,
    OpenInBrowser,
    CopyLink,
    CopyCitation,
    TraceStory,
    FollowStory,
    AlertOnStory,  ///< a rule on what its headline names
    ShowTimeline,
    FindCoverage,
    ReadArticle,
    ClipStory,  ///< the selected text, or its headline
    WriteNote,
    PutIntoProject,
    CorrectStory,
    SplitStory,
    PrintStory,
    SaveStoryPDF,
    // Go to
    NextStory,
    PreviousStory,
    PageOn,  ///< down the reader's page, then to the next unread story
    NextUnread,
    PreviousUnread,
    GoToToday,
    GoToWire,
    GoToUnread,
    GoToSaved,
    GoToTopStories,
    GoToSources,
    GoToCorrections,
    SidebarItem1,
    SidebarItem2,
    SidebarItem3,
    SidebarItem4,
    SidebarItem5,
    SidebarItem6,
    SidebarItem7,
    SidebarItem8,
    SidebarItem9,
    // This page
    EditNewsroom,
    AddPanel,
    ShowPanelOptions,
    DuplicatePanel,
    GiveBackEdits,
    ShowBoard,  ///< the newsroom on a display on the wall
    CopyRow,
    GoLive,
    EndLive,
    SaveCalendar,
    FetchSource,
    SwitchSource,
    RenameSource,
    RemoveSource,
    CopySourceReport,
    ShowSourceStories,
    ToggleOnlyApple,
    ToggleNotInAll,
    SetSourceInterval,
    ExportMarkdown,
    ExportJSON,
    RemoveCorrection,
    RemoveKept,  ///< a clip, a note, a project; out of a project
    RestoreKept,
    ToggleDone,
    ShowEarlierText,  ///< of the page that is followed
    ShowLaterText,
    CompareWithEarlierText,
    CompareWithLaterText,
    // Do
    NewNewsroom,
    AddSource,
    ImportOutlines,
    ExportOutlines,
    Search,
    FindInPage,
    FindNext,
    FindPrevious,
    Refresh,
    StopRefresh,
    ShowArrivals,
    MarkAllRead,
    NewBeat,
    NewNote,
    SearchEverything,
    NewAlertRule,
    QuietForAnHour,
    QuietUntilMorning,
    EndQuiet,
    ShowSettings,
    Undo,
    Redo,
    ShowMenu,  ///< of what is selected
    ShowPalette,
    ShowKeys,
    OpenWindow,
    Quit,
    // View
    ToggleSidebar,
    SwitchPane,      ///< from the list of a page to the pane beside it, and back
    ToggleClusters,  ///< stories or clusters
    ToggleSetAside,
    MoveReader,  ///< right, below, hidden, in turn
    TogglePictures,
    UseSystemAppearance,
    UseLightAppearance,
    UseDarkAppearance
};
Q_ENUM_NS(Value)

}  // namespace app::DeskAction

namespace app {

using Action = DeskAction::Value;

}  // namespace app
