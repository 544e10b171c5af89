#include "NewsroomKit/Feeds/FeedParser.h"

#include <libxml/parser.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "NewsroomKit/Feeds/FeedSaxHandler.h"
#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Feeds/XMLEntities.h"

namespace kit {
namespace {

constexpr std::size_t chunkSize = 32 * 1024;

// Unread input may reach this length before it is checked: a start tag or a document type with its
// declarations, which the library reads only as a whole.
constexpr std::ptrdiff_t harmlessLength = 64 * 1024;

// The library compares every attribute of a tag with every other, so the time for a tag grows with
// the square of their number. The attributes of a longer tag are counted first.
constexpr std::ptrdiff_t mostQuotesInTag = 10'000;

// Limits element and attribute names, prefixes, namespaces and declared entities, which the library
// stores for the whole document. Feeds use fewer than a hundred.
constexpr int mostNames = 10'000;

// When it reads in chunks, the library does not enforce its own limit of nested elements.
constexpr std::size_t deepestElement = 256;

/// The work of the library on start tags beyond reading them, in comparisons.
class TagWork {
public:
    /// `inScope` counts the namespaces declared by the tag and all elements around it: every
    /// prefix, including the empty one, is looked up among them.
    void add(int attributes, int namespaces, int inScope) {
        const auto named = static_cast<std::uint64_t>(attributes + namespaces);
        spent_ += named * named + (named + 1) * static_cast<std::uint64_t>(inScope);
        spent_ += static_cast<std::uint64_t>(namespaces) * declaration;
    }

    bool isTooMuch() const { return spent_ > limit; }

private:
    // About a quarter of a second; a feed of 6 MB rarely takes a hundredth of it.
    static constexpr std::uint64_t limit = 300'000'000;
    // A namespace's address is parsed each time it is declared.
    static constexpr std::uint64_t declaration = 1'000;

    std::uint64_t spent_ = 0;
};

/// One run of the XML library over one document.
class FeedRun {
public:
    FeedRun(AddressBase base, const WorkLimit& limit)
        : context_(xmlCreatePushParserCtxt(&callbacks(), this, nullptr, 0, nullptr)),
          delegate_(std::move(base)),
          limit_(limit) {
        if (context_ == nullptr) throw std::bad_alloc();
        xmlCtxtUseOptions(context_.get(), XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                              XML_PARSE_NOWARNING);
    }

    void parse(std::string_view document) {
        while (!document.empty() && !isOver()) {
            const auto chunk = document.substr(0, chunkSize);
            document.remove_prefix(chunk.size());
            xmlParseChunk(context_.get(), chunk.data(), static_cast<int>(chunk.size()), 0);
            if (isOverloaded()) stopAsMalformed();
        }
        if (!isOver()) xmlParseChunk(context_.get(), nullptr, 0, 1);
    }

    /// The document breaks a rule of XML but is harmless.
    bool isIllFormed() const { return context_->wellFormed == 0 && !isHostile_ && !isComplete(); }
    bool sawFeedElement() const { return delegate_.sawFeedElement(); }
    bool sawElement() const { return delegate_.sawElement(); }
    const AddressBase& base() const { return delegate_.base(); }
    const XMLEntities& entities() const { return entities_; }

    std::optional<ParsedFeed> finish() && {
        const bool isSound = context_->wellFormed != 0 && !isHostile_;
        if (!isSound && !isComplete()) return std::nullopt;
        return std::move(delegate_).finish();
    }

private:
    struct FreeContext {
        void operator()(xmlParserCtxtPtr context) const {
            // Without callbacks for declarations the library builds a document of its own.
            xmlFreeDoc(context->myDoc);
            context->myDoc = nullptr;
            xmlFreeParserCtxt(context);
        }
    };

    static FeedRun& self(void* run) { return *static_cast<FeedRun*>(run); }
    static xmlSAXHandler& callbacks();

    bool isComplete() const { return delegate_.reachedLimit(); }
    bool isOver() const { return context_->disableSAX != 0 || context_->wellFormed == 0; }

    void stopAsMalformed() {
        isHostile_ = true;
        xmlStopParser(context_.get());
    }

    bool isOverloaded() {
        return xmlDictSize(context_->dict) > mostNames || entities_.isOverspent() ||
               limit_.isReached() || hasOverlongPart();
    }

