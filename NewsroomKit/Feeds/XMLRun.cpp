#include "NewsroomKit/Feeds/XMLRun.h"

#include <algorithm>
#include <new>

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

// About a quarter of a second; a feed of 6 MB rarely takes a hundredth of it.
constexpr std::uint64_t mostTagWork = 300'000'000;

// A namespace's address is parsed each time it is declared.
constexpr std::uint64_t declarationWork = 1'000;

}  // namespace

/// `inScope` counts the namespaces declared by the tag and all elements around it: every prefix,
/// including the empty one, is looked up among them.
void XMLRun::TagWork::add(int attributes, int namespaces, int inScope) {
    const auto named = static_cast<std::uint64_t>(attributes + namespaces);
    spent_ += named * named + (named + 1) * static_cast<std::uint64_t>(inScope);
    spent_ += static_cast<std::uint64_t>(namespaces) * declarationWork;
}

bool XMLRun::TagWork::isTooMuch() const { return spent_ > mostTagWork; }

void XMLRun::FreeContext::operator()(xmlParserCtxtPtr context) const {
    // Without callbacks for declarations the library builds a document of its own.
    xmlFreeDoc(context->myDoc);
    context->myDoc = nullptr;
    xmlFreeParserCtxt(context);
}

XMLRun::XMLRun(XMLSink& sink, const WorkLimit& limit)
    : context_(xmlCreatePushParserCtxt(&callbacks(), this, nullptr, 0, nullptr)),
      sink_(sink),
      limit_(limit) {
    if (context_ == nullptr) throw std::bad_alloc();
    xmlCtxtUseOptions(context_.get(),
                      XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
}

void XMLRun::parse(std::string_view document) {
    while (!document.empty() && !isOver()) {
        const auto chunk = document.substr(0, chunkSize);
        document.remove_prefix(chunk.size());
        xmlParseChunk(context_.get(), chunk.data(), static_cast<int>(chunk.size()), 0);
        if (isOverloaded()) stopAsHostile();
    }
    if (!isOver()) xmlParseChunk(context_.get(), nullptr, 0, 1);
}

void XMLRun::stopAsHostile() {
    isHostile_ = true;
    xmlStopParser(context_.get());
}

bool XMLRun::isOverloaded() {
    return xmlDictSize(context_->dict) > mostNames || entities_.isOverspent() ||
           limit_.isReached() || hasOverlongPart();
}

/// A start tag or document type waits unread until its end has arrived. So does a CDATA section,
/// but its cost never exceeds its length.
bool XMLRun::hasOverlongPart() {
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

void XMLRun::startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                          int namespaces, const XMLAttributes& attributes) {
    work_.add(static_cast<int>(attributes.size()), namespaces, context_->nsNr / 2);
    sink_.startElement(localName, prefix, uri, attributes);
    if (work_.isTooMuch() || sink_.depth() > deepestElement) stopAsHostile();
}

/// Only internal entities are known; external entities and subsets are never loaded.
xmlSAXHandler& XMLRun::callbacks() {
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
            self(run).sink_.endElement(localName);
            if (self(run).sink_.isComplete()) xmlStopParser(self(run).context_.get());
        };
        addTextCallbacks(made);
        addDeclarationCallbacks(made);
        // The library would continue to the end of the chunk, or of a tag of megabytes, and format
        // every further error in it. Nothing could interrupt that.
        made.serror = [](void* run, xmlErrorPtr error) {
            if (error->level == XML_ERR_FATAL) xmlStopParser(self(run).context_.get());
        };
        return made;
    }();
    return handler;
}

void XMLRun::addTextCallbacks(xmlSAXHandler& handler) {
    handler.characters = [](void* run, const xmlChar* text, int length) {
        self(run).sink_.text(
            {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
    };
    handler.ignorableWhitespace = handler.characters;
    handler.cdataBlock = handler.characters;
    // A name that only an external DTD could define stays as it is.
    handler.reference = [](void* run, const xmlChar* name) {
        self(run).sink_.text("&");
        self(run).sink_.text(reinterpret_cast<const char*>(name));
        self(run).sink_.text(";");
    };
}

void XMLRun::addDeclarationCallbacks(xmlSAXHandler& handler) {
    handler.getEntity = [](void* run, const xmlChar* name) {
        return self(run).entities_.find(*self(run).context_, name);
    };
    handler.entityDecl = [](void* run, const xmlChar* name, int type, const xmlChar*,
                            const xmlChar*, xmlChar* value) {
        if (type == XML_INTERNAL_GENERAL_ENTITY) self(run).entities_.declare(name, value);
    };
    // A declared default value is repeated for each element of the document, so that a short
    // document could exhaust the memory. Feeds have none.
    handler.attributeDecl = [](void* run, const xmlChar*, const xmlChar*, int, int,
                               const xmlChar* defaultValue, xmlEnumerationPtr values) {
        xmlFreeEnumeration(values);
        if (defaultValue != nullptr) self(run).stopAsHostile();
    };
}

}  // namespace kit
