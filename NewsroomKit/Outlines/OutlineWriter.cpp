#include "NewsroomKit/Outlines/OutlineWriter.h"

#include <libxml/xmlwriter.h>

#include <algorithm>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>

#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

struct XMLDeleter {
    void operator()(xmlTextWriter* writer) const { xmlFreeTextWriter(writer); }
    void operator()(xmlBuffer* buffer) const { xmlBufferFree(buffer); }
};

const xmlChar* name(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

/// Wraps the library's writer, which escapes, and throws when the library reports an error.
class Markup {
public:
    Markup() : buffer_(xmlBufferCreate()), writer_(xmlNewTextWriterMemory(buffer_.get(), 0)) {
        if (!buffer_ || !writer_) throw std::bad_alloc();
        xmlTextWriterSetIndent(writer_.get(), 1);
        xmlTextWriterSetIndentString(writer_.get(), name("  "));
        check(xmlTextWriterStartDocument(writer_.get(), "1.0", "UTF-8", nullptr));
    }

    void open(const char* element) {
        check(xmlTextWriterStartElement(writer_.get(), name(element)));
    }
    void close() { check(xmlTextWriterEndElement(writer_.get())); }
    void attribute(const char* key, std::string_view value) {
        check(xmlTextWriterWriteAttribute(writer_.get(), name(key), name(clean(value).c_str())));
    }
    void element(const char* key, std::string_view text) {
        check(xmlTextWriterWriteElement(writer_.get(), name(key), name(clean(text).c_str())));
    }

    std::string finish() {
        check(xmlTextWriterEndDocument(writer_.get()));
        writer_.reset();
        return reinterpret_cast<const char*>(xmlBufferContent(buffer_.get()));
    }

private:
    static void check(int written) {
        if (written < 0) throw std::runtime_error("The list of feeds could not be written.");
    }

    /// Removes characters that XML forbids; the library only escapes markup characters.
    static std::string clean(std::string_view text) {
        std::string storage;
        return validUTF8(withoutForbiddenCharacters(text, storage));
    }

    std::unique_ptr<xmlBuffer, XMLDeleter> buffer_;
    std::unique_ptr<xmlTextWriter, XMLDeleter> writer_;
};

void writeFeed(Markup& markup, const OutlineFeed& feed) {
    markup.open("outline");
    markup.attribute("text", feed.title);
    markup.attribute("title", feed.title);
    markup.attribute("type", feed.feedURL.empty() ? "text" : "rss");
    if (!feed.feedURL.empty()) markup.attribute("xmlUrl", feed.feedURL);
    if (!feed.siteURL.empty()) markup.attribute("htmlUrl", feed.siteURL);
    markup.close();
}

}  // namespace

std::string writeOutlines(const Outlines& outlines) {
    Markup markup;
    markup.open("opml");
    markup.attribute("version", "2.0");
    markup.open("head");
    markup.element("title", outlines.title);
    markup.close();
    markup.open("body");
    std::vector<std::string> open;
    for (const auto& feed : outlines.feeds) {
        const auto [differs, wanted] =
            std::mismatch(open.begin(), open.end(), feed.folders.begin(), feed.folders.end());
        const auto shared = static_cast<std::size_t>(wanted - feed.folders.begin());
        for (; open.size() > shared; open.pop_back()) markup.close();
        for (std::size_t i = shared; i < feed.folders.size(); ++i) {
            markup.open("outline");
            markup.attribute("text", feed.folders[i]);
            open.push_back(feed.folders[i]);
        }
        writeFeed(markup, feed);
    }
    return markup.finish();
}

}  // namespace kit
