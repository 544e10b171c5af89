#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kit {

/// The part of a link of the redirect host that names the article: "CBMi…" of
/// ".../rss/articles/CBMi…?oc=5". Nothing for other addresses and for absurdly long ones.
std::optional<std::string> redirectIdentifier(std::string_view link);

/// The address in an identifier of the older form: URL-safe base64 of bytes that hold it as it is.
/// Identifiers of the newer form are opaque and hold none.
std::optional<std::string> addressInIdentifier(std::string_view identifier);

/// What a story's `articleLink` becomes for an address that an answer names: canonical, https.
/// Nothing when it can't be an article's: another scheme, a login in it, an address without a
/// name, a front page, the redirect host again or another of its owner's gates.
std::optional<std::string> articleLinkOf(std::string_view address);

}  // namespace kit
