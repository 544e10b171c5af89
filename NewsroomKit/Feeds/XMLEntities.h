#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include <libxml/parser.h>

namespace kit {

/// Provides the entities of a document to libxml2: those that its internal subset declares, and
/// HTML's names that XML lacks ("&nbsp;"). A declared entity is provided as plain text, so that the
/// library never parses its value. One object per parser.
class XMLEntities {
public:
    /// For the entityDecl callback: an internal general entity. The first declaration of a name
    /// counts.
    void declare(const xmlChar* name, const xmlChar* value);

    /// For the getEntity callback: valid until the next call; null for an unknown name.
    xmlEntityPtr find(const xmlParserCtxt& context, const xmlChar* name);

    /// Whether `name` is an entity, XML's own five included.
    bool knows(std::string_view name) const;

    /// True when the entities of the document expand to more text than any honest document needs,
    /// or when one refers to itself.
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

/// Initialises libxml2 once per process, before several threads use it.
void prepareXMLParser();

}  // namespace kit
