<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>EmptyText</name>
    <message numerus="yes">
        <source>%n hours</source>
        <translation>
            <numerusform>%n hour</numerusform>
            <numerusform>%n hours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PanelText</name>
    <message numerus="yes">
        <source>credited by %n outlets</source>
        <translation>
            <numerusform>credited by %n outlet</numerusform>
            <numerusform>credited by %n outlets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>“%1” or %n other terms</source>
        <translation>
            <numerusform>“%1” or %n other term</numerusform>
            <numerusform>“%1” or %n other terms</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <translation>
            <numerusform>%n more</numerusform>
            <numerusform>%n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ChangeText</name>
    <message numerus="yes">
        <source>%1 and %n others</source>
        <translation>
            <numerusform>%1 and %n other</numerusform>
            <numerusform>%1 and %n others</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimeText</name>
    <message numerus="yes">
        <source>in %n days</source>
        <translation>
            <numerusform>in %n day</numerusform>
            <numerusform>in %n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days ago</source>
        <translation>
            <numerusform>%n day ago</numerusform>
            <numerusform>%n days ago</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::BackendPanelModel</name>
    <message numerus="yes">
        <source>For %n models</source>
        <translation>
            <numerusform>For %n model</numerusform>
            <numerusform>For %n models</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BriefText</name>
    <message numerus="yes">
        <source>Apple posted %n times, last: %1</source>
        <translation>
            <numerusform>Apple posted once, last: %1</numerusform>
            <numerusform>Apple posted %n times, last: %1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::FilterOptions</name>
    <message numerus="yes">
        <source>%1 and %n more</source>
        <translation>
            <numerusform>%1 and %n more</numerusform>
            <numerusform>%1 and %n more</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ClaimsPanelModel</name>
    <message numerus="yes">
        <source>%n outlets</source>
        <translation>
            <numerusform>%n outlet</numerusform>
            <numerusform>%n outlets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::CountdownPanelModel</name>
    <message numerus="yes">
        <source>%n years</source>
        <translation>
            <numerusform>%n year</numerusform>
            <numerusform>%n years</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, in %n days</source>
        <translation>
            <numerusform>%1, in %n day</numerusform>
            <numerusform>%1, in %n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::CoveragePanelModel</name>
    <message numerus="yes">
        <source>first %n×</source>
        <translation>
            <numerusform>first %n×</numerusform>
            <numerusform>first %n×</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::QueryPanelModel</name>
    <message numerus="yes">
        <source>Last %n hours</source>
        <translation>
            <numerusform>Last hour</numerusform>
            <numerusform>Last %n hours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Last %n days</source>
        <translation>
            <numerusform>Last day</numerusform>
            <numerusform>Last %n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories match, the newest from %1.</source>
        <translation>
            <numerusform>%n story matches, from %1.</numerusform>
            <numerusform>%n stories match, the newest from %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ReaderModel</name>
    <message numerus="yes">
        <source>Also covered by %n other outlets</source>
        <translation>
            <numerusform>Also covered by %n other outlet</numerusform>
            <numerusform>Also covered by %n other outlets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RefreshStatus</name>
    <message numerus="yes">
        <source>Refreshing, %1 of %n sources</source>
        <translation>
            <numerusform>Refreshing, %1 of %n source</numerusform>
            <numerusform>Refreshing, %1 of %n sources</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SidebarModel</name>
    <message numerus="yes">
        <source>%n new</source>
        <translation>
            <numerusform>%n new</numerusform>
            <numerusform>%n new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %n unread</source>
        <translation>
            <numerusform>%1, %n unread</numerusform>
            <numerusform>%1, %n unread</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n problems</source>
        <translation>
            <numerusform>%n problem</numerusform>
            <numerusform>%n problems</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources</source>
        <translation>
            <numerusform>%n source</numerusform>
            <numerusform>%n sources</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>1 story, %n more share its link</source>
        <translation>
            <numerusform>1 story, %n more shares its link</numerusform>
            <numerusform>1 story, %n more share its link</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %n more share a link with one of them</source>
        <translation>
            <numerusform>%1, %n more shares a link with one of them</numerusform>
            <numerusform>%1, %n more share a link with one of them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1, %n failing</source>
        <translation>
            <numerusform>%1, %n failing</numerusform>
            <numerusform>%1, %n failing</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::StatusPanelModel</name>
    <message numerus="yes">
        <source>%n incidents in 14 days</source>
        <translation>
            <numerusform>%n incident in 14 days</numerusform>
            <numerusform>%n incidents in 14 days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::StreamPanelModel</name>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::TopStoriesPanelModel</name>
    <message numerus="yes">
        <source>%n outlets</source>
        <translation>
            <numerusform>%n outlet</numerusform>
            <numerusform>%n outlets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ClusterListModel</name>
    <message numerus="yes">
        <source>%n in the last hour</source>
        <translation>
            <numerusform>%n in the last hour</numerusform>
            <numerusform>%n in the last hour</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::TrayModel</name>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n services with problems</source>
        <translation>
            <numerusform>%n service with problems</numerusform>
            <numerusform>%n services with problems</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::StoryActions</name>
    <message numerus="yes">
        <source>%n stories marked as read.</source>
        <translation>
            <numerusform>%n story marked as read.</numerusform>
            <numerusform>%n stories marked as read.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Mark %n stories as read</source>
        <translation>
            <numerusform>Mark %n story as read</numerusform>
            <numerusform>Mark %n stories as read</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::StoryListController</name>
    <message numerus="yes">
        <source>%n stories are set aside.</source>
        <translation>
            <numerusform>%n story is set aside.</numerusform>
            <numerusform>%n stories are set aside.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n found</numerusform>
            <numerusform>%n found</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n unread</source>
        <translation>
            <numerusform>%n unread</numerusform>
            <numerusform>%n unread</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n new stories</source>
        <translation>
            <numerusform>%n new story</numerusform>
            <numerusform>%n new stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TrackerChangeText</name>
    <message numerus="yes">
        <source>%n in 30 days</source>
        <translation>
            <numerusform>%n in 30 days</numerusform>
            <numerusform>%n in 30 days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ChartsPageModel</name>
    <message numerus="yes">
        <source>up %n places</source>
        <translation>
            <numerusform>up %n place</numerusform>
            <numerusform>up %n places</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>down %n places</source>
        <translation>
            <numerusform>down %n place</numerusform>
            <numerusform>down %n places</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::MarketsPageModel</name>
    <message numerus="yes">
        <source>%n symbols</source>
        <translation>
            <numerusform>%n symbol</numerusform>
            <numerusform>%n symbols</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SigningDevicesSheetModel</name>
    <message numerus="yes">
        <source>%n chosen</source>
        <translation>
            <numerusform>%n chosen</numerusform>
            <numerusform>%n chosen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SigningPageModel</name>
    <message numerus="yes">
        <source>Devices: %n chosen</source>
        <translation>
            <numerusform>Devices: %n chosen</numerusform>
            <numerusform>Devices: %n chosen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n builds are signed</source>
        <translation>
            <numerusform>%n build is signed</numerusform>
            <numerusform>%n builds are signed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::UpdatesPageModel</name>
    <message numerus="yes">
        <source>For %n models</source>
        <translation>
            <numerusform>For %n model</numerusform>
            <numerusform>For %n models</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Came, for %n models</source>
        <translation>
            <numerusform>Came, for %n model</numerusform>
            <numerusform>Came, for %n models</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n offered</source>
        <translation>
            <numerusform>%n offered</numerusform>
            <numerusform>%n offered</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::NewNewsroomSheetModel</name>
    <message numerus="yes">
        <source>%n panels</source>
        <translation>
            <numerusform>%n panel</numerusform>
            <numerusform>%n panels</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::NewsroomModel</name>
    <message numerus="yes">
        <source>%n rows down</source>
        <translation>
            <numerusform>%n row down</numerusform>
            <numerusform>%n rows down</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n rows up</source>
        <translation>
            <numerusform>%n row up</numerusform>
            <numerusform>%n rows up</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n columns right</source>
        <translation>
            <numerusform>%n column right</numerusform>
            <numerusform>%n columns right</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n columns left</source>
        <translation>
            <numerusform>%n column left</numerusform>
            <numerusform>%n columns left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RehearsalModel</name>
    <message numerus="yes">
        <source>%n times</source>
        <translation>
            <numerusform>Once</numerusform>
            <numerusform>%n times</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::BeatPreviewModel</name>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Add it: %n more stories</source>
        <translation>
            <numerusform>Add it: %n more story</numerusform>
            <numerusform>Add it: %n more stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>“%1” alone brings %2 of %n stories.</source>
        <translation>
            <numerusform>“%1” alone brings %2 of %n story.</numerusform>
            <numerusform>“%1” alone brings %2 of %n stories.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories in two weeks</source>
        <translation>
            <numerusform>%n story in two weeks</numerusform>
            <numerusform>%n stories in two weeks</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>LibraryText</name>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n saved</source>
        <translation>
            <numerusform>%n saved</numerusform>
            <numerusform>%n saved</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n newsrooms</source>
        <translation>
            <numerusform>%n newsroom</numerusform>
            <numerusform>%n newsrooms</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n beats</source>
        <translation>
            <numerusform>%n beat</numerusform>
            <numerusform>%n beats</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources of your own</source>
        <translation>
            <numerusform>%n source of your own</numerusform>
            <numerusform>%n sources of your own</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SettingFacts</name>
    <message numerus="yes">
        <source>%n matches in 14 days</source>
        <translation>
            <numerusform>%n match in 14 days</numerusform>
            <numerusform>%n matches in 14 days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source> · fetched %n times in 7 days</source>
        <translation>
            <numerusform> · fetched once in 7 days</numerusform>
            <numerusform> · fetched %n times in 7 days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources</source>
        <translation>
            <numerusform>%n source</numerusform>
            <numerusform>%n sources</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 · every %n minutes</source>
        <translation>
            <numerusform>%1 · every %n minute</numerusform>
            <numerusform>%1 · every %n minutes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::QueryCount</name>
    <message numerus="yes">
        <source>%n stories in %1 days</source>
        <translation>
            <numerusform>%n story in %1 days</numerusform>
            <numerusform>%n stories in %1 days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ArchivePageModel</name>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::EventsPageModel</name>
    <message numerus="yes">
        <source>%n years</source>
        <translation>
            <numerusform>%n year</numerusform>
            <numerusform>%n years</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories that day</source>
        <translation>
            <numerusform>%n story that day</numerusform>
            <numerusform>%n stories that day</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SoftwarePageModel</name>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::StatusPageModel</name>
    <message numerus="yes">
        <source>%n services without an incident that is known</source>
        <translation>
            <numerusform>%n service without an incident that is known</numerusform>
            <numerusform>%n services without an incident that is known</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n problems</source>
        <translation>
            <numerusform>%n problem</numerusform>
            <numerusform>%n problems</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n more services without an incident that is known</source>
        <translation>
            <numerusform>%n more service without an incident that is known</numerusform>
            <numerusform>%n more services without an incident that is known</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in 90 days</source>
        <translation>
            <numerusform>%n in 90 days</numerusform>
            <numerusform>%n in 90 days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::DeskWindows</name>
    <message numerus="yes">
        <source>%n windows are open, which is the most.</source>
        <translation>
            <numerusform>%n window is open, which is the most.</numerusform>
            <numerusform>%n windows are open, which is the most.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::BoardModel</name>
    <message numerus="yes">
        <source>and %n more problems</source>
        <translation>
            <numerusform>and %n more problem</numerusform>
            <numerusform>and %n more problems</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SourceTable</name>
    <message numerus="yes">
        <source>Fetched, %n stories</source>
        <translation>
            <numerusform>Fetched, %n story</numerusform>
            <numerusform>Fetched, %n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n fetches failed</source>
        <translation>
            <numerusform>%1 of %n fetch failed</numerusform>
            <numerusform>%1 of %n fetches failed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n times until %2: %1</source>
        <translation>
            <numerusform>Once at %2: %1</numerusform>
            <numerusform>%n times until %2: %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources</source>
        <translation>
            <numerusform>%n source</numerusform>
            <numerusform>%n sources</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Every %n minutes</source>
        <translation>
            <numerusform>Every minute</numerusform>
            <numerusform>Every %n minutes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Every %n hours</source>
        <translation>
            <numerusform>Every hour</numerusform>
            <numerusform>Every %n hours</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n fetches</source>
        <translation>
            <numerusform>%1: %n fetch</numerusform>
            <numerusform>%1: %n fetches</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>, %n new stories</source>
        <translation>
            <numerusform>, %n new story</numerusform>
            <numerusform>, %n new stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::AddSourceSheetModel</name>
    <message numerus="yes">
        <source>A page, it names %n feeds</source>
        <translation>
            <numerusform>A page, it names %n feed</numerusform>
            <numerusform>A page, it names %n feeds</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>A feed with %n stories</source>
        <translation>
            <numerusform>A feed with %n story</numerusform>
            <numerusform>A feed with %n stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ImportOutlinesSheetModel</name>
    <message numerus="yes">
        <source>Import %n sources</source>
        <translation>
            <numerusform>Import %n source</numerusform>
            <numerusform>Import %n sources</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources have been added.</source>
        <translation>
            <numerusform>%n source has been added.</numerusform>
            <numerusform>%n sources have been added.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ExportOutlinesSheetModel</name>
    <message numerus="yes">
        <source>%n sources</source>
        <translation>
            <numerusform>%n source</numerusform>
            <numerusform>%n sources</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Keep %n addresses that carry a password or key</source>
        <translation>
            <numerusform>Keep one address that carries a password or key</numerusform>
            <numerusform>Keep %n addresses that carry a password or key</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n sources have been exported to %1.</source>
        <translation>
            <numerusform>%n source has been exported to %1.</numerusform>
            <numerusform>%n sources have been exported to %1.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RacesPageModel</name>
    <message numerus="yes">
        <source>%n subjects</source>
        <translation>
            <numerusform>%n subject</numerusform>
            <numerusform>%n subjects</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>of %n subjects that both covered</source>
        <translation>
            <numerusform>of %n subject that both covered</numerusform>
            <numerusform>of %n subjects that both covered</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::LedgerPageModel</name>
    <message numerus="yes">
        <source>%n claims</source>
        <translation>
            <numerusform>%n claim</numerusform>
            <numerusform>%n claims</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::TopStoriesPageModel</name>
    <message numerus="yes">
        <source>%n outlets</source>
        <translation>
            <numerusform>%n outlet</numerusform>
            <numerusform>%n outlets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n in the last hour</source>
        <translation>
            <numerusform>%n in the last hour</numerusform>
            <numerusform>%n in the last hour</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n subjects of 48 h, %1</source>
        <translation>
            <numerusform>%n subject of 48 h, %1</numerusform>
            <numerusform>%n subjects of 48 h, %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n followed</source>
        <translation>
            <numerusform>%n followed</numerusform>
            <numerusform>%n followed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>first %n times</source>
        <translation>
            <numerusform>first once</numerusform>
            <numerusform>first %n times</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n others</source>
        <translation>
            <numerusform>%n other</numerusform>
            <numerusform>%n others</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimelineRows</name>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n claims</source>
        <translation>
            <numerusform>%n claim</numerusform>
            <numerusform>%n claims</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n confirmed</source>
        <translation>
            <numerusform>%n confirmed</numerusform>
            <numerusform>%n confirmed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n denied</source>
        <translation>
            <numerusform>%n denied</numerusform>
            <numerusform>%n denied</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>TimelineWords</name>
    <message numerus="yes">
        <source>%n days</source>
        <translation>
            <numerusform>%n day</numerusform>
            <numerusform>%n days</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n outlets</source>
        <translation>
            <numerusform>%n outlet</numerusform>
            <numerusform>%n outlets</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>first of %n</source>
        <translation>
            <numerusform>first of %n</numerusform>
            <numerusform>first of %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::CoverageModel</name>
    <message numerus="yes">
        <source>%1, %n of them here</source>
        <translation>
            <numerusform>%1, %n of them here</numerusform>
            <numerusform>%1, %n of them here</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Covered by %n outlets</source>
        <translation>
            <numerusform>Covered by %n outlet</numerusform>
            <numerusform>Covered by %n outlets</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::CorrectionSheetModel</name>
    <message numerus="yes">
        <source>It stands with %n other stories that tell the same news.</source>
        <translation>
            <numerusform>It stands with %n other story that tells the same news.</numerusform>
            <numerusform>It stands with %n other stories that tell the same news.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::CorrectionsPageModel</name>
    <message numerus="yes">
        <source>%1, and %n more</source>
        <translation>
            <numerusform>%1, and %n more</numerusform>
            <numerusform>%1, and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n corrections</source>
        <translation>
            <numerusform>%n correction</numerusform>
            <numerusform>%n corrections</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ActivityText</name>
    <message numerus="yes">
        <source>%n devices</source>
        <translation>
            <numerusform>%n device</numerusform>
            <numerusform>%n devices</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ActivityPageModel</name>
    <message numerus="yes">
        <source>%n more by your rules</source>
        <translation>
            <numerusform>%n more by your rules</numerusform>
            <numerusform>%n more by your rules</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n entry</numerusform>
            <numerusform>%n entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n since your last look</source>
        <translation>
            <numerusform>%n since your last look</numerusform>
            <numerusform>%n since your last look</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 to %2, %3 of %n stories share its words</source>
        <translation>
            <numerusform>%1 to %2, %3 of %n story shares its words</numerusform>
            <numerusform>%1 to %2, %3 of %n stories share its words</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CourtLineText</name>
    <message numerus="yes">
        <source>%n new</source>
        <translation>
            <numerusform>%n new</numerusform>
            <numerusform>%n new</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n routine entries are left out.</source>
        <translation>
            <numerusform>%n routine entry is left out.</numerusform>
            <numerusform>%n routine entries are left out.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RecordsPageModel</name>
    <message numerus="yes">
        <source>And %n more.</source>
        <translation>
            <numerusform>And %n more.</numerusform>
            <numerusform>And %n more.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::BackendPageModel</name>
    <message numerus="yes">
        <source>%n files</source>
        <translation>
            <numerusform>%n file</numerusform>
            <numerusform>%n files</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n findings</source>
        <translation>
            <numerusform>%n finding</numerusform>
            <numerusform>%n findings</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BackendRows</name>
    <message numerus="yes">
        <source>%n entries</source>
        <translation>
            <numerusform>%n entry</numerusform>
            <numerusform>%n entries</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The file is asked for every %n minutes.</source>
        <translation>
            <numerusform>The file is asked for every minute.</numerusform>
            <numerusform>The file is asked for every %n minutes.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::AlertHistorySheetModel</name>
    <message numerus="yes">
        <source>Nothing was told in the last %n days.</source>
        <translation>
            <numerusform>Nothing was told in the last %n day.</numerusform>
            <numerusform>Nothing was told in the last %n days.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>The last %n of them</source>
        <translation>
            <numerusform>The last %n of them</numerusform>
            <numerusform>The last %n of them</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Kept for %n days</source>
        <translation>
            <numerusform>Kept for %n day</numerusform>
            <numerusform>Kept for %n days</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PagesPageRows</name>
    <message numerus="yes">
        <source>%n edits</source>
        <translation>
            <numerusform>%n edit</numerusform>
            <numerusform>%n edits</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::PagesPageModel</name>
