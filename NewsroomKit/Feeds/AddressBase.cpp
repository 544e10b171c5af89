#include "NewsroomKit/Feeds/AddressBase.h"

#include <algorithm>
#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

// Real documents stay far below this. Completing an address takes some microseconds, so a document
// full of addresses could keep a thread busy for long.
constexpr std::size_t longestAddress = 16 * 1024;
constexpr int mostCalculations = 40'000;

bool hasScheme(std::string_view address) {
    if (address.empty() || !isASCIILetter(address.front())) return false;
    const auto end = std::find_if_not(address.begin(), address.end(), [](char c) {
        return isASCIIAlphanumeric(c) || c == '+' || c == '-' || c == '.';
    });
    return end != address.end() && *end == ':';
}

/// "www.harbour.example/news" and "//harbour.example/news" lack only their scheme.
std::string withSchemeAdded(std::string_view address) {
    const bool isHost = equalsLowercase(address.substr(0, 4), "www.") &&
                        address.find('.', 4) != std::string_view::npos;
    if (isHost) return "https://" + std::string(address);
    return (address.starts_with("//") ? "https:" : "") + std::string(address);
}

/// Decodes "&amp;", however often it was escaped.
std::string withAmpersandsDecoded(std::string_view address) {
    std::string decoded;
    decoded.reserve(address.size());
    while (!address.empty()) {
        const char c = address.front();
        decoded += c;
        address.remove_prefix(1);
        if (c != '&') continue;
        for (std::size_t length = 1; length > 0; address.remove_prefix(length)) {
            length = 0;
            for (const std::string_view rest : {"amp;", "#38;", "#038;"}) {
                if (address.starts_with(rest)) length = rest.size();
            }
        }
    }
    return decoded;
}

void keepFirstPage(std::string& kept, std::string_view address) {
    if (!kept.empty()) return;
    auto text = withSchemeAdded(trimWhitespaceAndNewlines(address));
    if (isWebPage(text)) kept = std::move(text);
}

}  // namespace

bool isWebPage(std::string_view text) {
    const auto address = WebAddress::parse(text);
    return address && address->isHTTP();
}

AddressBase::AddressBase(std::string_view feedAddress, std::string_view homePage)
    : feedAddress_(feedAddress), homePage_(homePage) {}

void AddressBase::offerHomePage(std::string_view address) { keepFirstPage(homePage_, address); }

void AddressBase::offerSelf(std::string_view address) { keepFirstPage(self_, address); }

std::string AddressBase::completed(std::string_view address, std::string_view xmlBase) {
    address = trimWhitespaceAndNewlines(address);
    const bool isEscaped = address.find('&') != std::string_view::npos;
    std::string text = isEscaped ? withAmpersandsDecoded(address) : std::string(address);
    if (text.empty() || hasScheme(text)) return text;
    if (auto whole = withSchemeAdded(text); hasScheme(whole)) return whole;
    if (xmlBase.empty()) {
        if (!wasUsed_) usedBase_ = document();
        wasUsed_ = true;
        xmlBase = document();
    }
    if (xmlBase.empty() || !mayCalculate(text)) return text;
    return resolvedAddress(xmlBase, text).value_or(text);
}

bool AddressBase::mayCalculate(std::string_view address) {
    return address.size() <= longestAddress && ++calculations_ <= mostCalculations;
}

std::string AddressBase::nested(std::string_view written, std::string_view outer) {
    written = trimWhitespaceAndNewlines(written);
    if (!mayCalculate(written)) return std::string(outer);
    if (isWebPage(written)) return std::string(written);
    const std::string_view base = outer.empty() ? std::string_view(document()) : outer;
    if (base.empty() || written.empty() || hasScheme(written)) return std::string(outer);
    return resolvedAddress(base, written).value_or(std::string(outer));
}

const std::string& AddressBase::document() const {
    if (!homePage_.empty()) return homePage_;
    return feedAddress_.empty() ? self_ : feedAddress_;
}

}  // namespace kit
