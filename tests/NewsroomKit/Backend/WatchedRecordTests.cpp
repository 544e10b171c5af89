#include "NewsroomKit/Backend/WatchedRecord.h"

#include <string>

#include <gtest/gtest.h>

#include "NewsroomKit/Backend/RecordDiff.h"

namespace kit {
namespace {

/// "+key", "-key", "~key.field: before > after", a line each; "?" for what cannot be read.
std::string told(WatchedSource source, std::string_view before, std::string_view after) {
    const auto old = readWatchedRecords(source, before);
    const auto fresh = readWatchedRecords(source, after);
    if (!old || !fresh) return "?";
    const auto diff = compareRecords(*old, *fresh);
    std::string text;
    for (const auto& record : diff.added) text += "+" + record.key + "\n";
    for (const auto& record : diff.removed) text += "-" + record.key + "\n";
    for (const auto& change : diff.changed) {
        text += "~" + change.key + "." + change.field + ": " + change.before.value_or("none") +
                " > " + change.after.value_or("none") + "\n";
    }
    return text;
}

constexpr auto gdmfBefore = R"({"Public":{"iOS":[
  {"ProductVersion":"9.1","Build":"9A1","PostingDate":"2026-01-01","ExpirationDate":"2026-02-01","SupportedDevices":["b","a"]},
  {"ProductVersion":"9.0","Build":"9A0","PostingDate":"2026-01-01","ExpirationDate":"2026-02-01"}]}})";

TEST(WatchedRecords, of_managed_versions_are_rows_whatever_their_order_and_expiry) {
    const auto shuffled = R"({"Public":{"iOS":[
  {"ExpirationDate":"2026-02-02","ProductVersion":"9.0","Build":"9A0","PostingDate":"2026-01-01"},
  {"ProductVersion":"9.1","SupportedDevices":["a","b"],"Build":"9A1","PostingDate":"2026-01-01"}]}})";
    EXPECT_EQ(told(WatchedSource::gdmf, gdmfBefore, shuffled), "");
    const auto released = R"({"Public":{"iOS":[
  {"ProductVersion":"9.1","Build":"9A1","PostingDate":"2026-01-05","SupportedDevices":["a","b"]},
  {"ProductVersion":"9.1","ProductVersionExtra":"a",
               "Build" : "9A1a", "PostingDate" : "2026-01-05"
}]
}
})";
    EXPECT_EQ(told(WatchedSource::gdmf, gdmfBefore, released),
              "+Public iOS 9.1 a 9A1a\n-Public iOS 9.0 9A0\n"
              "~Public iOS 9.1 9A1.PostingDate: 2026-01-01 > 2026-01-05\n");
    EXPECT_EQ(told(WatchedSource::gdmf, gdmfBefore, R"({"message":"down"})"), "?");
}

TEST(WatchedRecords, of_robots_are_rules_of_agents) {
    const auto before =
        "# token 1\nUser-agent: a\nUser-agent: b\nDisallow: /x\t\n\nSitemap: https://s/1";
    const auto after =
        "#token 2\nuser-agent: b\ndisallow: /x\nAllow: /y # why\nSitemap: https://s/2";
    EXPECT_EQ(told(WatchedSource::robots, before, after),
              "+Sitemap: https://s/2\n+User-agent: b | Allow: /y\n"
              "-Sitemap: https://s/1\n-User-agent: a | Disallow: /x\n");
    EXPECT_EQ(told(WatchedSource::robots, before, "<html>Not found"), "?");
}

TEST(WatchedRecords, of_other_files_know_their_entries_by_what_they_are) {
    const struct {
        WatchedSource source;
        const char* before;
        const char* after;
        const char* told;
    } cases[] = {
        {WatchedSource::json, R"({"b":1,"a":{"c":[1,2]},"generated":1})",
         R"({"generated":2,"a":{"c":[2,3]},"b":2})", "+a/c[] = 3\n-a/c[] = 1\n~b.value: 1 > 2\n"},
        {WatchedSource::json, R"([{"id":"x","on":true},{"id":"y","on":true}])",
         R"([{"id":"y","on":false},{"id":"x","on":true}])", "~[y]/on.value: true > false\n"},
        {WatchedSource::json, "[1,", "[1]", "?"},
        {WatchedSource::aasa, R"({"applinks":{"details":[{"appID":"T.a","paths":["/x","/y"]}]}})",
         R"({"applinks":{"details":[{"appIDs":["T.a"],"paths":["/y","/z"]}]}})",
         "+applinks T.a /z\n-applinks T.a /x\n"},
        {WatchedSource::sitemap,
         "<urlset><url><loc>https://s/1</loc><lastmod>1</lastmod></url></urlset>",
         "<urlset><url><loc>https://s/1</loc><lastmod>2</lastmod></url><url><loc>https://s/2</loc>"
         "</url></urlset>",
         "+https://s/2\n"},
        {WatchedSource::catalogue,
         "<plist><dict><key>Products</key><dict><key>001</key><dict><key>PostDate</key>"
         "<date>2026</date></dict></dict></dict></plist>",
         "<plist><dict><key>Products</key><dict><key>002</key><dict/></dict></dict></plist>",
         "+002\n-001\n"},
    };
    for (const auto& one : cases) EXPECT_EQ(told(one.source, one.before, one.after), one.told);
}

