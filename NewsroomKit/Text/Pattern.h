#pragma once

#include <memory>
#include <string_view>

namespace kit {

/// A regular expression in ICU's dialect ("\b" is its simple word boundary), compiled once
/// and then shared read-only: every search uses a matcher of its own, so one pattern serves
/// all threads.
class Pattern {
public:
    enum class Letters { exact, ignoringCase };

    /// Expressions are constants of the program: one that does not compile throws
    /// std::invalid_argument.
    explicit Pattern(std::string_view expression, Letters letters = Letters::exact);
    ~Pattern();
    Pattern(Pattern&&) noexcept;
    Pattern& operator=(Pattern&&) noexcept;

    /// Whether the expression matches anywhere in the text. Work and backtracking memory
    /// are bounded; a text that needs more than the bounds counts as not matching. The
    /// bounds count steps, not seconds, so the answer is the same on every machine.
    bool occursIn(std::string_view utf8) const;

private:
    struct Compiled;
    std::unique_ptr<const Compiled> compiled_;
};

}  // namespace kit
