#include <gtest/gtest.h>

#include "NewsroomKit/Trackers/Signing/SigningNews.h"

namespace kit {
namespace {

using namespace std::chrono_literals;

TEST(SigningNews, ABuildIsToldOnceForAllDevicesThatChangedTogether) {
    const Instant now(100h);
    std::vector<SigningChange> changes;
    const auto add = [&](const char* device, const char* name, bool isSigned, Instant seenAt) {
        changes.push_back({device, name, "27.1", "24B83", isSigned, seenAt});
    };
    for (const auto* name : {"A", "B", "C", "D"}) add("iPhone17,3", name, false, now);
    add("iPhone17,4", "D", false, now);  // two models of one name
    add("iPad16,1", "Pad", false, now + 2min);
    add("Mac16,1", "Book", true, now);
    add("iPhone17,3", "", false, now - 3h);
    std::vector<std::string> sentences;
    for (const auto& news : signingNews(changes)) sentences.push_back(news.sentence());
    EXPECT_EQ(sentences, (std::vector<std::string>{
                             "iOS 27.1 (24B83) is no longer signed for A, B and 2 others.",
                             "iPadOS 27.1 (24B83) is no longer signed for Pad.",
                             "macOS 27.1 (24B83) is now signed for Book.",
                             "iOS 27.1 (24B83) is no longer signed for iPhone17,3.",
                         }));
    changes.resize(3);
    EXPECT_EQ(signingNews(changes).at(0).sentence(),
              "iOS 27.1 (24B83) is no longer signed for A, B and C.");
}

}  // namespace
}  // namespace kit
