// The no-load test and the self-diagnosis from the machine page.
#include "motors/MachinePageFixture.h"

namespace korvanel::test {
namespace {

class FormF10NoLoadTest : public MachinePageTest
{
protected:
    /// A machine is being edited, with the no-load data to be known and the controls of the interface on show.
    void Edit(int row = 1)
    {
        ShowPage();
        for (int i = 0; i < row; ++i)
            Press("cmdBrowse_2");
        Press("cmdEdit_1");
        ShowTab(1);
        Check("chkstatus_1");
        Check("chkOnline");
        Choose("cboInterval", "1");
    }
    QTimer& Timer() { return Find<QTimer>("Timer1"); }
    void Pass(int ticks)
    {
        for (int i = 0; i < ticks && Timer().isActive(); ++i) {
            clock.seconds += 0.05;
            QMetaObject::invokeMethod(&Timer(), "timeout", Qt::DirectConnection);
        }
    }
};

const QStringList kMeasured{"0,66422", "400", "11", "50"};
const QStringList kFormer{"0,6478", "400", "11", "50"};

TEST_F(FormF10NoLoadTest, Online_ShowsAndHidesItsControls)
{
    ShowPage();
    ShowTab(1);
    for (const char* name : {"cmdNoLoad", "cboInterval", "cboCOM", "cboSelect", "cmdInfo_0", "cmdSetup"})
        EXPECT_FALSE(Find<QWidget>(name).isVisible()) << name;
    Check("chkOnline");
    for (const char* name : {"cmdNoLoad", "cboInterval", "cboCOM", "cboSelect", "cmdInfo_0", "cmdSetup"})
        EXPECT_TRUE(Find<QWidget>(name).isVisible()) << name;
    EXPECT_EQ(Chosen("cboSelect"), "ISKRA MI71XX 3Ø3W (3u)");
    EXPECT_EQ(Find<QComboBox>("cboSelect").count(), InstrumentEntries(2).size());
    EXPECT_FALSE(IsEnabled("cmdNoLoad")) << "nothing is being edited";
    Check("chkOnline", false);
    EXPECT_FALSE(Find<QWidget>("cmdNoLoad").isVisible());
}

TEST_F(FormF10NoLoadTest, Start_NeedsNoLoadDataThatAreToBeKnown)
{
    Edit();
    EXPECT_TRUE(IsEnabled("cmdNoLoad"));
    Check("chkstatus_1", false);
    EXPECT_FALSE(IsEnabled("cmdNoLoad"));
}

TEST_F(FormF10NoLoadTest, Measuring_LocksEverythingButItsButton)
{
    Edit();
    Press("cmdNoLoad");
    EXPECT_EQ(Find<QPushButton>("cmdNoLoad").text(), "Messung beenden");
    EXPECT_TRUE(Timer().isActive());
    EXPECT_EQ(NoLoad(), QStringList({"-", "-", "-", "-"}));
    EXPECT_TRUE(IsEnabled("cmdNoLoad"));
    for (const char* name :
         {"GridBemess",  "cmdBack",     "cmdForw",       "cmdEdit_0",      "cmdEdit_1",  "cmdEdit_2",
          "cmdInsert_0", "cmdInsert_1", "cmdSearchWin",  "cmdDatabase",    "cmdInfo_0",  "cmdInfo_1",
          "cmdSetup",    "cboSelect",   "cboCOM",        "cboInterval",    "chkOnline",  "chkstatus_0",
          "chkstatus_1", "txtBemess_0", "txtLeerlauf_0", "optGenerator_0", "txtComment", "cmdBrowse_0"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_FALSE(Find<QTabWidget>("tabAsync").tabBar()->isEnabled());
    EXPECT_FALSE(IsEntryEnabled("mnuFile"));
}

TEST_F(FormF10NoLoadTest, Steady_FillsTheFieldsAndIsStored)
{
    Edit();
    Press("cmdNoLoad");
    Pass(400);
    EXPECT_EQ(NoLoad(), kMeasured);
    EXPECT_EQ(Find<QPushButton>("cmdNoLoad").text(), "Leerlaufdaten ermitteln");
    EXPECT_FALSE(Timer().isActive());
    EXPECT_FALSE(port.isOpen);
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    Press("cmdInsert_0");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_NEAR(Motors("SELECT Po FROM Motor WHERE set_ID = 1").toDouble(), 0.66422, 1e-12);
    EXPECT_EQ(Motors("SELECT Io FROM Motor WHERE set_ID = 1"), "11.0");
}

TEST_F(FormF10NoLoadTest, Scattering_EmptiesTheFieldsWithMessageSeven)
{
    Edit();
    int poll = 0;
    port.answer = [&](const QByteArray& request) {
        if (request.size() > 2 && request[2] == 40)
            instrument.texts[12] = ++poll % 2 ? "33.000A" : "40.000A";
        return instrument.Reply(request);
    };
    Press("cmdNoLoad");
    Pass(400);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Die gemessenen Werte schwankten zu stark.\n"
                                            "Wiederholen Sie Messung wenn möglich."});
    EXPECT_EQ(NoLoad(), QStringList({"", "", "", ""}));
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
}

TEST_F(FormF10NoLoadTest, Silent_EmptiesTheFieldsWithMessageSix)
{
    Edit();
    isSilent = true;
    Press("cmdNoLoad");
    Pass(600);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es sind Fehler bei der Leerlaufmessung aufgetreten.\n"
                                            "Wiederholen Sie Messung wenn möglich."});
    EXPECT_EQ(NoLoad(), QStringList({"", "", "", ""}));
}

