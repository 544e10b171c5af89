#pragma once

#include <cstdint>
#include <vector>

#include <QObject>
#include <QString>
#include <QTimer>

namespace app {

class NewsDesk;

/// The search over the wire: waits for a pause in the typing, asks the desk, and repeats the
/// search after each pass.
class SearchController : public QObject {
    Q_OBJECT
public:
    explicit SearchController(NewsDesk& desk, QObject* parent = nullptr);

    const QString& text() const { return text_; }
    void setText(const QString& text);
    /// Empties the text without `ended`.
    void clear();

    bool isActive() const { return !text_.trimmed().isEmpty(); }
    /// Whether `found` is the answer to the text as it is now.
    bool isAnswered() const { return answeredText_ == text_; }
    /// Numbers of stories, newest first.
    const std::vector<std::int64_t>& found() const { return found_; }

signals:
    void textChanged();
    /// `isRepeated`: the same text was answered before.
    void answered(bool isRepeated);
    /// The text was emptied.
    void ended();

private:
    void search();

    NewsDesk& desk_;
    QString text_;
    QString answeredText_;
    std::vector<std::int64_t> found_;
    QTimer typing_;
};

}  // namespace app
