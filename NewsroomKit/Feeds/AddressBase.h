#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kit {

/// Completes the relative addresses of one feed document. They refer to the nearest xml:base,
/// else to the page that the feed names as its own, else to the address the document was
/// fetched from, else to the address that the feed gives for itself.
class AddressBase {
public:
    AddressBase() = default;

    /// `feedAddress` is where the document was fetched from, empty when that is unknown.
    /// `homePage` is the feed's own page, when an earlier reading has found it.
    AddressBase(std::string_view feedAddress, std::string_view homePage);

    /// Offers the page that the feed names as its own, and the feed's address as the feed gives it.
    /// The first absolute one of each counts.
    void offerHomePage(std::string_view address);
    void offerSelf(std::string_view address);

    /// The absolute address, trimmed, with "&amp;" from double escaping decoded. Otherwise an
    /// absolute address, and one that cannot be completed, stays as it is.
    std::string completed(std::string_view address, std::string_view xmlBase);

    /// The absolute address of an element's xml:base, which may be relative to `outer`; `outer`
    /// when `written` is not valid.
    std::string nested(std::string_view written, std::string_view outer);

    /// The base of relative addresses without xml:base; empty when it is unknown.
    const std::string& document() const;

    /// True when relative addresses were completed before the document named their base: feeds may
    /// name their page after their entries.
    bool cameTooLate() const { return wasUsed_ && usedBase_ != document(); }

private:
    bool mayCalculate(std::string_view address);

    std::string feedAddress_;
    std::string homePage_;
    std::string self_;
    std::string usedBase_;
    bool wasUsed_ = false;
    int calculations_ = 0;
};

/// Whether the address opens in a browser: http or https, with a host.
bool isWebPage(std::string_view address);

}  // namespace kit
