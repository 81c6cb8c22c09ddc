// Choosing another motor database.
#include "motors/FormH11.h"

#include "core/clsProgSettings.h"
#include "support/Dialogs.h"
#include "support/MotorDbFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormH11Test : public MotorDbTest
{
protected:
    FormH11Test() : settings(folder.path())
    {
        App().ProgSettings = &settings;
        MakeMotorDb("zweite.Mdb");
        Add({KnownMachine(), RatedMachine()});
        MakeMotorDb("aktuelle.MDB");
        Add({KnownMachine()});
        settings.SetMotorDatabase(App().sMotorDbPath);
        WriteContent("notiz.txt", "kein Motor");
        QDir(folder.path()).mkdir("Unterordner");
        Open();
    }
    void Open()
    {
        dialog = std::make_unique<FormH11>(nullptr);
        dialog->show();
    }
    template <typename Control>
    Control& Find(const char* name) const
    {
        return ControlOf<Control>(*dialog, name);
    }
    QListWidget& Files() const { return Find<QListWidget>("fileDB"); }
    QListWidget& Folders() const { return Find<QListWidget>("dirDB"); }
    static QStringList Texts(const QListWidget& list)
    {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i)
            texts << list.item(i)->text();
        return texts;
    }
    void Choose(const QString& file) const
    {
        const auto items = Files().findItems(file, Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1) << file.toStdString();
        Files().setCurrentItem(items[0]);
    }
    void EnterFolder(const QString& name) const
    {
        const auto items = Folders().findItems(name, Qt::MatchExactly);
        ASSERT_EQ(items.size(), 1) << name.toStdString();
        emit Folders().itemActivated(items[0]);
    }
    void Press(const char* name) const { Find<QPushButton>(name).click(); }
    void ExpectUnchanged() const
    {
        EXPECT_EQ(App().sMotorDbPath, PathOf("aktuelle.MDB"));
        EXPECT_EQ(clsProgSettings(folder.path()).MotorDatabase(), PathOf("aktuelle.MDB"));
    }

    clsProgSettings settings;
    std::unique_ptr<FormH11> dialog;
};

TEST_F(FormH11Test, Open_ShowsTheDatabaseInUse)
{
    EXPECT_EQ(dialog->windowTitle(), "Motor/Generator Datenbank wechseln");
    EXPECT_EQ(Find<QLabel>("lblDatabase").text(), PathOf("aktuelle.MDB"));
    EXPECT_EQ(Find<QPushButton>("cmdAbort").text(), "Abbrechen");
    ASSERT_NE(Files().currentItem(), nullptr);
    EXPECT_EQ(Files().currentItem()->text(), "aktuelle.MDB");
    EXPECT_GE(Find<QComboBox>("drvDB").count(), 1);
}

TEST_F(FormH11Test, Files_AreDatabasesWhateverTheCaseOfTheirExtension)
{
    WriteContent("dritte.mdb", {});
    Open();
    EXPECT_EQ(Texts(Files()), (QStringList{"aktuelle.MDB", "dritte.mdb", "zweite.Mdb"}));
}

TEST_F(FormH11Test, Folders_LeadDownAndUp)
{
    EXPECT_EQ(Texts(Folders()), (QStringList{"..", "Unterordner"}));
    EnterFolder("Unterordner");
    EXPECT_EQ(Find<QLabel>("lblFolder").text(), PathOf("Unterordner"));
    EXPECT_EQ(Texts(Folders()), QStringList{".."});
    EXPECT_EQ(Files().count(), 0);
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled()); // nothing is chosen here
    EnterFolder("..");
    EXPECT_EQ(Find<QLabel>("lblFolder").text(), folder.path());
    EXPECT_EQ(Files().count(), 2);
}

TEST_F(FormH11Test, Folders_OneThatHasGoneLeavesTheListAsItIs)
{
    QDir(folder.path()).rmdir("Unterordner");
    EnterFolder("Unterordner");
    EXPECT_EQ(Find<QLabel>("lblFolder").text(), folder.path());
}