</context>
<context>
    <name>MoveTexts</name>
    <message numerus="yes">
        <source>and %n more, first %1</source>
        <translation>
            <numerusform>and %n more, first %1</numerusform>
            <numerusform>and %n more, first %1</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories of that day name %1, none gives a reason for the shares.</source>
        <translation>
            <numerusform>%n story of that day names %1, without a reason for the shares.</numerusform>
            <numerusform>%n stories of that day name %1, none gives a reason for the shares.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ClipsPageModel</name>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::NotesPageModel</name>
    <message numerus="yes">
        <source>%n notes</source>
        <translation>
            <numerusform>%n note</numerusform>
            <numerusform>%n notes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ProjectPageModel</name>
    <message numerus="yes">
        <source>%n clips</source>
        <translation>
            <numerusform>%n clip</numerusform>
            <numerusform>%n clips</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n happenings</source>
        <translation>
            <numerusform>%n happening</numerusform>
            <numerusform>%n happenings</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n notes</source>
        <translation>
            <numerusform>%n note</numerusform>
            <numerusform>%n notes</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n stories</source>
        <translation>
            <numerusform>%n story</numerusform>
            <numerusform>%n stories</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::ProjectsPageModel</name>
    <message numerus="yes">
        <source>%n projects</source>
        <translation>
            <numerusform>%n project</numerusform>
            <numerusform>%n projects</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::RemovedPageModel</name>
    <message numerus="yes">
        <source>%n removed</source>
        <translation>
            <numerusform>%n removed</numerusform>
            <numerusform>%n removed</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>app::SearchPageModel</name>
    <message numerus="yes">
        <source>%n found</source>
        <translation>
            <numerusform>%n found</numerusform>
            <numerusform>%n found</numerusform>
        </translation>
    </message>
</context>
</TS>
