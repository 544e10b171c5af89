#include "NewsroomKit/Feeds/FeedParser.h"

#include <libxml/parser.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "NewsroomKit/Feeds/FeedDelegate.h"
#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/XMLCleaning.h"
#include "NewsroomKit/Text/Utf8.h"

namespace newsroom {
namespace {

constexpr std::size_t chunkSize = 16 * 1024;

// The XML library compares every attribute of a tag with every other, so the time for a tag
// grows with the square of their number. Tags that fit into this many unread bytes are
// harmless; in longer ones the attributes are counted before they are read.
constexpr std::ptrdiff_t harmlessTag = 64 * 1024;
constexpr std::ptrdiff_t mostQuotesInTag = 10'000;

// A document can give its elements attributes in its DTD, which then cost time for each
// element again.
constexpr int mostDeclaredAttributes = 1'000;

// Reading in pieces, the library does not keep its own limit of nested elements.
constexpr std::size_t deepestElement = 256;

/// One run of the XML library over one document.
class FeedRun {
public:
    FeedRun() : context_(xmlCreatePushParserCtxt(&callbacks(), this, nullptr, 0, nullptr)) {
        if (context_ == nullptr) throw std::bad_alloc();
        xmlCtxtUseOptions(context_.get(), XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                              XML_PARSE_NOWARNING);
    }

    void parse(std::string_view document) {
        while (!document.empty() && !isOver()) {
            const auto chunk = document.substr(0, chunkSize);
            document.remove_prefix(chunk.size());
            xmlParseChunk(context_.get(), chunk.data(), static_cast<int>(chunk.size()), 0);
            if (hasOverlongTag()) stopAsMalformed();
        }
        if (!isOver()) xmlParseChunk(context_.get(), nullptr, 0, 1);
    }

    ParsedFeedResult result() && {
        if (!delegate_.sawFeedElement()) return FeedParserError::notAFeed;
        const bool isSound = context_->wellFormed != 0 && !isHostile_;
        if (!isSound && !delegate_.reachedLimit()) return FeedParserError::malformed;
        return std::move(delegate_).takeFeed();
    }

private:
    struct FreeContext {
        void operator()(xmlParserCtxtPtr context) const {
            // Without callbacks for declarations the library keeps a document of its own.
            xmlFreeDoc(context->myDoc);
            context->myDoc = nullptr;
            xmlFreeParserCtxt(context);
        }
    };

    static FeedRun& self(void* run) { return *static_cast<FeedRun*>(run); }
    static xmlSAXHandler& callbacks();
    static xmlEntityPtr getEntity(void* run, const xmlChar* name);

    bool isOver() const { return context_->disableSAX != 0 || context_->wellFormed == 0; }

    void stopAsMalformed() {
        isHostile_ = true;
        xmlStopParser(context_.get());
    }

    /// A start tag waits unread until its end has arrived.
    bool hasOverlongTag() const {
        const auto* const input = context_->input;
        if (input == nullptr || input->end - input->cur < harmlessTag) return false;
        if (input->cur[0] != '<' || input->cur[1] == '!' || input->cur[1] == '?') return false;
        return std::count_if(input->cur, input->end, [](xmlChar c) {
                   return c == '"' || c == '\'';
               }) > mostQuotesInTag;
    }

    std::unique_ptr<xmlParserCtxt, FreeContext> context_;
    FeedDelegate delegate_;
    xmlEntity entity_{};
    std::string entityText_;
    int declaredAttributes_ = 0;
    bool isHostile_ = false;
};

/// There are no callbacks for entity declarations on purpose: what a document declares
/// expands to nothing, and no external subset is ever loaded.
xmlSAXHandler& FeedRun::callbacks() {
    static xmlSAXHandler handler = [] {
        xmlSAXHandler made{};
        made.initialized = XML_SAX2_MAGIC;
        made.startElementNs = [](void* run, const xmlChar* localName, const xmlChar* prefix,
                                 const xmlChar* uri, int, const xmlChar**, int attributeCount, int,
                                 const xmlChar** attributes) {
            self(run).delegate_.startElement(localName, prefix, uri,
                                             XMLAttributes(attributes, attributeCount));
            if (self(run).delegate_.depth() > deepestElement) self(run).stopAsMalformed();
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
        made.getEntity = getEntity;
        // A name that only an external DTD could explain stays as it is written.
        made.reference = [](void* run, const xmlChar* name) {
            self(run).delegate_.text("&");
            self(run).delegate_.text(reinterpret_cast<const char*>(name));
            self(run).delegate_.text(";");
        };
        made.attributeDecl = [](void* run, const xmlChar*, const xmlChar*, int, int,
                                const xmlChar*, xmlEnumerationPtr values) {
            xmlFreeEnumeration(values);
            if (++self(run).declaredAttributes_ == mostDeclaredAttributes) {
                self(run).stopAsMalformed();
            }
        };
        return made;
    }();
    return handler;
}

/// Serves the names that HTML has and XML has not.
xmlEntityPtr FeedRun::getEntity(void* run, const xmlChar* name) {
    auto& entity = self(run).entity_;
    auto& text = self(run).entityText_;
    const auto character = namedCharacter(reinterpret_cast<const char*>(name));
    if (!character) return nullptr;
    text.clear();
    appendUTF8(*character, text);
    entity = {};
    entity.type = XML_ENTITY_DECL;
    entity.name = name;
    entity.content = reinterpret_cast<xmlChar*>(text.data());
    entity.length = static_cast<int>(text.size());
    // In text a predefined entity is handed over at once, where a general one would get a
    // parser of its own. In an attribute only the first byte of a predefined one counts.
    entity.etype = self(run).context_->instate == XML_PARSER_ATTRIBUTE_VALUE
                       ? XML_INTERNAL_GENERAL_ENTITY
                       : XML_INTERNAL_PREDEFINED_ENTITY;
    return &entity;
}

}  // namespace

ParsedFeedResult parseFeed(std::string_view bytes) {
    // Once for the process, before threads can meet in it.
    static const bool isReady = (xmlInitParser(), true);
    static_cast<void>(isReady);

    std::string storage;
    const auto document = withoutForbiddenCharacters(feedInUTF8(bytes, storage), storage);
    FeedRun run;
    run.parse(document);
    return std::move(run).result();
}

}  // namespace newsroom
