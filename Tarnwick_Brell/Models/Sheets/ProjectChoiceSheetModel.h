#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>

#include "NewsroomKit/Library/ProjectTimeline.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"

namespace app {

/// A project that the thing is in, or can be put into.
struct ProjectChoice {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

public:
    QString name{};
    QString detail{};       ///< the beginning of its description
    bool isChosen = false;  ///< the thing is in it
    std::string id{};

    bool operator==(const ProjectChoice&) const = default;
};

/// Puts a story, a clip or a note into projects and takes it out; each change works at once and can
/// be undone. The sheet's subject is the member's key, such as "clip:8B3D…".
class ProjectChoiceSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ProjectChoiceSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QAbstractListModel* projects READ projects CONSTANT)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(bool hasNone READ hasNone NOTIFY changed)

public:
    /// Null when the subject names no member.
    static std::unique_ptr<SheetModel> make(const DeskStores& stores, const QString& subject);
    ProjectChoiceSheetModel(const DeskStores& stores, kit::MemberKind kind, std::string id);

    QAbstractListModel* projects() { return &projects_; }
    /// What is put into them.
    const QString& title() const { return title_; }
    bool hasNone() const { return isRead_ && projects_.rowCount() == 0; }

    Q_INVOKABLE void toggle(int row);
    /// Makes a project with the thing in it.
    Q_INVOKABLE void addProject(const QString& name);

signals:
    void changed();

private:
    void read();
    template <class T>
    void readMember();
    void show();
    template <class T>
    void take(const std::optional<T>& member);

    DeskStores stores_;
    kit::MemberKind kind_;
    std::string id_;
    QString title_;
    std::vector<KeptRow> rows_;
    std::set<std::string> isIn_;
    bool isRead_ = false;
    GadgetListModel<ProjectChoice> projects_;
};

}  // namespace app
