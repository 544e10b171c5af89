#include "NewsroomKit/Addresses/URLRepair.h"

#include <unicode/idna.h>

#include <algorithm>
#include <memory>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {

namespace {

constexpr std::string_view kUnreservedMarks = "-._~";
constexpr std::string_view kSubDelimiters = "!$&'()*+,;=";

/// Appends `part`, escaping what is neither a letter, a digit, a sub-delimiter nor in `extra`.
void appendEscaped(std::string& out, std::string_view part, std::string_view extra) {
    constexpr char digits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < part.size(); ++i) {
        const char c = part[i];
        const bool escape = c == '%' && i + 2 < part.size() && hexValue(part[i + 1]) >= 0 &&
                            hexValue(part[i + 2]) >= 0;
        const bool allowed = isASCIIAlphanumeric(c) ||
                             kUnreservedMarks.find(c) != std::string_view::npos ||
                             kSubDelimiters.find(c) != std::string_view::npos ||
                             extra.find(c) != std::string_view::npos;
        if (escape || allowed) {
            out += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out += '%';
            out += digits[byte >> 4];
            out += digits[byte & 15];
        }
    }
}

std::optional<std::string> asciiHost(std::string_view host) {
    const bool ascii = std::all_of(host.begin(), host.end(),
                                   [](char c) { return static_cast<signed char>(c) >= 0; });
    if (ascii) return std::string(host);
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::IDNA> idna(
        icu::IDNA::createUTS46Instance(UIDNA_NONTRANSITIONAL_TO_ASCII, status));
    if (U_FAILURE(status)) return std::nullopt;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    icu::IDNAInfo info;
    idna->nameToASCII_UTF8(icu::StringPiece(host.data(), static_cast<int32_t>(host.size())), sink,
                           info, status);
    if (U_FAILURE(status) || info.hasErrors()) return std::nullopt;
    return result;
}

/// "user:secret@host:port", each part in its own alphabet.
bool appendAuthority(std::string& out, std::string_view authority) {
    if (const auto at = authority.rfind('@'); at != std::string_view::npos) {
        appendEscaped(out, authority.substr(0, at), ":");
        out += '@';
        authority.remove_prefix(at + 1);
    }
    const auto bracket = authority.rfind(']');
    const auto colon = authority.rfind(':');
    const bool hasPort =
        colon != std::string_view::npos && (bracket == std::string_view::npos || colon > bracket);
    const auto host = asciiHost(authority.substr(0, hasPort ? colon : authority.size()));
    if (!host) return false;
    out += *host;
    if (hasPort) out += authority.substr(colon);
    return true;
}

}  // namespace

std::optional<std::string> strictAddress(std::string_view text) {
    const auto schemeEnd = text.find("://");
    if (schemeEnd == std::string_view::npos) return std::nullopt;
    std::string out(text.substr(0, schemeEnd + 3));
    out.reserve(text.size() + 16);
    text.remove_prefix(schemeEnd + 3);

    const auto authorityEnd = std::min(text.find_first_of("/?#"), text.size());
    if (!appendAuthority(out, text.substr(0, authorityEnd))) return std::nullopt;
    text.remove_prefix(authorityEnd);

    const auto hash = text.find('#');
    const auto beforeFragment = text.substr(0, hash);
    const auto question = beforeFragment.find('?');
    appendEscaped(out, beforeFragment.substr(0, question), ":@/");
    if (question != std::string_view::npos) {
        out += '?';
        appendEscaped(out, beforeFragment.substr(question + 1), ":@/?");
    }
    if (hash != std::string_view::npos) {
        out += '#';
        appendEscaped(out, text.substr(hash + 1), ":@/?");
    }
    return out;
}

}  // namespace kit
