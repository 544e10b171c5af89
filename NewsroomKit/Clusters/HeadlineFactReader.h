#pragma once

#include <cstddef>

#include "NewsroomKit/Clusters/HeadlineFacts.h"
#include "NewsroomKit/Clusters/HeadlineParts.h"

namespace kit {

/// Reads what a title asserts of products, versions and figures. Of the excerpt only the audience
/// of a beta counts, because excerpts tell of other things too.
class HeadlineFactReader {
public:
    HeadlineFactReader(const HeadlineParts& title, const HeadlineParts& excerpt)
        : title_(title), excerpt_(excerpt) {}

    HeadlineFacts read();

private:
    void readNamed(std::size_t at);
    void readNumber(std::size_t at);
    void addProductsAsParties();
    void addSystem(std::size_t at);
    void addProduct(std::size_t at);
    bool addModel(std::size_t at, HeadlineFacts::Product& product) const;
    void addStage(std::size_t at);
    void addAudiences();
    void addReleaseItself();
    void addFigure(HeadlineFacts::FigureKind kind, std::uint64_t subject, double value,
                   std::uint64_t text = 0);
    const HeadlinePart* partAt(std::size_t at) const;
    std::string_view textAt(std::size_t at) const;

    const HeadlineParts& title_;
    const HeadlineParts& excerpt_;
    HeadlineFacts facts_;
    bool hasVersion_ = false;
};

/// The key of a device together with its models and number; 0 for a device alone.
std::uint64_t productKey(const HeadlineFacts::Product& product);
inline constexpr float kProductShare = 0.006F;
/// The key of "beta 2", however it is written; 0 for figures of other things.
std::uint64_t stageKey(const HeadlineFacts::Figure& figure, const HeadlineFacts& facts);
inline constexpr float kStageShare = 0.01F;

}  // namespace kit
