#include <gtest/gtest.h>

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>

#include "Tarnwick_Brell/Models/Library/LibraryPlace.h"
#include "Tarnwick_Brell/Models/Pages/ClipsPageModel.h"
#include "Tarnwick_Brell/Models/Pages/NotesPageModel.h"
#include "Tarnwick_Brell/Models/Pages/ProjectPageModel.h"
#include "Tarnwick_Brell/Models/Pages/RemovedPageModel.h"
#include "Tarnwick_Brell/Models/Pages/SearchPageModel.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "tests/Tarnwick_Brell/Window/WindowJobTest.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using namespace test;

using ::test::until;

/// The window at a wire of two stories; what is kept is read from the library as another program
/// would.
class LibraryJobTest : public WindowJobTest {
protected:
    void SetUp() override {
        for (const auto* title : {"Harbour opens to boats", "Orchard rows are planted"}) {
            auto story = harness_.story("post", ++minute_, title);
            story.summary = "The gate went up at dawn, and forty boats were waiting outside.";
            harness_.tell(story);
        }
        openWindow();
        QObject::connect(harness_.kept.get(), &LibraryStore::failed,
                         [](const QString& sentence) { ADD_FAILURE() << sentence.toStdString(); });
        type("gw");
        ASSERT_TRUE(until([&] { return list().isComplete() && list().count() == 2; }));
        // The newer one.
        type("j");
        ASSERT_TRUE(until([&] { return model_->selectedStory()->hasStory(); }));
    }

    StoryListModel& list() { return *model_->storyList()->list(); }
    template <class T>
    std::vector<T> kept() {
        LocalStore store(harness_.desk.library(), Database::Access::readWrite);
        return KeptStore(store, harness_.desk.now()).all<T>();
    }
    template <class Page>
    Page& page() {
        return dynamic_cast<Page&>(*model_->page());
    }
    void open(LibraryPlace::Page where, const std::string& id = {}) {
        model_->open(LibraryPlace{where, id}.destination().key());
        ASSERT_TRUE(until([&] { return model_->page()->state() != PanelModel::Loading; }));
        waitForFrame();
    }
    /// The text in the reader that can be selected.
    static QQuickItem* selectableText(QQuickItem& item) {
        if (item.inherits("app::SelectableArea") && item.isVisible()) return &item;
        for (auto* child : item.childItems()) {
            if (auto* found = selectableText(*child)) return found;
        }
        return nullptr;
    }
    bool isWriting() {
        const auto* item = window().activeFocusItem();
        return item && item->inherits("QQuickTextEdit");
    }
    /// A project with the story in it, made as a user makes it.
    std::string makeProject(const char* name) {
        press(Qt::Key_P, Qt::ShiftModifier);
        EXPECT_TRUE(until([&] { return isTyping(); }));
        type(name);
        press(Qt::Key_Return);
        EXPECT_TRUE(until([&] {
            const auto stories = kept<kit::SavedStory>();
            return stories.size() == 1 && !stories.front().projectIDs.empty();
        }));
        press(Qt::Key_Escape);
        EXPECT_TRUE(until([&] { return model_->sheet() == nullptr; }));
        const auto projects = kept<kit::Project>();
        return projects.empty() ? std::string() : projects.front().id;
    }

    int minute_ = 0;
};

TEST_F(LibraryJobTest, AKeyClipsTheHeadlineAndTheSelectedTextAndEachCanBeUndone) {
    type("x");
    ASSERT_TRUE(until([&] { return kept<kit::Clip>().size() == 1; }));
    EXPECT_EQ(kept<kit::Clip>().front().quote, "Orchard rows are planted");
    EXPECT_TRUE(until([&] { return named("Clips, 1") != nullptr; })) << "the sidebar counts it";

    auto* excerpt = selectableText(*window().contentItem());
    ASSERT_NE(excerpt, nullptr);
    const auto top = excerpt->mapToScene(QPointF(1, 8)).toPoint();
    dragTo(top, top + QPoint(90, 0));
    const auto selected = model_->keeping()->selection();
    EXPECT_EQ(selected.left(8), "The gate") << selected.toStdString();
    ASSERT_TRUE(until([&] { return named("Selected text") != nullptr; }));
    type("y");
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains(selected));
    EXPECT_TRUE(until([&] { return named("Selected text") == nullptr; }));

    dragTo(top, top + QPoint(90, 0));
    type("x");
    ASSERT_TRUE(until([&] { return kept<kit::Clip>().size() == 2; }));
    ASSERT_TRUE(until([&] { return undo_.canUndo() && undo_.undoText().contains("The"); }));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return kept<kit::Clip>().size() == 1; }));
    press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return kept<kit::Clip>().size() == 2; }));
    bool hasContext = false;
    for (const auto& clip : kept<kit::Clip>()) hasContext |= !clip.suffix.empty();
    EXPECT_TRUE(hasContext) << "a passage is found again by what stands around it";
}

TEST_F(LibraryJobTest, ANoteOnAStoryIsKeptAsItIsTypedAndWhenTheWindowGoes) {
    type("o");
    ASSERT_TRUE(until([&] { return isWriting(); }));
    type("ask the harbour x");
    ASSERT_TRUE(until([&] { return !kept<kit::Note>().empty(); }));
    type("yz");
    window_.reset();
    model_.reset();
    ASSERT_TRUE(until([&] { return kept<kit::Note>().front().text == "ask the harbour xyz"; }))
        << "what was typed last was not saved yet when the window went";
    EXPECT_EQ(kept<kit::Note>().size(), 1u);
    EXPECT_EQ(kept<kit::Note>().front().storyIDs.size(), 1u);
    EXPECT_TRUE(kept<kit::Clip>().empty()) << "letters in a text are no keys of the window";
}

