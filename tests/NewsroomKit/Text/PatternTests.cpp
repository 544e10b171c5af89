#include "NewsroomKit/Text/Pattern.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace kit {
namespace {

TEST(Pattern, searchesUTF8WithOrWithoutLetterCase) {
    const struct {
        const char* expression;
        Pattern::Letters letters;
        std::string_view text;
        bool occurs;
    } cases[] = {
        {R"(\bshares (rose|fell)\b)", Pattern::Letters::exact, "its shares rose, we hear", true},
        {R"(\bshares (rose|fell)\b)", Pattern::Letters::exact, "Shares rose", false},
        {R"(\bshares (rose|fell)\b)", Pattern::Letters::exact, "shares roses", false},
        {"^apple’s", Pattern::Letters::ignoringCase, "APPLE’S plan", true},
        {"^apple’s", Pattern::Letters::ignoringCase, "the Apple’s plan", false},
        {"é.x", Pattern::Letters::ignoringCase, "xÉ😀X", true},
        {"a.b", Pattern::Letters::exact,
         "a\xFF"
         "b",
         true},
        {"^$", Pattern::Letters::exact, std::string_view(), true},
    };
    for (const auto& [expression, letters, text, occurs] : cases) {
        EXPECT_EQ(Pattern(expression, letters).occursIn(text), occurs) << expression << text;
    }
}

TEST(Pattern, anExpressionThatDoesNotCompileIsAProgrammingError) {
    EXPECT_THROW(Pattern("(unclosed"), std::invalid_argument);
}

TEST(Pattern, aSearchThatRunsAwayEndsWithoutAMatch) {
    const Pattern runaway("(a+)+$");
    std::string text(64, 'a');
    text.push_back('!');
    EXPECT_FALSE(runaway.occursIn(text));
}

}  // namespace
}  // namespace kit