// {Blob: 01 02 03, Enabled: true, Names: [b, a], Rate: 1.5, Ü: ß}
const std::string binaryList(
    "bplist00\xd5\x01\x02\x03\x04\x05\x06\x07\x08\x0b\x0cTBlobWEnabledUNamesTRatea\x00\xdc"
    "C\x01\x02\x03\x09\xa2\x09\x0aQbQa#\x3f\xf8\x00\x00\x00\x00\x00\x00"
    "a\x00\xdf\x08\x13\x18\x20\x26\x2b\x2e\x32\x33\x36\x38\x3a\x43\x00\x00\x00\x00\x00\x00\x01\x01"
    "\x00\x00\x00\x00\x00\x00\x00\x0d\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
    "\x46",
    115);

TEST(WatchedRecords, are_the_same_in_binary_and_in_XML) {
    EXPECT_EQ(told(WatchedSource::plist, binaryList,
                   "<plist><dict><key>Rate</key><real>1.5</real><key>Blob</key><data>AQID</data>"
                   "<key>Names</key><array><string>a</string><string>b</string></array>"
                   "<key>Enabled</key><true/><key>Ü</key><string>ß</string></dict></plist>"),
              "");
}

/// A binary list of two objects whose single list refers `count` times to the object `target`.
std::string nestedList(int count, char target) {
    std::string list = "bplist00\xaf\x11";
    list += static_cast<char>(count >> 8);
    list += static_cast<char>(count & 0xFF);
    list += std::string(static_cast<std::size_t>(count), target);
    const auto text = list.size();
    list += "Qx";
    const auto table = list.size();
    for (const auto offset : {std::size_t{8}, text}) {
        list += static_cast<char>(offset >> 8);
        list += static_cast<char>(offset & 0xFF);
    }
    list += std::string(6, '\0') + '\2' + '\1' + std::string(7, '\0') + '\2' + std::string(8, '\0');
    list += std::string(6, '\0') + static_cast<char>(table >> 8) + static_cast<char>(table & 0xFF);
    return list;
}

TEST(WatchedRecords, of_hostile_files_are_refused_in_bounded_time) {
    EXPECT_TRUE(readWatchedRecords(WatchedSource::plist, nestedList(300, '\1')));
    EXPECT_FALSE(readWatchedRecords(WatchedSource::plist, nestedList(300, '\0')));  // in itself
    for (std::size_t length = 0; length < binaryList.size(); ++length) {
        EXPECT_FALSE(readWatchedRecords(WatchedSource::plist, binaryList.substr(0, length)));
    }
    std::string manyEntries(20'000'000, '1');
    for (std::size_t i = 1; i < manyEntries.size(); i += 2) manyEntries[i] = ',';
    EXPECT_FALSE(readWatchedRecords(WatchedSource::json, "[" + manyEntries + "1]"));
    EXPECT_FALSE(readWatchedRecords(WatchedSource::json, std::string(5'000, '[')));
    std::string deep;
    for (int i = 0; i < 5'000; ++i) deep += "<array>";
    EXPECT_FALSE(readWatchedRecords(WatchedSource::plist, "<plist>" + deep));
}

TEST(FindingSentences, tell_facts_and_count_what_is_many) {
    const auto sentences = [](WatchedSource source, std::string_view before,
                              std::string_view after) {
        return findingSentences(source, compareRecords(*readWatchedRecords(source, before),
                                                       *readWatchedRecords(source, after)));
    };
    EXPECT_EQ(sentences(WatchedSource::gdmf, gdmfBefore,
                        R"({"Public":{"iOS":[{"ProductVersion":"9.2","Build":"9B1"}]}})"),
              (std::vector<std::string>{
                  "Build 9B1 of iOS 9.2 appeared in Apple's list of versions for managed devices.",
                  "iOS 9.0 (9A0) left Apple's list of versions for managed devices.",
                  "iOS 9.1 (9A1) left Apple's list of versions for managed devices."}));
    std::string many = "<urlset>";
    for (int i = 0; i < 250; ++i)
        many += "<url><loc>https://s/" + std::to_string(i) + "</loc></url>";
    EXPECT_EQ(
        sentences(WatchedSource::sitemap, "<urlset/>", many + "</urlset>"),
        (std::vector<std::string>{"The site map was rebuilt: 250 addresses are new, 0 are gone."}));
}

}  // namespace
}  // namespace kit
