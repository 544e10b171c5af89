#pragma once

#include <string_view>

namespace kit {

/// The bytes of vocabulary.txt, compiled in.
extern const std::string_view kVocabularyText;

}  // namespace kit
