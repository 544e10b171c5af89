#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Editorial/PhraseMatcher.h"
#include "NewsroomKit/Queries/TermFinder.h"

namespace app {

/// A list or a text of a page, in which something is to be found.
struct FindPart {
    std::function<int()> rows;  ///< of a text 1
    std::function<bool(const kit::TermFinder& finder, int row)> mentions;
    std::function<void(int row)> show;
    int chosen = -1;  ///< the row that is chosen, or none
};

/// Finding words in what the page shows now, without filtering it. The page's parts are searched
/// between frames, from the beginning; the first match from the chosen row on is shown as soon as
/// it is known.
class FindInPage : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one.")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed)
    Q_PROPERTY(bool hasMatches READ hasMatches NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)

public:
    explicit FindInPage(QObject* parent = nullptr);

    bool isOpen() const { return isOpen_; }
    /// Searches again for the words of the last time.
    void open();
    Q_INVOKABLE void close();
    const QString& text() const { return text_; }
    void setText(const QString& text);
    bool hasMatches() const { return !matches_.empty(); }
    /// "3 of 17"; "3 of 17…" while the search goes on.
    QString summary() const;

    /// The next match, after the last one the first.
    Q_INVOKABLE void step(int by);

    /// Where the words are in a text on the screen: beginnings and lengths, in UTF-16.
    std::vector<std::pair<int, int>> ranges(const QString& shown) const;

    void setParts(std::vector<FindPart> parts) { parts_ = std::move(parts); }
    /// What the page shows has changed: searches again when the changes rest.
    void pageChanged();

signals:
    void changed();
    /// Whoever knows the page calls setParts().
    void partsWanted();
    /// A match has been chosen.
    void shown();

private:
    struct Place {
        int part = 0;
        int row = 0;

        auto operator<=>(const Place&) const = default;
    };

    void begin();
    void searchSlice();
    bool searchRow();
    void show(std::size_t match);
    void clearMatches();

    bool isOpen_ = false;
    QString text_;
    std::unique_ptr<kit::PhraseMatcher> phrase_;
    std::unique_ptr<kit::TermFinder> finder_;
    std::vector<FindPart> parts_;
    std::vector<Place> matches_;  ///< rising
    std::size_t current_ = 0;
    bool hasShown_ = false;  ///< `current_` counts
    Place from_;             ///< where the first match to show is looked for
    Place next_;             ///< where the search goes on
    bool isStill_ = false;   ///< nothing is to be shown anew: only the page has changed
    QTimer slices_;
    QTimer rest_;
};

}  // namespace app
