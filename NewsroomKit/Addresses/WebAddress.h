#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// A web address taken apart. Path, query and fragment keep their percent-encoding as
/// written; characters that a strict parser refuses are escaped on the way in.
struct WebAddress {
    /// One "name=value" of a query. `name` and `value` are percent-decoded for comparing,
    /// `raw` is what stands in the address.
    struct QueryItem {
        std::string name;
        std::string value;
        std::string raw;
    };

    std::string scheme;                   ///< lower case
    std::optional<std::string> userInfo;  ///< before the "@"
    std::string host;                     ///< lower case ASCII; IPv6 keeps its brackets
    std::optional<unsigned> port;
    std::string path;
    std::optional<std::string> query;     ///< without "?"
    std::optional<std::string> fragment;  ///< without "#"

    /// Nothing when the text is not an address with a scheme and a host. A host in another
    /// script is brought to its ASCII form; one with "%" or of over 1,000 bytes is no host.
    static std::optional<WebAddress> parse(std::string_view text);

    bool isHTTP() const { return scheme == "http" || scheme == "https"; }

    /// Pieces of the path between "/", empty ones dropped, still percent-encoded.
    std::vector<std::string> pathPieces() const;

    /// Items of the query in order, empty ones dropped.
    std::vector<QueryItem> queryItems() const { return queryItems(query.value_or("")); }
    static std::vector<QueryItem> queryItems(std::string_view query);

    std::string text() const;
};

/// Resolves `reference` against the page at `base`; absolute addresses stay. Nothing when the
/// result is not an address with a host.
std::optional<std::string> resolvedAddress(std::string_view base, std::string_view reference);

/// Whether the desktop may be asked to open an address: one of the web, with a host and without
/// control characters. Links come from the network, and whatever opens them would open files and
/// programs as well.
bool isOpenable(std::string_view address);

/// `host` is `domain` or one of its sub-hosts. Both in lower case.
bool isHostOrSubhost(std::string_view host, std::string_view domain);

/// Decodes "%41" and the like; malformed escapes stay.
std::string percentDecoded(std::string_view text);

}  // namespace kit
