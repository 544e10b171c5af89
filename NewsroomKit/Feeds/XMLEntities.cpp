#include "NewsroomKit/Feeds/XMLEntities.h"

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/Utf8.h"

namespace newsroom {

xmlEntityPtr XMLEntities::find(const xmlParserCtxt& context, const xmlChar* name) {
    const auto character = namedCharacter(reinterpret_cast<const char*>(name));
    if (!character) return nullptr;
    text_.clear();
    appendUTF8(*character, text_);
    entity_ = {};
    entity_.type = XML_ENTITY_DECL;
    entity_.name = name;
    entity_.content = reinterpret_cast<xmlChar*>(text_.data());
    entity_.length = static_cast<int>(text_.size());
    // In text a predefined entity is handed over at once, where a general one would get a
    // parser of its own. In an attribute only the first byte of a predefined one counts.
    entity_.etype = context.instate == XML_PARSER_ATTRIBUTE_VALUE ? XML_INTERNAL_GENERAL_ENTITY
                                                                  : XML_INTERNAL_PREDEFINED_ENTITY;
    return &entity_;
}

void prepareXMLParser() {
    static const bool isReady = (xmlInitParser(), true);
    static_cast<void>(isReady);
}

}  // namespace newsroom
