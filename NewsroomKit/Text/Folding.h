#pragma once

#include <string>
#include <string_view>

namespace kit {

/// The text with differences of letter case, accents and character width removed, the
/// same under every locale: full case folding ("Straße" becomes "strasse"), canonical
/// decomposition with the combining marks of all scripts dropped, half- and full-width
/// forms made ordinary. Other compatibility characters (™, ½, ﷼) stay, apart from
/// ligatures that case folding itself spells out (ﬁ becomes "fi").
///
/// Hangul syllables and voiced kana (ガ, パ) count as single letters: they are always composed, so
/// that nothing matches a part of one.
///
/// Folding the first user-perceived characters of a text gives a prefix of the folded text.
/// Folding twice changes nothing. Invalid UTF-8 becomes U+FFFD.
std::string fold(std::string_view utf8);

/// fold, for callers who build a longer text.
void appendFolded(std::string_view utf8, std::string& out);

}  // namespace kit
