// Motor databases that hold what no page enters, or that can't be used.
#include "motors/MachinePageFixture.h"

namespace korvanel::test {
namespace {

class FormF10HostileTest : public MachinePageTest
{
protected:
    /// Wherever its values have put it in the list.
    void ChooseByRemark(const QString& remark)
    {
        auto& grid = Find<QTableWidget>("GridBemess");
        for (int row = 0; row < grid.rowCount(); ++row)
            if (grid.item(row, 9)->text() == remark)
                grid.setCurrentCell(row, 0);
    }
    /// Whatever the machine was, the page goes on.
    void ExpectThePageWorks()
    {
        shell.boxes.clear();
        ChooseByRemark(QStringLiteral("Generator"));
        EXPECT_EQ(Line("txtComment"), "Generator");
        EXPECT_TRUE(App().bModelValid);
        EXPECT_TRUE(shell.boxes.empty());
        EXPECT_TRUE(IsEnabled("cmdForw"));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
};

TEST_F(FormF10HostileTest, AbsurdRatedValues_AreToldAndThePageGoesOn)
{
    const char* const changes[] = {
        "n = 0",    "n = -1500",  "f = 0",       "U = 0, I = 0, f = 0, n = 0",
        "n = 1500", "n = 1e-300", "cosphi = 17", "I = 1e308, U = 1e308",
    };
    for (const char* change : changes) {
        ExecuteMotors(QStringLiteral("UPDATE Motor SET %1 WHERE set_ID = 2").arg(change));
        App().MachineI.record = {};
        ShowPage();
        ChooseByRemark(QStringLiteral("Generator"));
        ChooseByRemark(QStringLiteral("Werk B"));
        EXPECT_EQ(Line("txtComment"), "Werk B") << change;
        EXPECT_FALSE(shell.boxes.empty()) << change;
        ExpectThePageWorks();
        App().MachineI.record = {};
        QFile::remove(App().sMotorDbPath);
        MakeMotorDb();
    }
}

TEST_F(FormF10HostileTest, PowerBeyondAnyMachine_IsShownAndThePageGoesOn)
{
    ExecuteMotors("UPDATE Motor SET Pmech = 1e300 WHERE set_ID = 2");
    ShowPage();
    ChooseByRemark(QStringLiteral("Generator"));
    ChooseByRemark(QStringLiteral("Werk B"));
    EXPECT_EQ(Line("txtComment"), "Werk B");
    EXPECT_EQ(Line("txtBemess_1"), "400");
    ExpectThePageWorks();
}

TEST_F(FormF10HostileTest, NullWithinCompleteRatingData_IsShownEmptyAndEnteredAnew)
{
    ExecuteMotors("UPDATE Motor SET U = NULL WHERE set_ID = 2");
    ShowPage();
    ChooseByRemark(QStringLiteral("Werk B"));
    EXPECT_EQ(Line("txtComment"), "Werk B");
    EXPECT_EQ(Line("txtBemess_1"), "");
    Press("cmdEdit_1");
    Enter("txtBemess_1", "400");
    shell.boxes.clear();
    Press("cmdInsert_0");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Motors("SELECT U FROM Motor WHERE set_ID = 2"), "400.0");
}

TEST_F(FormF10HostileTest, FileThatIsNoMotorDatabase_IsToldOnceAndNothingCanBeEdited)
{
    OpenInWindow(2);
    WriteContent("text.MDB", "no database at all");
    for (const QString& path : {PathOf("text.MDB"), App().sProjectPath}) {
        shell.boxes.clear();
        App().sMotorDbPath = path;
        ShowPage();
        EXPECT_EQ(shell.boxes.size(), 1U) << path.toStdString();
        EXPECT_FALSE(Find<QLabel>("lblNoDatabase").isHidden());
        EXPECT_FALSE(IsEnabled("cmdEdit_0"));
        EXPECT_TRUE(IsEnabled("cmdForw"));
    }
}

TEST_F(FormF10HostileTest, DatabaseThatGoesAwayWhileThePageIsOnShow_IsTold)
{
    ShowPage();
    QFile::remove(App().sMotorDbPath);
    Press("cmdBrowse_2");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Label("BrowseBemess"), "1/3") << "the machine is still the one before";
    EXPECT_EQ(App().MachineI.record.set_ID, 2);
    Press("cmdEdit_1");
    Find<QLineEdit>("txtComment").setText("x");
    Press("cmdInsert_0");
    EXPECT_EQ(shell.boxes.size(), 2U);
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    EXPECT_FALSE(QFile::exists(App().sMotorDbPath));
}

TEST_F(FormF10HostileTest, RowThatSomebodyElseHasDeleted_LeavesTheMachine)
{
    ShowPage();
    ExecuteMotors("DELETE FROM Motor WHERE set_ID = 1");
    Press("cmdBrowse_2");
    EXPECT_EQ(Label("BrowseBemess"), "1/3");
    EXPECT_EQ(Line("txtComment"), "Werk B");
    EXPECT_EQ(Find<QTableWidget>("GridBemess").currentRow(), 0);
}

TEST_F(FormF10HostileTest, RemarksWithMarkup_AreShownAsTheyStand)
{
    const QString remark = QStringLiteral("<b>x</b><img src='file:///etc/passwd'> 100 % 'n' \"q\"; --\nzweite Zeile");
    ExecuteMotors("UPDATE Motor SET Hersteller = '" + QString(remark).replace('\'', "''") + "' WHERE set_ID = 2");
    ShowPage();
    auto& grid = Find<QTableWidget>("GridBemess");
    EXPECT_EQ(grid.item(0, 9)->text(), remark);
    EXPECT_EQ(grid.item(0, 9)->toolTip(), remark.toHtmlEscaped());
    Press("cmdEdit_1");
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Hersteller FROM Motor WHERE set_ID = 2"), remark) << "nothing of it is lost";
}

TEST_F(FormF10HostileTest, ManyMachines_AreListed)
{
    ExecuteMotors("WITH RECURSIVE c(i) AS (SELECT 10 UNION ALL SELECT i+1 FROM c WHERE i < 2000) INSERT INTO Motor "
                  "(set_ID, Hersteller, Polpaarzahl, Pmech, U, n, I, f, cosphi, Mreib) SELECT i, 'Nr ' || i, 2, 7.5, "
                  "400, 1472, 14.43, 50, 0.83, 0 FROM c");
    ShowPage();
    EXPECT_TRUE(Label("BrowseBemess").endsWith("/1994"));
    Press("cmdBrowse_3");
    EXPECT_EQ(Label("BrowseBemess"), "1994/1994");
}

TEST_F(FormF10HostileTest, HundredThousandMachines_AreReadAsTheyComeIntoView)
{
    ExecuteMotors("WITH RECURSIVE c(i) AS (SELECT 10 UNION ALL SELECT i+1 FROM c WHERE i < 100000) INSERT INTO Motor "
                  "(set_ID, Hersteller, Polpaarzahl, Pmech, U, n, I, f, cosphi, Mreib) SELECT i, 'Nr ' || i, 2, i, "
                  "400, 1472, 14.43, 50, 0.83, 0 FROM c");
    ShowPage();
    auto& grid = Find<QTableWidget>("GridBemess");
    const auto filled = [&grid] {
        int count = 0;
        for (int row = 0; row < grid.rowCount(); ++row)
            count += grid.item(row, 9) ? 1 : 0;
        return count;
    };
    EXPECT_EQ(grid.rowCount(), 99994);
    EXPECT_LE(filled(), 400);
    Press("cmdBrowse_3");
    EXPECT_EQ(Label("BrowseBemess"), "99994/99994");
    ASSERT_NE(grid.item(99993, 9), nullptr);
    EXPECT_EQ(grid.item(99993, 9)->text(), "Generator");
    EXPECT_EQ(grid.item(99992, 9)->text(), "Nr 100000");
    grid.scrollTo(grid.model()->index(50000, 0));
    ASSERT_NE(grid.item(50000, 9), nullptr);
    EXPECT_EQ(grid.item(50000, 9)->text(), "Nr 50008");
    EXPECT_LE(filled(), 400);
}

} // namespace
} // namespace korvanel::test
