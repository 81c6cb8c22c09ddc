// Dialogs that the main window shows by their numbers.
#include "core/Messages.h"
#include "support/Dialogs.h"
#include "support/WindowFixture.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include <stdexcept>

namespace korvanel::test {
namespace {

class MainWindowDialogs : public WindowTest
{
protected:
    MainWindowDialogs() { shell.dialogs.clear(); } // all of them are really shown
};

TEST_F(MainWindowDialogs, ShowDialog_ReturnsWhetherTheUserAcceptsIt)
{
    for (const bool isAccepted : {true, false, true}) {
        WithNextDialog<FormH7>([isAccepted](FormH7& dialog) { isAccepted ? dialog.accept() : dialog.reject(); });
        EXPECT_EQ(window.ShowDialog(kDialogWiring), isAccepted);
    }
}

TEST_F(MainWindowDialogs, ShowDialog_OpensOverTheWindowAndGoesWithItsEnd)
{
    OpenInWindow(0);
    window.UnloadAndOpen(kPageGeneralData);
    QPointer<QDialog> shown;
    WithNextDialog<FormH7>([&](FormH7& dialog) {
        shown = &dialog;
        EXPECT_EQ(dialog.parentWidget(), &window);
        EXPECT_TRUE(dialog.isModal());
        EXPECT_TRUE(dialog.isWindow());
        EXPECT_EQ(PageName(), "FormF1") << "the page stays";
        dialog.accept();
    });
    EXPECT_TRUE(window.ShowDialog(kDialogWiring));
    EXPECT_TRUE(shown.isNull());
    EXPECT_EQ(PageName(), "FormF1");
}

TEST_F(MainWindowDialogs, ShowDialog_ShowsEachDialogOfTheTable)
{
    for (const DialogEntry& entry : Dialogs()) {
        QString name;
        WithNextDialog<QDialog>([&name](QDialog& dialog) {
            name = dialog.objectName();
            dialog.reject();
        });
        EXPECT_FALSE(window.ShowDialog(entry.number));
        EXPECT_EQ(name, QLatin1String(entry.name));
    }
}

TEST_F(MainWindowDialogs, ShowDialog_OfAnUnknownNumberIsAnErrorThatNamesIt)
{
    EXPECT_THROW(window.ShowDialog(1), std::out_of_range);
    RunGuarded("mnuInfo", [this] { window.ShowDialog(77); });
    EXPECT_EQ(shell.BoxTexts(), QStringList{"mnuInfo\nno dialog 77"});
}

TEST_F(MainWindowDialogs, RegisterDialog_ASecondTimeReplacesTheFirst)
{
    window.RegisterDialog(kDialogAbout, BuildDialog<FormH7>);
    QString name;
    WithNextDialog<QDialog>([&name](QDialog& dialog) {
        name = dialog.objectName();
        dialog.accept();
    });
    EXPECT_TRUE(window.ShowDialog(kDialogAbout));
    EXPECT_EQ(name, "FormH7");
}

TEST_F(MainWindowDialogs, RunPage_ShowsTheWiring)
{
    OpenInWindow(0);
    window.UnloadAndOpen(kPageMeasure);
    bool isShown = false;
    WithNextDialog<FormH7>([&isShown](FormH7& dialog) {
        isShown = true;
        dialog.accept();
    });
    Find<QPushButton>("cmdInfo").click();
    EXPECT_TRUE(isShown);
    EXPECT_EQ(shell.BoxTexts(), QStringList());
}

TEST_F(MainWindowDialogs, MissingMotorDatabase_LeadsToTheDialogThatChoosesAnother)
{
    App().sMotorDbPath = PathOf("nirgends.MDB");
    bool isShown = false;
    WithNextDialog<FormH11>([&isShown](FormH11& dialog) {
        isShown = true;
        dialog.reject();
    });
    EXPECT_EQ(OpenMotorDb(), nullptr);
    EXPECT_TRUE(isShown);
    EXPECT_EQ(shell.boxes.size(), 1U) << "the missing file was told before";
}

} // namespace
} // namespace korvanel::test
