#pragma once

#include <string>
#include <string_view>

namespace kit {

/// How far a link to a host can be a credit.
enum class CreditHost {
    site,         ///< a site of its own, perhaps a publisher's
    platform,     ///< code, videos, blogs or posts of anyone
    institution,  ///< an authority, a university or an association: sources, not outlets
    service,      ///< shops, shorteners, trackers, press release wires: never an outlet
};

/// `host` in lower case.
CreditHost creditHost(std::string_view host);

/// Whether the address is that of one article rather than of a front page, a section or a buyer's
/// guide.
bool isArticleAddress(std::string_view address);

/// Whether `name` is what the site on `host` would call itself: "Daily Orchard" on
/// "www.dailyorchard.example".
bool namesHost(std::string_view name, std::string_view host);

/// The part of a host name that one owner registers: "blog.example.co.uk" belongs to
/// "example.co.uk".
std::string_view registeredDomain(std::string_view host);

}  // namespace kit
