// Energies and utilisation of both machines in the dialog.
#include "simulation/FormH14.h"

#include "core/Colour.h"
#include "evaluation/Algorithms.h"
#include "simulation/SimulationPageFixture.h"
#include "simulation/WinManaging3.h"

#include <QHeaderView>
#include <QTabWidget>

namespace korvanel::test {
namespace {

class FormH14Test : public SimulationPageTest
{
protected:
    void Open()
    {
        dialog = std::make_unique<FormH14>(nullptr);
        dialog->show();
        QApplication::processEvents();
    }
    QTabWidget& Tabs() { return ControlOf<QTabWidget>(*dialog, "TabEvaluation"); }
    /// Every cell of a grid has the text of its table.
    void ExpectShown(const char* name, const ResultTable& table)
    {
        auto& grid = ControlOf<QTableWidget>(*dialog, name);
        ASSERT_EQ(grid.rowCount(), static_cast<int>(table.rows.size()));
        ASSERT_EQ(grid.columnCount(), table.heads.size());
        for (int row = 0; row < grid.rowCount(); ++row) {
            const QStringList& cells = table.rows[static_cast<std::size_t>(row)].cells;
            for (int column = 0; column < grid.columnCount(); ++column) {
                const auto* item = grid.item(row, column);
                EXPECT_EQ(item ? item->text() : QString(), cells.value(column)) << name << ' ' << row << ' ' << column;
            }
        }
    }
    /// Texts that are wider than their cells, or the cells that they span.
    QStringList Clipped(const char* name)
    {
        auto& grid = ControlOf<QTableWidget>(*dialog, name);
        QStringList clipped;
        for (int row = 0; row < grid.rowCount(); ++row)
            for (int column = 0; column < grid.columnCount(); ++column)
                if (const auto* item = grid.item(row, column);
                    item &&
                    QFontMetrics(item->font()).horizontalAdvance(item->text()) > grid.visualItemRect(item).width())
                    clipped << item->text();
        return clipped;
    }

    std::unique_ptr<FormH14> dialog;
};

TEST_F(FormH14Test, Open_ShowsBothTables)
{
    OpenWithSets(40);
    EvaluateProject();
    TakeSecondMachine();
    Open();
    EXPECT_EQ(dialog->windowTitle(), "Simulation - Auswertung");
    EXPECT_EQ(Tabs().widget(0)->objectName(), "flxEnergie");
    EXPECT_EQ(Tabs().widget(1)->objectName(), "flxAuslastung");
    ExpectShown("flxEnergie", ComparedEnergyTable(App().MachineI, App().MachineII));
    ExpectShown("flxAuslastung", ComparedUtilisationTable(App().MachineI, App().MachineII));
    EXPECT_EQ(Clipped("flxEnergie"), QStringList());
    TakePicture(*dialog, "FormH14_Energie");
    Tabs().setCurrentIndex(1);
    QApplication::processEvents();
    EXPECT_EQ(Clipped("flxAuslastung"), QStringList());
    TakePicture(*dialog, "FormH14_Auslastung");
}

TEST_F(FormH14Test, HeadsOfTheMachines_StandOverTheirColumns)
{
    OpenWithSets(40);
    TakeSecondMachine();
    Open();
    auto& grid = ControlOf<QTableWidget>(*dialog, "flxEnergie");
    EXPECT_EQ(CellOf(*dialog, "flxEnergie", 0, 2), "Motor/Generator I   18,5 kW    1462,5 rpm");
    EXPECT_EQ(CellOf(*dialog, "flxEnergie", 0, 5), "Motor/Generator II   7,5 kW    1472 rpm");
    for (const int column : {2, 5})
        EXPECT_EQ(grid.columnSpan(0, column), 3);
    auto& heads = ControlOf<QTableWidget>(*dialog, "flxAuslastung");
    EXPECT_EQ(heads.horizontalHeaderItem(3)->text(), "Motor/Generator I   18,5 kW    1462,5 rpm");
    EXPECT_EQ(heads.horizontalHeaderItem(4)->text(), "Motor/Generator II   7,5 kW    1472 rpm");
}

TEST_F(FormH14Test, Utilisation_HasTheColoursOfTheVerdicts)
{
    OpenWithSets(40);
    EvaluateProject();
    TakeSecondMachine();
    App().MachineI.evaluation.tAsm[kMostTorque].lColour = 49152;
    App().MachineII.evaluation.tAsm[kMostTorque].lColour = 192;
    Open();
    auto& grid = ControlOf<QTableWidget>(*dialog, "flxAuslastung");
    EXPECT_EQ(grid.item(1, 3)->foreground().color(), ColourOf(49152));
    EXPECT_EQ(grid.item(1, 4)->foreground().color(), ColourOf(192));
    EXPECT_EQ(grid.item(1, 0)->foreground().style(), Qt::NoBrush);
}

TEST_F(FormH14Test, NoSets_OpenEmptyGrids)
{
    OpenWithSets(0);
    TakeSecondMachine();
    Open();
    for (const char* name : {"flxEnergie", "flxAuslastung"})
        EXPECT_EQ(ControlOf<QTableWidget>(*dialog, name).rowCount(), 0) << name;
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH14Test, Ok_ClosesAndChangesNothing)
{
    OpenWithSets(3);
    TakeSecondMachine();
    const quint64 state = App().lRecordingState;
    WithNextDialog<FormH14>([](FormH14& shown) { Press(shown, "cmdOK"); });
    EXPECT_TRUE(window.ShowDialog(kDialogSimulationResults));
    EXPECT_EQ(App().lRecordingState, state);
    EXPECT_FALSE(App().bProjectDirty);
}

} // namespace
} // namespace korvanel::test
