#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Editorial/AppleOrigin.h"
#include "NewsroomKit/Editorial/LabelReasons.h"
#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Editorial/StoryLabels.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"

/// The first line is a headline, the rest its excerpt.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kit;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view title = input.substr(0, input.find('\n'));
    const std::string_view summary = input.substr(std::min(input.size(), title.size() + 1));

    const std::string folded = fold(input);
    if (fold(folded) != folded || !isValidUTF8(folded)) std::abort();

    const StoryLabels labels = labelStory(title, summary, false, true);
    if (labels.kind != StoryKindRules::explain(title, summary)) std::abort();
    if (labels.sourcing != SourcingRules::explain(title, summary, false)) std::abort();
    if (explanation(*labels.kind).empty() || explanation(labels.sourcing).empty()) std::abort();

    const PhraseMatcher matcher(title);
    const bool occurs = matcher.matches(PhraseMatcher::normalize(title));
    const bool expected = !matcher.phrase.empty();
    if (occurs != expected) std::abort();

    AppleOrigin::isAppleOnRecord(title, summary);
    return 0;
}
