#include "NewsroomKit/Outlines/OutlineParser.h"

#include <libxml/parser.h>

#include <memory>
#include <new>
#include <optional>
#include <string>

#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Feeds/XMLEntities.h"
#include "NewsroomKit/Outlines/OutlineCollector.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kChunkSize = 8 * 1024;

// The library buffers a start tag until its end and compares each attribute with every other, so
// the length of a tag must be limited.
constexpr std::ptrdiff_t kLongestTag = 64 * 1024;
constexpr int kMostAttributes = 100;

// A list has about a dozen elements besides its outlines; a document with far more is something
// else.
constexpr std::size_t kMostElements = 3 * outlineLimit;

std::string_view view(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

/// One run of the XML library over one document.
class OutlineRun {
public:
    OutlineRun() : context_(xmlCreatePushParserCtxt(&callbacks(), this, nullptr, 0, nullptr)) {
        if (context_ == nullptr) throw std::bad_alloc();
        xmlCtxtUseOptions(context_.get(), XML_PARSE_NOENT | XML_PARSE_NONET | XML_PARSE_NOERROR |
                                              XML_PARSE_NOWARNING);
    }

    void parse(std::string_view document) {
        while (!document.empty() && !isOver()) {
            const auto chunk = document.substr(0, kChunkSize);
            document.remove_prefix(chunk.size());
            xmlParseChunk(context_.get(), chunk.data(), static_cast<int>(chunk.size()), 0);
            if (hasOverlongTag()) stop(OutlineError::malformed);
        }
        if (!isOver()) xmlParseChunk(context_.get(), nullptr, 0, 1);
    }

    OutlinesResult result() && {
        if (error_) return *error_;
        if (!sawRoot_) return OutlineError::notOutlines;
        if (context_->wellFormed == 0) return OutlineError::malformed;
        return collector_.take();
    }

private:
    struct FreeContext {
        void operator()(xmlParserCtxtPtr context) const {
            xmlFreeDoc(context->myDoc);
            context->myDoc = nullptr;
            xmlFreeParserCtxt(context);
        }
    };

    static OutlineRun& self(void* run) { return *static_cast<OutlineRun*>(run); }
    static xmlSAXHandler& callbacks();

    bool isOver() const { return context_->disableSAX != 0 || context_->wellFormed == 0; }

    void stop(OutlineError error) {
        error_ = error;
        xmlStopParser(context_.get());
    }

    bool hasOverlongTag() const {
        const auto* const input = context_->input;
        if (input == nullptr || input->end - input->cur < kLongestTag) return false;
        return input->cur[0] == '<' && input->cur[1] != '!' && input->cur[1] != '?';
    }

    void startElement(std::string_view name, int count, const xmlChar** attributes) {
        ++depth_;
        const bool isRoot = !sawRoot_ && equalsLowercase(name, "opml");
        if (!sawRoot_ && !isRoot) return stop(OutlineError::notOutlines);
        sawRoot_ = true;
        if (count > kMostAttributes) return stop(OutlineError::malformed);
        if (++elements_ > kMostElements) return stop(OutlineError::tooMany);
        if (equalsLowercase(name, "outline")) {
            collector_.begin(attributesOf(count, attributes));
            if (collector_.count() > outlineLimit) stop(OutlineError::tooMany);
        }
        // The list's own title is in the head: opml, head, title.
        if (depth_ == 3 && equalsLowercase(name, "title")) title_.emplace();
    }

    void endElement(std::string_view name) {
        --depth_;
        if (equalsLowercase(name, "outline")) collector_.end();
        if (depth_ == 2 && title_) {
            collector_.setTitle(*title_);
            title_.reset();
        }
    }

    void characters(std::string_view text) {
        if (title_) *title_ += text;
    }

    static OutlineAttributes attributesOf(int count, const xmlChar** attributes);

    std::unique_ptr<xmlParserCtxt, FreeContext> context_;
    OutlineCollector collector_;
    std::optional<std::string> title_;  ///< while inside the list's title
    std::optional<OutlineError> error_;
    std::size_t depth_ = 0;
    std::size_t elements_ = 0;
    bool sawRoot_ = false;
    XMLEntities entities_;
};

/// Programs write different letter cases ("xmlUrl", "xmlURL", "xmlurl").
OutlineAttributes OutlineRun::attributesOf(int count, const xmlChar** attributes) {
    OutlineAttributes known;
    for (int i = 0; i < count; ++i) {
        // Name, prefix, namespace, and the value's begin and end.
        const xmlChar* const* const row = attributes + static_cast<std::ptrdiff_t>(i) * 5;
        const auto name = lowercasedASCII(view(row[0]));
        std::string* place = name == "text"      ? &known.text
                             : name == "title"   ? &known.title
                             : name == "xmlurl"  ? &known.xmlURL
                             : name == "htmlurl" ? &known.htmlURL
                             : name == "url"     ? &known.url
                                                 : nullptr;
        if (place)
            place->assign(reinterpret_cast<const char*>(row[3]),
                          static_cast<std::size_t>(row[4] - row[3]));
    }
    return known;
}

/// Declarations have no callbacks on purpose, so entities expand to nothing and nothing outside the
/// document is loaded. An internal subset ends the reading.
xmlSAXHandler& OutlineRun::callbacks() {
    static xmlSAXHandler handler = [] {
        xmlSAXHandler made{};
        made.initialized = XML_SAX2_MAGIC;
        made.internalSubset = [](void* run, const xmlChar*, const xmlChar*, const xmlChar*) {
            // A "[" opens an internal subset.
            if (*self(run).context_->input->cur == '[') self(run).stop(OutlineError::malformed);
        };
        made.startElementNs = [](void* run, const xmlChar* name, const xmlChar*, const xmlChar*,
                                 int, const xmlChar**, int count, int, const xmlChar** attributes) {
            self(run).startElement(view(name), count, attributes);
        };
        made.endElementNs = [](void* run, const xmlChar* name, const xmlChar*, const xmlChar*) {
            self(run).endElement(view(name));
        };
        made.characters = [](void* run, const xmlChar* text, int length) {
            self(run).characters(
                {reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
        };
        made.cdataBlock = made.characters;
        made.getEntity = [](void* run, const xmlChar* name) {
            return self(run).entities_.find(*self(run).context_, name);
        };
        return made;
    }();
    return handler;
}

}  // namespace

OutlinesResult parseOutlines(std::string_view bytes) {
    if (bytes.size() > outlineByteLimit) return OutlineError::tooLarge;
    prepareXMLParser();
    std::string storage;
    const auto document = withoutForbiddenCharacters(feedInUTF8(bytes, storage), storage);
    OutlineRun run;
    run.parse(document);
    return std::move(run).result();
}

}  // namespace kit
