#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Ingestion/LinkedText.h"
#include "NewsroomKit/Ingestion/OutletMention.h"
#include "NewsroomKit/Stories/SourceCredit.h"

namespace kit {

/// The credits of one item: who may be credited, under which name and with which link.
class CreditCollector {
public:
    CreditCollector(std::string_view siteURL, std::string_view sourceName);

    /// What is credited from now on is said by `phrase`, at `place` of the text; without a phrase
    /// it is background.
    void setPhrase(std::size_t place, std::optional<std::string> phrase);

    /// Credits an outlet of the table, with the link when it leads there. False when the mention is
    /// of none.
    bool addKnown(const std::optional<OutletMention>& mention, const LinkedText::Link* link);
    /// Credits what a link leads to: a post, an outlet, or the site on its host, which is called
    /// `words` when that is its name. False when it may not be credited.
    bool addLink(const LinkedText::Link& link, const std::optional<OutletMention>& words);
    bool addPost(std::string_view address);
    void addOutlet(std::string name);
    void addHandle(std::string_view handle);

    bool isOwn(std::string_view host) const;
    bool isCredited(std::string_view address) const;
    bool isFull() const;

    /// In the order of the text.
    std::vector<SourceCredit> credits() &&;

private:
    struct Row {
        std::size_t place;
        SourceCredit credit;
    };

    void add(SourceCredit credit);

    std::string_view sourceName_;
    std::string siteHost_;
    const Outlet* ownOutlet_ = nullptr;
    std::size_t place_ = 0;
    std::optional<std::string> phrase_;
    std::vector<Row> rows_;
};

/// Whether an address is that of one of Apple's announcements.
bool isAppleDocument(std::string_view address);

}  // namespace kit
