#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <libxml/parser.h>

namespace kit {

/// Serves libxml2's parsers the entities of a document: those that its internal subset declares,
/// and the names that HTML has and XML has not ("&nbsp;"). A declared entity is served as plain
/// text, so that the library never parses its value. One object for each parser.
class XMLEntities {
public:
    /// For the entityDecl callback: an internal general entity. The first of a name counts.
    void declare(const xmlChar* name, const xmlChar* value);

    /// For the getEntity callback: valid until the next call; null for an unknown name.
    xmlEntityPtr find(const xmlParserCtxt& context, const xmlChar* name);

    /// Whether `name` stands for something, XML's own five names included.
    bool knows(std::string_view name) const;

    /// Whether the document wants more text from its entities than any honest one, or declares
    /// an entity by itself.
    bool isOverspent() const { return isOverspent_; }

private:
    struct Declared {
        std::string value;  ///< with references to other entities
        std::optional<std::string> text{};
        bool isBeingExpanded = false;
    };

    const std::string* textOf(Declared& entity, std::size_t depth);
    bool appendExpanded(std::string_view value, std::size_t depth, std::string& text);
    bool spend(std::size_t bytes);

    std::map<std::string, Declared, std::less<>> declared_;
    std::size_t spent_ = 0;
    bool isOverspent_ = false;
    xmlEntity entity_{};
    std::string text_;
};

/// Makes libxml2 ready, once for the process, before threads can meet in it.
void prepareXMLParser();

}  // namespace kit
