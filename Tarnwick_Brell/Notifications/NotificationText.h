#pragma once

#include <string_view>

#include <QString>

namespace desk {

/// Text from the network in a form that the message bus takes and that can't rewrite what
/// the screen shows: no control characters or direction overrides, white space collapsed, and
/// at most `longest` user-perceived characters, the last of them "…" when it was cut.
QString titleText(std::string_view text, int longest = 120);

/// The same, but line breaks stay.
QString bodyText(std::string_view text, int longest = 500);

}  // namespace desk
