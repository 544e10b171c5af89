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

/// As it stands; for what the desk itself made, such as ids.
QString plainText(std::string_view text);

}  // namespace app
