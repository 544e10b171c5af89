#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "NewsroomKit/Feeds/AddressBase.h"
#include "NewsroomKit/Feeds/ElementNames.h"
#include "NewsroomKit/Feeds/FeedEntryBuilder.h"
#include "NewsroomKit/Feeds/FeedParser.h"
#include "NewsroomKit/Feeds/XMLRun.h"

namespace kit {

/// Receives the XML parser's events and collects the feed. It tracks the open elements, the field
/// that text belongs to, and the parts of an entry that belong to another item.
class FeedSaxHandler final : public XMLSink {
public:
    explicit FeedSaxHandler(AddressBase base) : base_(std::move(base)) {}

    void startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                      const XMLAttributes& attributes) override;
    void endElement(const xmlChar* localName) override;
    void text(std::string_view characters) override;

    std::size_t depth() const override { return open_.size(); }
    bool isComplete() const override { return feed_.reachedLimit; }
    const AddressBase& base() const { return base_; }
    bool sawElement() const { return sawElement_; }
    bool sawFeedElement() const { return sawFeedElement_; }

    /// The collected feed.
    ParsedFeed finish() &&;

private:
    enum class Markup { none, stray, declared };

    struct XMLBase {
        std::size_t depth;
        std::string address;
    };

    void startOutside(ElementRole role, ElementRole parent, const XMLAttributes& attributes);
    void startInEntry(ElementRole role, ElementRole parent, const XMLAttributes& attributes);
    void beginText(ElementRole role, const XMLAttributes& attributes);
    void finishText();
    void finishEntry();
    void separateRecordings();
    void startFeedLink(ElementRole role, const XMLAttributes& attributes);
    std::string_view xmlBase() const;
    std::string completed(std::string_view address) { return base_.completed(address, xmlBase()); }
    std::string* field(ElementRole role);
    bool isCapturingMarkup() const { return textDepth_ > 0 && markup_ != Markup::none; }
    bool isWrapper(std::string_view localName) const;

    AddressBase base_;
    ElementNames names_;
    ParsedFeed feed_;
    std::vector<std::string> recordings_;  ///< of each entry, empty where there is none
    FeedEntryBuilder draft_;
    std::vector<ElementRole> open_;
    std::vector<XMLBase> xmlBases_;  ///< of the open elements that have one
    // Depths count open elements, from 1; 0 means that there is no such element.
    std::size_t entryDepth_ = 0;
    std::size_t mutedDepth_ = 0;  ///< element whose descendants are ignored
    std::size_t textDepth_ = 0;   ///< element whose text is collected
    std::string text_;
    ElementRole textRole_ = ElementRole::none;
    Markup markup_ = Markup::none;
    bool sawElement_ = false;
    bool sawFeedElement_ = false;
};

}  // namespace kit
