#include "project/FormF1.h"

#include "support/WindowFixture.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormF1Test : public WindowTest
{
protected:
    void ShowPage()
    {
        OpenInWindow(0);
        window.UnloadAndOpen(1);
    }
};

TEST_F(FormF1Test, ShowsTheHeader)
{
    ShowPage();
    EXPECT_EQ(Find<QLineEdit>("txtName").text(), "Neues Projekt");
    EXPECT_EQ(Find<QLineEdit>("txtFirm").text(), "Ihre Firma");
    EXPECT_EQ(Find<QLineEdit>("txtWho").text(), "Ihr Name");
    EXPECT_EQ(Find<QPlainTextEdit>("txtDescr").toPlainText(), "Hersteller:\nStandort:\nEinbaulage:\nweitere Angaben:");
    EXPECT_EQ(Find<QLabel>("lblDate_0").text(), "14.03.2026 15:09:26");
    EXPECT_EQ(Find<QGroupBox>("fraProject").title(), "Aktuelles Projekt: Neues Projekt");
    EXPECT_FALSE(App().bProjectDirty) << "showing changes nothing";
}

TEST_F(FormF1Test, KeyboardStartsAtTheNameAndWalksThePageBeforeItsButtons)
{
    window.activateWindow();
    ShowPage();
    QCoreApplication::processEvents();
    QStringList order;
    for (int i = 0; i < 7; ++i) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        order << QApplication::focusWidget()->objectName();
        QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(QApplication::focusWidget(), &tab);
    }
    EXPECT_EQ(order, (QStringList{"txtName", "txtFirm", "txtWho", "txtDescr", "cmdEdit", "cmdBack", "cmdForw"}));
}

TEST_F(FormF1Test, CaptionsFollowEveryKeyStrokeInTheName)
{
    ShowPage();
    Find<QLineEdit>("txtName").setText("P");
    EXPECT_EQ(Find<QGroupBox>("fraProject").title(), "Aktuelles Projekt: P");
    EXPECT_EQ(window.windowTitle(), "KORVANEL [ P ]");
    Find<QLineEdit>("txtName").setText("Pu");
    EXPECT_EQ(window.windowTitle(), "KORVANEL [ Pu ]");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF1Test, EachBoxIsBoundToItsField)
{
    ShowPage();
    Find<QLineEdit>("txtFirm").setText("Werk");
    Find<QLineEdit>("txtWho").setText("Bea");
    Find<QPlainTextEdit>("txtDescr").setPlainText("a\nb");
    window.UnloadAndOpen(2);
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Editor'"), "Bea");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Description'"), "a\nb");
}

TEST_F(FormF1Test, AKeyPressAloneMakesTheProjectChanged)
{
    ShowPage();
    for (const char* name : {"txtName", "txtFirm", "txtWho", "txtDescr"}) {
        App().bProjectDirty = false;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
        QApplication::sendEvent(&Find<QWidget>(name), &press);
        EXPECT_TRUE(App().bProjectDirty) << name;
    }
}

TEST_F(FormF1Test, SavingShowsTheNewTime)
{
    ShowPage();
    clock.now = clock.now.addSecs(5);
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Find<QLabel>("lblDate_1").text(), "14.03.2026 15:09:31");
}

TEST_F(FormF1Test, PathIsShortenedInItsMiddleWithTheWholeOneAsToolTip)
{
    const QString deep = QString(200, u'd');
    ASSERT_TRUE(QDir(folder.path()).mkpath(deep));
    CreateProject(0, deep + "/x.MDB");
    window.UnloadAndOpen(1);
    QCoreApplication::processEvents();
    const auto& label = Find<QLabel>("lblDBPath");
    EXPECT_EQ(label.toolTip(), App().sProjectPath);
    EXPECT_LT(label.text().size(), App().sProjectPath.size());
    EXPECT_TRUE(label.text().endsWith("x.MDB"));
    EXPECT_TRUE(label.text().contains(QChar(0x2026)));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
}

TEST_F(FormF1Test, SaveUnderAnotherNameGoesOnInTheCopyWithoutARecentEntry)
{
    ShowPage();
    shell.savePaths = {PathOf("Kopie.MDB")};
    auto& button = Find<QPushButton>("cmdEdit");
    EXPECT_EQ(button.text().remove(u'&'), "Unter anderem Namen speichern");
    button.click();
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_EQ(Find<QLabel>("lblDBPath").toolTip(), PathOf("Kopie.MDB"));
    EXPECT_EQ(window.findChild<QAction*>("mnuFileMRU_1"), nullptr);
}

TEST_F(FormF1Test, ALongNameDoesNotPushTheControlsOffThePage)
{
    ShowPage();
    Find<QLineEdit>("txtName").setText(QString(5000, u'W'));
    QCoreApplication::processEvents();
    for (const char* name : {"txtName", "txtDescr", "cmdEdit", "cmdForw"}) {
        const auto& control = Find<QWidget>(name);
        EXPECT_LE(control.mapTo(window.PageOnShow(), QPoint(control.width(), 0)).x(), 754) << name;
    }
}

TEST_F(FormF1Test, NothingLongerThanAFileTakesCanBeTyped)
{
    ShowPage();
    Find<QLineEdit>("txtName").setText(QString(100000, u'x'));
    Find<QPlainTextEdit>("txtDescr").setPlainText(QString(100000, u'y'));
    EXPECT_EQ(App().sProjectName.size(), kLongestTypedText);
    EXPECT_EQ(App().sDescription.size(), kLongestTypedText);
    EXPECT_TRUE(SaveProject());
}

} // namespace
} // namespace korvanel::test
