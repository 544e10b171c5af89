#pragma once

#include <QString>
#include <QVariantMap>

#include "NewsroomKit/Stories/Story.h"

/// A story for people and other programs.
namespace app {

/// What opens in the browser; empty when the link leads nowhere that may be opened.
QString browserLink(const kit::Story& story);
/// The same without a password that stands in it.
QString shownLink(const kit::Story& story);

/// “Headline”, Outlet, 16 May 2026, https://…
QString citationOf(const kit::Story& story);
/// The same in Markdown: “[Headline](https://…)”, Outlet, 16 May 2026
QString markdownCitationOf(const kit::Story& story);

/// The kind of data that names a story by its id, for drops within the window.
inline constexpr const char* kStoryMimeType = "application/x-tarnwick-brell-story";

/// What a story that is dragged out gives, by kind of data: its address, its citation in Markdown.
QVariantMap dragDataOf(const kit::Story& story);

}  // namespace app
