#include "NewsroomKit/Feeds/XMLTree.h"

#include <algorithm>

#include "NewsroomKit/Feeds/FeedEncoding.h"
#include "NewsroomKit/Feeds/XMLRun.h"
#include "NewsroomKit/Feeds/XMLSanitizer.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

std::string_view textOf(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

/// Builds the tree of a document.
class XMLTreeBuilder final : public XMLSink {
public:
    void startElement(const xmlChar* localName, const xmlChar* prefix, const xmlChar*,
                      const XMLAttributes& attributes) override {
        ++count_;
        auto& element = open_.emplace_back();
        element.name = textOf(localName);
        element.prefix = textOf(prefix);
        element.attributes.reserve(attributes.size());
        for (std::size_t index = 0; index < attributes.size(); ++index) {
            const auto attribute = attributes[index];
            element.attributes.emplace_back(attribute.name, attribute.value);
        }
    }

    void endElement(const xmlChar*) override {
        auto element = std::move(open_.back());
        open_.pop_back();
        if (open_.empty()) {
            root_ = std::move(element);
        } else {
            open_.back().children.push_back(std::move(element));
        }
    }

    void text(std::string_view characters) override {
        if (!open_.empty()) open_.back().text.append(characters);
    }

    std::size_t depth() const override { return open_.size(); }
    bool isComplete() const override { return count_ > mostXMLElements; }

    /// Nothing when elements are missing.
    std::optional<XMLElement> finish() && {
        if (isComplete()) return std::nullopt;
        return std::move(root_);
    }

private:
    std::vector<XMLElement> open_;
    std::optional<XMLElement> root_;
    std::size_t count_ = 0;
};

}  // namespace

std::string_view XMLElement::attribute(std::string_view attributeName) const {
    const auto found =
        std::ranges::find(attributes, attributeName, &std::pair<std::string, std::string>::first);
    return found == attributes.end() ? std::string_view() : std::string_view(found->second);
}

const XMLElement* XMLElement::child(std::string_view childName) const {
    const XMLElement* prefixed = nullptr;
    for (const auto& element : children) {
        if (element.name != childName) continue;
        if (element.prefix.empty()) return &element;
        if (prefixed == nullptr) prefixed = &element;
    }
    return prefixed;
}

std::string_view XMLElement::childText(std::string_view childName) const {
    const auto* const element = child(childName);
    return element == nullptr ? std::string_view() : trimWhitespaceAndNewlines(element->text);
}

std::optional<XMLElement> parseXMLTree(std::string_view bytes, const WorkLimit& limit) {
    prepareXMLParser();
    std::string storage;
    const auto document = withoutForbiddenCharacters(feedInUTF8(bytes, storage), storage);
    XMLTreeBuilder builder;
    XMLRun run(builder, limit);
    run.parse(document);
    if (run.isSound()) return std::move(builder).finish();
    if (!run.isIllFormed()) return std::nullopt;
    const auto mended = withStrayAmpersandsEscaped(
        document, [&](std::string_view name) { return run.entities().knows(name); });
    if (mended.size() == document.size()) return std::nullopt;
    XMLTreeBuilder second;
    XMLRun secondRun(second, limit);
    secondRun.parse(mended);
    if (!secondRun.isSound()) return std::nullopt;
    return std::move(second).finish();
}

}  // namespace kit
