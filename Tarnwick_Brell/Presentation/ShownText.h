#pragma once

#include <string_view>

#include <QString>

namespace app {

/// Text from the network in a form that can't rewrite what the screen shows, and that the
/// message bus takes: no control characters or direction overrides, white space collapsed, and
/// at most `longest` user-perceived characters, the last of them "…" when it was cut.
QString titleText(std::string_view text, int longest = 120);

/// The same, but line breaks stay.
QString bodyText(std::string_view text, int longest = 500);

/// How much of a headline a row shows, and of a text below it.
inline constexpr int kTitleCharacters = 300;
inline constexpr int kExcerptCharacters = 300;

/// The address as it stands, or nothing where it may not be opened.
QString openableLink(std::string_view address);

/// A label of the core's tables in the user's language; the core knows no translation. A word that
/// only the service knows is shown as titleText.
QString labelText(std::string_view label, int longest = 60);

/// As it stands; for what the desk itself made, such as ids.
QString plainText(std::string_view text);

}  // namespace app
