#include "NewsroomKit/Feeds/FeedParser.h"

#include <optional>
#include <utility>

#include "NewsroomKit/Feeds/FeedSaxHandler.h"
#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Feeds/XMLRun.h"

namespace kit {
namespace {

/// A feed collected by one run over its document.
class FeedRun {
public:
    FeedRun(AddressBase base, const WorkLimit& limit)
        : handler_(std::move(base)), run_(handler_, limit) {}

    void parse(std::string_view document) { run_.parse(document); }

    const XMLRun& run() const { return run_; }
    const FeedSaxHandler& handler() const { return handler_; }

    std::optional<ParsedFeed> finish() && {
        if (!run_.isSound()) return std::nullopt;
        return std::move(handler_).finish();
    }

private:
    FeedSaxHandler handler_;
    XMLRun run_;
};

/// Reads a document, and a second time when that can repair what the first reading found.
class FeedReading {
public:
    FeedReading(std::string_view document, std::string_view address, const WorkLimit& limit)
        : document_(document), address_(address), limit_(limit) {
        read({});
        if (run_->run().isIllFormed()) readWithAmpersandsAsText();
        // The feed names its page after its entries.
        if (run_->handler().base().cameTooLate())
            read(std::string(run_->handler().base().document()));
    }

    ParsedFeedResult result() && {
        if (!run_->handler().sawFeedElement()) {
            const bool isUnread = !run_->handler().sawElement() && isMeantAsFeed(document_);
            return isUnread ? FeedParserError::malformed : FeedParserError::notAFeed;
        }
        auto feed = std::move(*run_).finish();
        if (!feed) return FeedParserError::malformed;
        return std::move(*feed);
    }

private:
    void read(const std::string& homePage) {
        run_.emplace(AddressBase(address_, homePage), limit_);
        run_->parse(document_);
    }

    void readWithAmpersandsAsText() {
        mended_ = withStrayAmpersandsEscaped(
            document_, [&](std::string_view name) { return run_->run().entities().knows(name); });
        if (mended_.size() == document_.size()) return;
        document_ = mended_;
        read({});
    }

    std::string_view document_;
    std::string_view address_;
    const WorkLimit& limit_;
    std::string mended_;
    std::optional<FeedRun> run_;
};

}  // namespace

ParsedFeedResult parseFeed(std::string_view bytes, std::string_view address,
                           const WorkLimit& limit) {
    prepareXMLParser();
    std::string storage;
    const auto document = withoutForbiddenCharacters(feedInUTF8(bytes, storage), storage);
    return FeedReading(document, address, limit).result();
}

}  // namespace kit
