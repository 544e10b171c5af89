#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// What the batch request of the redirect host's own script carries.
struct RedirectSignature {
    std::string identifier{};
    std::string signature{};
    std::string timestamp{};  ///< seconds since 1970, digits only

    bool operator==(const RedirectSignature&) const = default;
};

/// A page under the redirect host, as far as it tells of the article behind it.
struct RedirectPage {
    /// Links of articles that its data attributes and its canonical link name, canonical.
    std::vector<std::string> articles{};
    std::optional<RedirectSignature> signature{};
    /// It asks for consent to cookies in place of the article.
    bool asksForConsent = false;
};

/// At most this much of a page is read.
inline constexpr std::size_t kRedirectPageBytes = 2 * 1024 * 1024;

/// Reads any bytes.
RedirectPage readRedirectPage(std::string_view html);

/// Address, body and answer of the batch request, a form that is posted.
inline constexpr std::string_view kBatchAddress =
    "https://news.google.com/_/DotsSplashUi/data/batchexecute";
inline constexpr std::string_view kBatchContentType =
    "application/x-www-form-urlencoded;charset=UTF-8";
std::string batchRequestBody(const RedirectSignature& signature);
/// The article's link in the answer, canonical. Nothing for any other answer.
std::optional<std::string> articleInBatchAnswer(std::string_view answer);

}  // namespace kit
