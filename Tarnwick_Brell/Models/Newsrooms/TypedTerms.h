#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <QString>
#include <QStringList>

#include "NewsroomKit/Queries/TermList.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

/// The words of a query in a field of words.
namespace app {

inline QStringList shownTerms(const std::vector<std::string>& terms) {
    QStringList shown;
    for (const auto& term : terms) shown << titleText(term);
    return shown;
}

/// Adds the words of a typed or pasted list that are not there yet.
inline void addTypedTerms(std::vector<std::string>& terms, const QString& text) {
    for (auto& term : kit::separatedTerms(text.toStdString())) {
        if (std::find(terms.begin(), terms.end(), term) == terms.end())
            terms.push_back(std::move(term));
    }
}

inline void removeTermAt(std::vector<std::string>& terms, int index) {
    if (index >= 0 && index < std::ssize(terms)) terms.erase(terms.begin() + index);
}

}  // namespace app