TEST_F(FormH11Test, Drive_ShowsItsFolders)
{
    auto& drives = Find<QComboBox>("drvDB");
    drives.setCurrentIndex(0);
    emit drives.activated(0);
    EXPECT_EQ(QDir(Find<QLabel>("lblFolder").text()), QDir(drives.itemText(0)));
    EXPECT_FALSE(Texts(Folders()).contains("..")); // nothing is above it
}

TEST_F(FormH11Test, Ok_TakesAnotherDatabase)
{
    Choose("zweite.Mdb");
    Press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(App().sMotorDbPath, PathOf("zweite.Mdb"));
    EXPECT_EQ(clsProgSettings(folder.path()).MotorDatabase(), PathOf("zweite.Mdb"));
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH11Test, Ok_OnTheDatabaseInUseChangesNothing)
{
    ExecuteMotors("DELETE FROM Motor"); // it isn't looked at either
    Press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_TRUE(shell.boxes.empty());
    ExpectUnchanged();
}

TEST_F(FormH11Test, Ok_RefusesWhatIsNoMotorDatabase)
{
    CreateProject(2, "projekt.MDB");
    CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
    App().bProjectOpen = false;
    WriteContent("leer.MDB", {});
    WriteContent("unsinn.MDB", QByteArray(5000, 'x'));
    MakeMotorDb("ohne.MDB");
    App().sMotorDbPath = PathOf("aktuelle.MDB");
    Open();
    for (const char* file : {"projekt.MDB", "leer.MDB", "unsinn.MDB", "ohne.MDB"}) {
        shell.boxes.clear();
        Choose(file);
        Press("cmdOK");
        EXPECT_EQ(shell.BoxTexts(),
                  QStringList{"Die ausgewählte Datenbank ist nicht kompatibel.\nBitte wählen Sie eine andere Datei."})
            << file;
        EXPECT_TRUE(dialog->isVisible()) << file;
        ExpectUnchanged();
    }
}

TEST_F(FormH11Test, Ok_ComparesTheMachinesOfTheOpenProject)
{
    CreateProject(2, "projekt.MDB");
    CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
    Choose("zweite.Mdb");
    Press("cmdOK");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(App().bModelValid);
    EXPECT_EQ(App().MachineI.record.set_ID, 1);
}

TEST_F(FormH11Test, Abort_ChangesNothing)
{
    Choose("zweite.Mdb");
    Press("cmdAbort");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    ExpectUnchanged();
}

TEST_F(FormH11Test, Open_WithoutTheFileShowsTheNearestFolderThatThereIs)
{
    App().sMotorDbPath = PathOf("weg/MOTOR_DB.MDB");
    Open();
    EXPECT_EQ(Find<QLabel>("lblDatabase").text(), PathOf("weg/MOTOR_DB.MDB"));
    EXPECT_EQ(Find<QLabel>("lblFolder").text(), App().sProgramDir);
    EXPECT_EQ(Files().currentItem(), nullptr);
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled());
}

TEST_F(FormH11Test, Files_WithStrangeNamesAreShownAndTaken)
{
    const QString name = QStringLiteral("O'Brien & 100 % #; ä.mdb");
    ASSERT_TRUE(QFile::copy(PathOf("zweite.Mdb"), PathOf(name)));
    Open();
    Choose(name);
    Press("cmdOK");
    EXPECT_EQ(App().sMotorDbPath, PathOf(name));
}

TEST_F(FormH11Test, Ok_TellsADatabaseThatAnotherProgramWrites)
{
    SQLite::Database other(PathOf("zweite.Mdb").toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    Choose("zweite.Mdb");
    Find<QPushButton>("cmdOK").click();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Die Datei wird gerade von einem anderen Programm benutzt:\n"));
}

} // namespace
} // namespace korvanel::test
