#pragma once

#include <string>

#include "Tarnwick_Brell/Models/Library/KeptListPageModel.h"

namespace app {

/// The user's projects in the user's order.
class ProjectsPageModel final : public app::KeptListPageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ProjectsPageModel)
    QML_UNCREATABLE("The window makes its pages.")

public:
    ProjectsPageModel(const DeskStores& stores, std::string chosen);

    /// Makes a project and opens it.
    Q_INVOKABLE void addProject(const QString& name);
    Q_INVOKABLE void openRow(int row);
    /// Up or down in the order.
    Q_INVOKABLE void moveRow(int row, int by);

protected:
    void chosenChanged() override {}
    QString nothingKept() const override;
    QString factOf(int count) const override { return tr("%n projects", nullptr, count); }
};

}  // namespace app
