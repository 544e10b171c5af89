#pragma once

#include <cstdint>
#include <optional>
#include <tuple>
#include <vector>

#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/Filings/FilingCompany.h"
#include "NewsroomKit/Filings/FilingDocuments.h"
#include "NewsroomKit/Filings/OwnershipForm.h"
#include "NewsroomKit/Filings/SaleNotice.h"
#include "NewsroomKit/Signals/Signal.h"

namespace kit {

/// A filing of a company that the desk follows, with the form that it consists of once that has
/// been read.
struct FollowedFiling {
    std::int64_t company = 0;
    Filing filing{};
    Instant seenAt{};
    bool isNews = false;      ///< it was not there when the company was first looked at
    bool awaitsForm = false;  ///< a form of insiders that has not been read yet
    std::optional<OwnershipForm> trades{};
    std::optional<SaleNotice> notice{};
    bool awaitsDocuments = false;  ///< its page has not been read yet
    std::vector<FilingDocument> documents{};
    std::optional<FilingText> release{};  ///< the begin of its exhibit 99

    bool operator==(const FollowedFiling&) const = default;
};

template <>
struct JSONFields<FollowedFiling> {
    static constexpr auto fields = std::tuple{
        field("company", &FollowedFiling::company),
        field("filing", &FollowedFiling::filing),
        field("seenAt", &FollowedFiling::seenAt),
        field("isNews", &FollowedFiling::isNews),
        field("awaitsForm", &FollowedFiling::awaitsForm),
        field("trades", &FollowedFiling::trades),
        field("notice", &FollowedFiling::notice),
        field("awaitsDocuments", &FollowedFiling::awaitsDocuments),
        field("documents", &FollowedFiling::documents),
        field("release", &FollowedFiling::release),
    };
};

/// Whether the news of the filing is in an exhibit: 8-K and 6-K.
bool hasPressExhibit(const Filing& filing);

/// The begin of a text by which it is recognised.
FilingText beginOf(FilingText text);

/// Takes over what only the filer's list says: the period, the items, what it amends. True when
/// that was something new.
bool addDetail(Filing& filing, const Filing& listed);

/// Whether a form of insiders names the company as its issuer. A company's list also has the forms
/// in which it is the owner of another one's shares.
bool isOfOwnShares(const FollowedFiling& followed);

SignalWeight weightOf(const FollowedFiling& followed);

/// The signal of a filing that is news: what a form of insiders says where it has been read, else
/// what the list says.
Signal signalOf(const FollowedFiling& followed, Instant now);

}  // namespace kit
