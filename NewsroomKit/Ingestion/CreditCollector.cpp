#include "NewsroomKit/Ingestion/CreditCollector.h"

#include <algorithm>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "NewsroomKit/Ingestion/CreditHosts.h"
#include "NewsroomKit/Ingestion/SocialPosts.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

/// A link that nothing explains may be the source of an item that cites nobody and links to no
/// other outlet. Otherwise it is for further reading. Apple's announcements stay.
template <class Row, class CreditOf>
void dropBackground(std::vector<Row>& rows, CreditOf creditOf) {
    const auto isPlain = [&](const Row& row) {
        return !creditOf(row).detail && creditOf(row).kind != SourceCredit::Kind::apple;
    };
    const auto first = std::ranges::find_if(rows, isPlain);
    const bool isOnlySource = std::ranges::all_of(rows, [&](const Row& row) {
        return !creditOf(row).detail &&
               (!isPlain(row) || creditOf(row).name == creditOf(*first).name);
    });
    if (!isOnlySource) std::erase_if(rows, isPlain);
}

std::string_view withoutWWW(std::string_view host) {
    return host.starts_with("www.") ? host.substr(4) : host;
}

}  // namespace

bool isAppleDocument(std::string_view text) {
    const auto address = WebAddress::parse(text);
    if (!address) return false;
    const auto pieces = address->pathPieces();
    const bool more = pieces.size() > 1 || (!pieces.empty() && address->query);
    return more && (pieces[0] == "newsroom" || pieces[0] == "news");
}

CreditCollector::CreditCollector(std::string_view siteURL, std::string_view sourceName)
    : sourceName_(sourceName), siteHost_(withoutWWW(linkHost(siteURL))) {
    ownOutlet_ = outletOfHost(siteHost_);
    if (!ownOutlet_) ownOutlet_ = outletNamed(sourceName);
}

void CreditCollector::setPhrase(std::size_t place, std::optional<std::string> phrase) {
    place_ = place;
    phrase_ = std::move(phrase);
}

bool CreditCollector::isFull() const { return rows_.size() >= kCreditLimit; }

bool CreditCollector::isOwn(std::string_view host) const {
    if (siteHost_.empty()) return false;
    if (isHostOrSubhost(host, siteHost_)) return true;
    if (ownOutlet_ && outletOfHost(host) == ownOutlet_) return true;
    return creditHost(host) != CreditHost::platform &&
           registeredDomain(host) == registeredDomain(siteHost_);
}

bool CreditCollector::isCredited(std::string_view address) const {
    return std::any_of(rows_.begin(), rows_.end(),
                       [&](const Row& row) { return row.credit.url == address; });
}

bool CreditCollector::addKnown(const std::optional<OutletMention>& mention,
                               const LinkedText::Link* link) {
    if (!mention || !mention->outlet) return false;
    if (mention->outlet == ownOutlet_) return true;
    const bool there = link && outletOfHost(linkHost(link->address)) == mention->outlet;
    const bool apple = mention->outlet->isApple;
    // Apple is mostly the subject; what it "reports" or is "told" is no credit.
    if (apple && phrase_ != "according to") return false;
    const bool linked = there && (!apple || isAppleDocument(link->address));
    add({.kind = apple ? SourceCredit::Kind::apple : SourceCredit::Kind::outlet,
         .name = mention->name,
         .url = linked ? std::optional(link->address) : std::nullopt});
    return true;
}

bool CreditCollector::addLink(const LinkedText::Link& link,
                              const std::optional<OutletMention>& words) {
    const auto host = linkHost(link.address);
    if (host.empty() || isOwn(host)) return false;
    if (addPost(link.address)) return true;
    const Outlet* outlet = outletOfHost(host);
    if (outlet && outlet->isApple) {
        if (!isAppleDocument(link.address)) return false;
        add({.kind = SourceCredit::Kind::apple,
             .name = std::string(outlet->name),
             .url = link.address});
        return true;
    }
    if (!outlet && creditHost(host) == CreditHost::service) return false;
    const bool named = words && namesHost(words->name, host);
    std::string name(outlet ? outlet->name : withoutWWW(host));
    if (!outlet && named) name = words->name;
    add({.kind = SourceCredit::Kind::outlet, .name = std::move(name), .url = link.address});
    return true;
}

bool CreditCollector::addPost(std::string_view address) {
    const auto post = socialPost(address);
    if (!post) return false;
    const Outlet* employer = outletOfAccount(post->platform, post->account);
    const bool own = !siteHost_.empty() && namesHost(post->account, siteHost_);
    if (own || (employer && employer == ownOutlet_)) return true;
    add({.kind = SourceCredit::Kind::post,
         .platform = post->platform,
         .name = post->account,
         .url = std::string(address),
         .postedAt = post->postedAt});
    return true;
}

void CreditCollector::addOutlet(std::string name) {
    add({.kind = SourceCredit::Kind::outlet, .name = std::move(name)});
}

void CreditCollector::addHandle(std::string_view handle) {
    add({.kind = SourceCredit::Kind::post, .name = std::string(handle)});
}

void CreditCollector::add(SourceCredit credit) {
    if (isFull() || equalIgnoringCase(credit.name, sourceName_)) return;
    credit.detail = phrase_;
    for (auto& [place, other] : rows_) {
        if (other.kind != credit.kind || other.name != credit.name) continue;
        // The name may come first and its link later.
        if (!other.url && credit.url && credit.detail) other.url = credit.url;
        if (!credit.url || other.url == credit.url) return;
    }
    rows_.push_back({place_, std::move(credit)});
}

std::vector<SourceCredit> CreditCollector::credits() && {
    dropBackground(rows_, [](const Row& row) -> auto& { return row.credit; });
    std::stable_sort(rows_.begin(), rows_.end(),
                     [](const Row& a, const Row& b) { return a.place < b.place; });
    std::vector<SourceCredit> credits;
    for (auto& row : rows_) credits.push_back(std::move(row.credit));
    return credits;
}

std::vector<SourceCredit> joinedCredits(std::vector<SourceCredit> ofFeed,
                                        const std::vector<SourceCredit>& ofPage) {
    auto credits = std::move(ofFeed);
    for (const auto& credit : ofPage) {
        const auto known = std::ranges::find_if(credits, [&](const SourceCredit& other) {
            return other.kind == credit.kind && equalIgnoringCase(other.name, credit.name);
        });
        if (known == credits.end()) {
            if (credits.size() < kCreditLimit) credits.push_back(credit);
            continue;
        }
        if (!known->url) known->url = credit.url;
        if (!known->detail) known->detail = credit.detail;
    }
    dropBackground(credits, [](const SourceCredit& credit) -> auto& { return credit; });
    return credits;
}

}  // namespace kit
