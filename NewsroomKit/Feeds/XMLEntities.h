#pragma once

#include <string>

#include <libxml/parser.h>

namespace newsroom {

/// Serves libxml2's parsers the names that HTML has and XML has not ("&nbsp;"). One object for
/// each parser.
class XMLEntities {
public:
    /// For the getEntity callback: valid until the next call; null for a name that HTML has not.
    xmlEntityPtr find(const xmlParserCtxt& context, const xmlChar* name);

private:
    xmlEntity entity_{};
    std::string text_;
};

/// Makes libxml2 ready, once for the process, before threads can meet in it.
void prepareXMLParser();

}  // namespace newsroom
