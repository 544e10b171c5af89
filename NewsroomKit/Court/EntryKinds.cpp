#include "NewsroomKit/Court/EntryKinds.h"

#include <algorithm>
#include <array>

#include "NewsroomKit/Text/Pattern.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

struct KindRule {
    std::string_view expression;
    DocketWeight weight;
};

constexpr auto kMatters = DocketWeight::matters;
constexpr auto kRoutine = DocketWeight::routine;

/// The first rule that matches decides; what matches none is routine. Rows of papers that only
/// mention a ruling or a complaint stand before the rulings and complaints themselves.
constexpr std::array kKindRules{
    // Appearances and service
    KindRule{R"(\bpro hac vice\b|\bappearance\b)", kRoutine},
    KindRule{R"(\b(withdrawal?|substitution|change) (of|as) (counsel|attorney|address)\b)",
             kRoutine},
    KindRule{R"(\b(certificate|affidavit|proof|waiver|declaration|acknowledg\w+) of service\b)",
             kRoutine},
    KindRule{R"(\bsummons\b|\bcover sheet\b|\bdisclosure statement\b|\bmail order\b)", kRoutine},
    // The clerk's and the parties' housekeeping
    KindRule{R"(\bfee payment\b|\bpayment of (the )?(filing |docket )?fee\b|\bfiling fee\b)",
             kRoutine},
    KindRule{R"(\bnotice of (filing|hearing|change|submission)\b|\btransmission to\b)", kRoutine},
    KindRule{R"(\btranscript\b|\bproposed (order|judgment)\b|^~util\b)", kRoutine},
    KindRule{R"(\bsealing\b|\b(under|to|motion) seal\b)", kRoutine},
    KindRule{R"(\bscheduling (notification|stipulation|conference)\b)", kRoutine},
    KindRule{R"(\bstipulat\w+\b.*\b(schedul\w+|deadlines?|time|extend\w*|seal|page)\b)", kRoutine},
    KindRule{R"(^(?!.*\border\b).*\b(extension of time|extend)\b)", kRoutine},
    // What the court decides
    KindRule{R"(\b(order(s|ed|ing)?|opinion|judge?ment|verdict|ruling|decision|mandate)\b)",
             kMatters},
    KindRule{R"(\bmemo endorsement\b|\bendorsed letter\b|\binjunction\b|\brestraining\b)",
             kMatters},
    KindRule{R"(\bterminat(ion|ed|ing)\b.*\bcase\b|\bcase terminat|\bclose .*\bcase\b)", kMatters},
    // What begins, decides or ends a case
    KindRule{R"(\b(cross-?)?complaint\b|\bpetition\b|\bindictment\b|\bnotice of removal\b)",
             kMatters},
    KindRule{R"(\banswer\b|\bcounterclaims?\b|\bopposition\b|\boppos(es|ing)\b)", kMatters},
    KindRule{R"(\bdismiss(al|ed|ing)?\b|\bremand\b|\bclass certification\b)", kMatters},
    KindRule{R"(\bnotice of (cross-?)?appeal\b|\bsettle(ment|d)?\b|\bconsent decree\b)", kMatters},
};

/// The table with its expressions compiled.
class CompiledKinds {
public:
    CompiledKinds() {
        for (const auto& rule : kKindRules) {
            rules_.push_back(
                {Pattern(rule.expression, Pattern::Letters::ignoringCase), rule.weight});
        }
    }

    DocketWeight weight(std::string_view kind) const {
        const auto rule = std::ranges::find_if(
            rules_, [&](const Compiled& r) { return r.pattern.occursIn(kind); });
        return rule == rules_.end() ? DocketWeight::routine : rule->weight;
    }

private:
    struct Compiled {
        Pattern pattern;
        DocketWeight weight;
    };

    std::vector<Compiled> rules_;
};

// What follows these words names parties, other entries and dates.
constexpr std::array<std::string_view, 14> kKindEndings{
    " by ",         " filed ",  " against ", " re ", " re: ", " as to ", " amending ",
    " held before", " Signed ", " (",        ". ",   ", ",    "; ",      "\n"};

constexpr std::size_t kLongestKind = 80;

}  // namespace

DocketWeight docketWeight(std::string_view kind) {
    static const CompiledKinds kinds;
    return kinds.weight(kind);
}

std::string docketKind(std::string_view text) {
    auto kind = trimWhitespaceAndNewlines(text);
    auto end = kind.size();
    for (const auto ending : kKindEndings) end = std::min(end, kind.find(ending, 1));
    kind = kind.substr(0, end);
    while (kind.ends_with('.') || kind.ends_with(':')) kind.remove_suffix(1);
    const auto first = firstCharacters(kind, kLongestKind);
    if (first.size() < kind.size()) kind = first.substr(0, first.rfind(' '));
    return std::string(trimWhitespaceAndNewlines(kind));
}

}  // namespace kit
