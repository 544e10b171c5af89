#include "NewsroomKit/Feeds/XMLEntities.h"

#include <algorithm>

#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Text/Utf8.h"

namespace kit {
namespace {

// The total expansion of a document's entities. A feed that writes its name with one uses a few
// thousand bytes.
constexpr std::size_t mostExpanded = 2'000'000;
constexpr std::size_t deepestEntity = 40;

/// Escapes text as in an attribute's value.
std::string escapedForAttribute(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&#38;"; break;
            case '<': escaped += "&#60;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

/// While it reads declarations, the library looks up each entity that it has just declared.
bool readsDeclarations(const xmlParserCtxt& context) {
    return context.instate != XML_PARSER_CONTENT && context.instate != XML_PARSER_ATTRIBUTE_VALUE;
}

}  // namespace

void XMLEntities::declare(const xmlChar* name, const xmlChar* value) {
    if (value == nullptr) return;
    declared_.try_emplace(reinterpret_cast<const char*>(name),
                          Declared{.value = reinterpret_cast<const char*>(value)});
}

bool XMLEntities::knows(std::string_view name) const {
    return declared_.find(name) != declared_.end() || namedCharacter(name);
}

bool XMLEntities::spend(std::size_t bytes) {
    spent_ += bytes;
    if (spent_ > mostExpanded) isOverspent_ = true;
    return !isOverspent_;
}

/// The expanded text; null when it would be too long.
const std::string* XMLEntities::textOf(Declared& entity, std::size_t depth) {
    if (!entity.text) {
        if (entity.isBeingExpanded || depth > deepestEntity) isOverspent_ = true;
        if (isOverspent_) return nullptr;
        entity.isBeingExpanded = true;
        std::string text;
        const bool isComplete = appendExpanded(entity.value, depth, text);
        entity.isBeingExpanded = false;
        if (!isComplete) return nullptr;
        entity.text = std::move(text);
    }
    return spend(entity.text->size()) ? &*entity.text : nullptr;
}

bool XMLEntities::appendExpanded(std::string_view value, std::size_t depth, std::string& text) {
    if (!spend(value.size())) return false;
    while (!value.empty()) {
        const auto plain = std::min(value.find('&'), value.size());
        text.append(value.substr(0, plain));
        value.remove_prefix(plain);
        if (value.empty()) break;
        const auto end = value.find(';');
        const auto name = value.substr(1, end == std::string_view::npos ? 0 : end - 1);
        if (const auto entry = declared_.find(name); entry != declared_.end()) {
            const auto* inner = textOf(entry->second, depth + 1);
            if (inner == nullptr) return false;
            text += *inner;
            value.remove_prefix(end + 1);
        } else if (const auto reference = characterReference(value)) {
            appendUTF8(reference->character, text);
            value.remove_prefix(reference->length);
        } else {
            text += '&';
            value.remove_prefix(1);
        }
    }
    return true;
}

xmlEntityPtr XMLEntities::find(const xmlParserCtxt& context, const xmlChar* name) {
    if (readsDeclarations(context)) return nullptr;
    const std::string_view key = reinterpret_cast<const char*>(name);
    const bool inAttribute = context.instate == XML_PARSER_ATTRIBUTE_VALUE;
    if (const auto entry = declared_.find(key); entry != declared_.end()) {
        const auto* text = textOf(entry->second, 0);
        if (text == nullptr) return nullptr;
        text_ = inAttribute ? escapedForAttribute(*text) : *text;
    } else if (const auto character = namedCharacter(key)) {
        text_.clear();
        appendUTF8(*character, text_);
    } else {
        return nullptr;
    }
    entity_ = {};
    entity_.type = XML_ENTITY_DECL;
    entity_.name = name;
    entity_.content = reinterpret_cast<xmlChar*>(text_.data());
    entity_.length = static_cast<int>(text_.size());
    // In text a predefined entity is passed on at once, whereas a general one would get a parser of
    // its own. In an attribute only the first byte of a predefined one counts.
    entity_.etype = inAttribute ? XML_INTERNAL_GENERAL_ENTITY : XML_INTERNAL_PREDEFINED_ENTITY;
    return &entity_;
}

void prepareXMLParser() {
    static const bool isReady = (xmlInitParser(), true);
    static_cast<void>(isReady);
}

}  // namespace kit