TEST_F(FormF10NoLoadTest, PortThatCantBeOpened_IsToldAndTheFormerValuesStay)
{
    Edit();
    port.openError = "busy";
    Press("cmdNoLoad");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"COM1: busy"});
    EXPECT_EQ(NoLoad(), kFormer);
    EXPECT_EQ(Find<QPushButton>("cmdNoLoad").text(), "Leerlaufdaten ermitteln");
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(FormF10NoLoadTest, PressedAgain_EndsAndTheFormerValuesStay)
{
    Edit();
    Press("cmdNoLoad");
    Pass(50);
    Press("cmdNoLoad");
    EXPECT_FALSE(Timer().isActive());
    EXPECT_EQ(NoLoad(), kFormer);
    EXPECT_FALSE(port.isOpen);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF10NoLoadTest, LeavingThePage_EndsTheMeasurement)
{
    Edit();
    Press("cmdNoLoad");
    Pass(50);
    window.close();
    EXPECT_FALSE(port.isOpen);
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(FormF10NoLoadTest, AFailureInATickEndsTheMeasurementAndIsReported)
{
    Edit();
    port.answer = [](const QByteArray&) -> QByteArray { throw std::runtime_error("no memory"); };
    Press("cmdNoLoad");
    Pass(50);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Motor/Generator - Datenbank\nno memory"});
    EXPECT_FALSE(Timer().isActive());
    EXPECT_EQ(NoLoad(), kFormer);
}

TEST_F(FormF10NoLoadTest, Refresh_DuringTheMeasurementChangesNothing)
{
    Edit();
    Press("cmdNoLoad");
    window.RefreshPage();
    EXPECT_FALSE(IsEnabled("cmdInsert_0"));
    EXPECT_TRUE(Timer().isActive());
}

TEST_F(FormF10NoLoadTest, Instrument_IsThatOfTheProject)
{
    ShowPage();
    ShowTab(1);
    Check("chkOnline");
    auto& box = Find<QComboBox>("cboSelect");
    box.setCurrentIndex(box.findText("ISKRA MI71XX 3Ø4W (4u)"));
    emit box.activated(box.currentIndex());
    EXPECT_EQ(App().sDevice, "ISKRA MI71XX 3Ø4W (4u)");
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(Find<QLineEdit>("txtBemess_0").text(), "7,5") << "the machine stays";
}

TEST_F(FormF10NoLoadTest, Interval_StartsFromTheShortestOfTheInstrument)
{
    ShowPage(5);
    EXPECT_EQ(Find<QComboBox>("cboInterval").itemText(0), "5");
    EXPECT_EQ(Chosen("cboInterval"), "5");
}

TEST_F(FormF10NoLoadTest, Diagnosis_ConnectsAndShowsTheIdentity)
{
    ShowPage();
    ShowTab(1);
    Check("chkOnline");
    EXPECT_EQ(Label("lblDevice"), "Nicht verbunden");
    Press("cmdSetup");
    EXPECT_EQ(Label("lblDevice"), "Verbunden: MI7140 4711");
    EXPECT_TRUE(App().bDevConnected);
    EXPECT_FALSE(port.isOpen);
    EXPECT_TRUE(IsEnabled("cmdSetup"));
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    isSilent = true;
    Press("cmdSetup");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Label("lblDevice"), "Nicht verbunden");
    EXPECT_TRUE(IsEnabled("cmdSetup"));
}

} // namespace
} // namespace korvanel::test