TEST_F(LibraryJobTest, ANoteIsMadeFoundRemovedAndRestored) {
    press(Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
    ASSERT_TRUE(until([&] { return isWriting(); }));
    type("tide tables");
    ASSERT_TRUE(until([&] { return page<NotesPageModel>().rows()->rowCount() == 1; }));

    press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(until([&] { return model_->placeKey() == "page:search" && isTyping(); }));
    type("tid");
    ASSERT_TRUE(until([&] { return page<SearchPageModel>().rows()->rowCount() == 1; }));
    const auto marked = [&] {
        QStringList parts;
        const auto* rows = page<SearchPageModel>().rows();
        const auto title = rows->index(0, 0).data(rows->roleNames().key("title"));
        for (const auto& part : title.value<QList<MarkedPart>>())
            parts << (part.isMatch ? "[" + part.text + "]" : part.text);
        return parts.join(QString()).toStdString();
    };
    EXPECT_EQ(marked(), "[tide] tables");
    page<SearchPageModel>().openRow(0);
    ASSERT_TRUE(until([&] { return model_->placeKey().startsWith("page:notes/"); }));
    ASSERT_TRUE(until([&] { return page<NotesPageModel>().editor()->text() == "tide tables"; }))
        << page<NotesPageModel>().editor()->text().toStdString();

    page<NotesPageModel>().removeRow(0);
    ASSERT_TRUE(until([&] { return kept<kit::Note>().empty(); }));
    EXPECT_TRUE(until([&] { return !page<NotesPageModel>().editor()->isOpen(); }));
    open(LibraryPlace::Page::removed);
    click(QStringLiteral("Restore"));
    EXPECT_TRUE(until([&] { return kept<kit::Note>().size() == 1; }));
    EXPECT_TRUE(until([&] { return model_->page()->state() == PanelModel::Empty; }));
}

TEST_F(LibraryJobTest, AProjectTakesAStoryShowsItInOrderAndChecksItOff) {
    const auto id = makeProject("Boats");
    ASSERT_FALSE(id.empty());
    EXPECT_TRUE(model_->selectedStory()->reader()->isSaved()) << "a member is saved";
    type("x");
    ASSERT_TRUE(until([&] { return kept<kit::Clip>().size() == 1; }));
    harness_.kept->setMember(id, kit::MemberKind::clip, kept<kit::Clip>().front().id, true);

    open(LibraryPlace::Page::project, id);
    auto& project = page<ProjectPageModel>();
    ASSERT_TRUE(until([&] { return project.rows()->rowCount() == 2; }));
    const auto first = [&] { return column(*project.rows(), "symbol").first(); };
    EXPECT_EQ(first(), "newspaper") << "published before it was clipped";
    press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(until([&] { return first() == "scissors"; }));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return first() == "newspaper"; }));
    type("d");
    EXPECT_TRUE(until([&] { return project.doneText() == "1 of 2 checked"; }));
    press(Qt::Key_Delete);
    EXPECT_TRUE(until([&] { return project.rows()->rowCount() == 1; }));
    EXPECT_TRUE(undo_.undo());
    EXPECT_TRUE(until([&] { return project.rows()->rowCount() == 2; }));
}

TEST_F(LibraryJobTest, AProjectIsExportedIntoAFolderOfItsOwn) {
    const ::test::TemporaryFolder home;
    const auto before = qgetenv("HOME"), settings = qgetenv("XDG_CONFIG_HOME");
    qputenv("HOME", home.path().c_str());
    qputenv("XDG_CONFIG_HOME", (home.path() / "config").c_str());
    open(LibraryPlace::Page::project, makeProject("Boats"));
    click(QStringLiteral("Export evidence"));
    const auto written = [&] { return noticed_.filter(QStringLiteral("Saved as")); };
    EXPECT_TRUE(until([&] { return !written().isEmpty(); })) << noticed_.join(u' ').toStdString();
    const auto pack = written().value(0).section(QStringLiteral("Saved as "), 1).chopped(1);
    EXPECT_TRUE(pack.startsWith(QString::fromStdString(home.path().string())));
    EXPECT_TRUE(QFile::exists(pack + "/index.md")) << pack.toStdString();
    qputenv("HOME", before);
    settings.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", settings);
}

TEST_F(LibraryJobTest, TheNoteOfAClipIsKeptWhenAnotherPageIsOpened) {
    type("x");
    ASSERT_TRUE(until([&] { return kept<kit::Clip>().size() == 1; }));
    open(LibraryPlace::Page::clips);
    auto& clips = page<ClipsPageModel>();
    ASSERT_TRUE(until([&] { return clips.hasClip(); }));
    clips.setNote(QStringLiteral("who counted them?"));
    open(LibraryPlace::Page::notes);
    EXPECT_TRUE(until([&] { return kept<kit::Clip>().front().note == "who counted them?"; }));
    open(LibraryPlace::Page::clips);
    ASSERT_TRUE(until([&] { return page<ClipsPageModel>().note() == "who counted them?"; }));
    click(QStringLiteral("Put into a project"));
    EXPECT_TRUE(until([&] { return model_->sheet() != nullptr; }));
    press(Qt::Key_Escape);
    ASSERT_TRUE(until([&] { return model_->sheet() == nullptr; }));
    page<ClipsPageModel>().openRow(0);
    EXPECT_TRUE(until(
        [&] { return model_->selectedStory()->reader()->title() == "Orchard rows are planted"; }));
    EXPECT_TRUE(until([&] { return named("Clip") != nullptr; })) << "the reader shows its clips";
}

}  // namespace
}  // namespace app
