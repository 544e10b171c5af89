#pragma once

#include <QString>
#include <QTranslator>

namespace app {

/// Languages that nobody speaks, with which a translator sees what a window would do in others:
/// "en_XA" has accents and is half as long again, "ar_XB" runs from right to left. What is shown
/// without brackets is not translated; what shows only one bracket is cut.
class PseudoTranslator : public QTranslator {
    Q_OBJECT
public:
    enum class Language { none, accented, mirrored };

    /// Of the user, as the environment names it: LC_ALL before LC_MESSAGES before LANG.
    static Language ofEnvironment();

    /// `english` has the plural forms and must outlive it.
    PseudoTranslator(Language language, const QTranslator& english, QObject* parent);

    QString translate(const char* context, const char* source, const char* note,
                      int count) const override;
    bool isEmpty() const override { return false; }

private:
    Language language_;
    const QTranslator& english_;
};

}  // namespace app
