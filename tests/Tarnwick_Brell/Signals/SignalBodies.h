#pragma once

#include <sstream>
#include <string>
#include <vector>

/// Answers of the signals' servers.
namespace app::test {

/// Items separated by commas, made of the words of a list.
inline std::string joined(const std::string& list, std::string (*item)(const std::string& word)) {
    std::istringstream words(list);
    std::string text, word;
    while (words >> word) text += (text.empty() ? "" : ",") + item(word);
    return text;
}

/// "26.6+ 26.5": a build for each word, whose version it is; signed with a "+".
inline std::string signingBody(const std::string& list, const std::string& name = "Phone") {
    const auto item = [](const std::string& word) {
        const bool isSigned = word.ends_with('+');
        const auto version = word.substr(0, word.size() - (isSigned ? 1 : 0));
        return R"({"version":")" + version + R"(","buildid":"B)" + version + R"(","signed":)" +
               (isSigned ? "true}" : "false}");
    };
    return R"({"name":")" + name + R"(","firmwares":[)" + joined(list, item) + "]}";
}

/// "26.6 26.5": an iOS offer for each version.
inline std::string updatesBody(const std::string& list) {
    const auto item = [](const std::string& word) {
        return R"({"ProductVersion":")" + word + R"(","Build":"B)" + word +
               R"(","PostingDate":"2026-11-02","SupportedDevices":["iPhone17,1"]})";
    };
    return R"({"PublicAssetSets":{"iOS":[)" + joined(list, item) + "]}}";
}

/// An app for each word, which is its id.
inline std::string chartBody(const std::string& list) {
    const auto item = [](const std::string& word) {
        return R"({"id":")" + word +
               R"(","name":"n","artistName":"a","url":"","artworkUrl100":""})";
    };
    return R"({"feed":{"results":[)" + joined(list, item) + "]}}";
}

}  // namespace app::test
