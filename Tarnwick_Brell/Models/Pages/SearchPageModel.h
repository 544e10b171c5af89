#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>
#include <QTimer>

#include "Tarnwick_Brell/Models/Library/KeptLine.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// One search over stories, notes, clips, projects and what the trackers logged.
class SearchPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SearchPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString listMessage READ listMessage NOTIFY changed)
    Q_PROPERTY(QList<QString> scopes READ scopes CONSTANT)
    Q_PROPERTY(int scope READ scope WRITE setScope NOTIFY changed)

public:
    SearchPageModel(const DeskStores& stores, std::string words);

    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    const QString& listMessage() const { return listMessage_; }
    QStringList scopes() const;
    int scope() const { return static_cast<int>(scope_); }
    void setScope(int scope);

    Q_INVOKABLE void openRow(int row);

protected:
    bool hasBar() const override { return true; }

private:
    void find();
    void show(const std::vector<SearchHit>& hits);

    GadgetListModel<KeptLine> rows_;
    int row_ = -1;
    QString words_;
    SearchScope scope_ = SearchScope::all;
    QString listMessage_;
    std::uint64_t asked_ = 0;  ///< the newest search wins
    QTimer soon_;
};

}  // namespace app