    /// A start tag or document type waits unread until its end has arrived. So does a CDATA
    /// section, but its cost never exceeds its length.
    bool hasOverlongPart() {
        const auto* const input = context_->input;
        if (input == nullptr || input->end - input->cur < harmlessLength ||
            context_->instate == XML_PARSER_CDATA_SECTION) {
            countedLength_ = 0;
            countedQuotes_ = 0;
            return false;
        }
        const std::string_view start(reinterpret_cast<const char*>(input->cur), 3);
        if (context_->instate == XML_PARSER_DTD || start == "<!D") return true;
        if (start[0] != '<' || start[1] == '!' || start[1] == '?') return false;
        countedQuotes_ += std::count_if(input->cur + countedLength_, input->end,
                                        [](xmlChar c) { return c == '"' || c == '\''; });
        countedLength_ = input->end - input->cur;
        return countedQuotes_ > mostQuotesInTag;
    }

    void startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                      int namespaces, const XMLAttributes& attributes) {
        work_.add(static_cast<int>(attributes.size()), namespaces, context_->nsNr / 2);
        delegate_.startElement(localName, prefix, uri, attributes);
        if (work_.isTooMuch() || delegate_.depth() > deepestElement) stopAsMalformed();
    }

    std::unique_ptr<xmlParserCtxt, FreeContext> context_;
    FeedSaxHandler delegate_;
    XMLEntities entities_;
    const WorkLimit& limit_;
    TagWork work_;
    // A chunk is shorter than harmlessLength, so between two waiting tags the unread input always
    // becomes shorter than that.
    std::ptrdiff_t countedLength_ = 0;
    std::ptrdiff_t countedQuotes_ = 0;
    bool isHostile_ = false;
};

/// Only internal entities are known; external entities and subsets are never loaded.
xmlSAXHandler& FeedRun::callbacks() {
    static xmlSAXHandler handler = [] {
        xmlSAXHandler made{};
        made.initialized = XML_SAX2_MAGIC;
        made.startElementNs = [](void* run, const xmlChar* localName, const xmlChar* prefix,
                                 const xmlChar* uri, int namespaces, const xmlChar**, int count,
                                 int, const xmlChar** attributes) {
            self(run).startElement(localName, prefix, uri, namespaces, {attributes, count});
        };
        made.endElementNs = [](void* run, const xmlChar* localName, const xmlChar*,
                               const xmlChar*) {
            self(run).delegate_.endElement(localName);
            if (self(run).delegate_.reachedLimit()) xmlStopParser(self(run).context_.get());
        };
        made.characters = [](void* run, const xmlChar* text, int length) {
            self(run).delegate_.text(
                {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
        };
        made.ignorableWhitespace = made.characters;
        made.cdataBlock = made.characters;
        made.getEntity = [](void* run, const xmlChar* name) {
            return self(run).entities_.find(*self(run).context_, name);
        };
        made.entityDecl = [](void* run, const xmlChar* name, int type, const xmlChar*,
                             const xmlChar*, xmlChar* value) {
            if (type == XML_INTERNAL_GENERAL_ENTITY) self(run).entities_.declare(name, value);
        };
        // A name that only an external DTD could define stays as it is.
        made.reference = [](void* run, const xmlChar* name) {
            self(run).delegate_.text("&");
            self(run).delegate_.text(reinterpret_cast<const char*>(name));
            self(run).delegate_.text(";");
        };
        // A declared default value is repeated for each element of the document, so that a short
        // document could exhaust the memory. Feeds have none.
        made.attributeDecl = [](void* run, const xmlChar*, const xmlChar*, int, int,
                                const xmlChar* defaultValue, xmlEnumerationPtr values) {
            xmlFreeEnumeration(values);
            if (defaultValue != nullptr) self(run).stopAsMalformed();
        };
        // The library would continue to the end of the chunk, or of a tag of megabytes, and format
        // every further error in it. Nothing could interrupt that.
        made.serror = [](void* run, xmlErrorPtr error) {
            if (error->level == XML_ERR_FATAL) xmlStopParser(self(run).context_.get());
        };
        return made;
    }();
    return handler;
}

/// Reads a document, and a second time when that can repair what the first reading found.
class FeedReading {
public:
    FeedReading(std::string_view document, std::string_view address, const WorkLimit& limit)
        : document_(document), address_(address), limit_(limit) {
        read({});
        if (run_->isIllFormed()) readWithAmpersandsAsText();
        // The feed names its page after its entries.
        if (run_->base().cameTooLate()) read(std::string(run_->base().document()));
    }

    ParsedFeedResult result() && {
        if (!run_->sawFeedElement()) {
            const bool isUnread = !run_->sawElement() && isMeantAsFeed(document_);
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
            document_, [&](std::string_view name) { return run_->entities().knows(name); });
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
