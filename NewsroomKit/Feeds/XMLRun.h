#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include <libxml/parser.h>

#include "NewsroomKit/Feeds/WorkLimit.h"
#include "NewsroomKit/Feeds/XMLAttributes.h"
#include "NewsroomKit/Feeds/XMLEntities.h"

namespace kit {

/// Receives what an XMLRun reads. Names are interned: equal ones have one address.
class XMLSink {
public:
    virtual ~XMLSink() = default;

    virtual void startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                              const XMLAttributes& attributes) = 0;
    virtual void endElement(const xmlChar* localName) = 0;
    virtual void text(std::string_view characters) = 0;

    virtual std::size_t depth() const = 0;  ///< the number of open elements
    virtual bool isComplete() const = 0;    ///< the rest of the document is not needed
};

/// One run of the XML library over one document in UTF-8. Nothing outside the document is ever
/// read, and time and memory grow only with its size: whatever would break that makes the document
/// unsound, as does an error in its XML.
class XMLRun {
public:
    XMLRun(XMLSink& sink, const WorkLimit& limit);

    void parse(std::string_view document);

    /// The document was read to its end, or as far as the sink needs it.
    bool isSound() const { return (isWellFormed() && !isHostile_) || sink_.isComplete(); }
    /// The document breaks a rule of XML but is harmless.
    bool isIllFormed() const { return !isWellFormed() && !isHostile_ && !sink_.isComplete(); }
    const XMLEntities& entities() const { return entities_; }

private:
    /// The work of the library on start tags beyond reading them, in comparisons.
    class TagWork {
    public:
        void add(int attributes, int namespaces, int inScope);
        bool isTooMuch() const;

    private:
        std::uint64_t spent_ = 0;
    };

    struct FreeContext {
        void operator()(xmlParserCtxtPtr context) const;
    };

    static XMLRun& self(void* run) { return *static_cast<XMLRun*>(run); }
    static xmlSAXHandler& callbacks();
    static void addTextCallbacks(xmlSAXHandler& handler);
    static void addDeclarationCallbacks(xmlSAXHandler& handler);

    bool isWellFormed() const { return context_->wellFormed != 0; }
    bool isOver() const { return context_->disableSAX != 0 || !isWellFormed(); }
    void stopAsHostile();
    bool isOverloaded();
    bool hasOverlongPart();
    void startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar* uri,
                      int namespaces, const XMLAttributes& attributes);

    std::unique_ptr<xmlParserCtxt, FreeContext> context_;
    XMLSink& sink_;
    XMLEntities entities_;
    const WorkLimit& limit_;
    TagWork work_;
    // A chunk is shorter than harmlessLength, so between two waiting tags the unread input always
    // becomes shorter than that.
    std::ptrdiff_t countedLength_ = 0;
    std::ptrdiff_t countedQuotes_ = 0;
    bool isHostile_ = false;
};

}  // namespace kit
