#pragma once

#include <string>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Pages/WordDiff.h"

namespace kit {

/// A change in one line of words, with every word that changed. `diff` is that of the two texts.
std::string changedSentence(const PageBlock& before, const PageBlock& after, const WordDiff& diff);
std::string addedSentence(const PageBlock& block);
std::string removedSentence(const PageBlock& block);
std::string movedSentence(const PageBlock& block);
/// Both have the same text, and links that lead to different addresses.
std::string linksSentence(const PageBlock& before, const PageBlock& after);

}  // namespace kit
