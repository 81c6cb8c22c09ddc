#include "instruments/FormF2.h"

#include "data/FileManaging.h"
#include "support/WindowFixture.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace korvanel::test {
namespace {

class FormF2Test : public WindowTest
{
protected:
    void ShowPage(int netConf)
    {
        OpenInWindow(netConf);
        window.UnloadAndOpen(2);
    }
    QRadioButton& Option(int netConf)
    {
        return Find<QRadioButton>(QStringLiteral("optNetConf_%1").arg(netConf).toUtf8().constData());
    }
    QString ShownTab()
    {
        auto& tabs = Find<QTabWidget>("tabPage");
        return tabs.tabText(tabs.currentIndex());
    }
    int CheckedOptions()
    {
        int checked = 0;
        for (int i = 0; i < kNetConfCount; ++i)
            checked += Option(i).isChecked() ? 1 : 0;
        return checked;
    }
};

TEST_F(FormF2Test, OptionOfTheProjectIsCheckedAndItsTabShown)
{
    const char* const tabs[] = {"1-Phasen-Netz", "3-Phasen-Netz",     "Asynchronmaschine",        "1-Phasen-Netz",
                                "3-Phasen-Netz", "Asynchronmaschine", "3-Phasen-Spannungsmessung"};
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        ShowPage(netConf);
        EXPECT_TRUE(Option(netConf).isChecked()) << netConf;
        EXPECT_EQ(ShownTab(), QLatin1String(tabs[netConf]));
        EXPECT_EQ(CheckedOptions(), 1);
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF2Test, TabsStandInTheirOrder)
{
    ShowPage(0);
    auto& tabs = Find<QTabWidget>("tabPage");
    QStringList titles;
    for (int i = 0; i < tabs.count(); ++i)
        titles << tabs.tabText(i);
    EXPECT_EQ(titles,
              (QStringList{"1-Phasen-Netz", "3-Phasen-Netz", "3-Phasen-Spannungsmessung", "Asynchronmaschine"}));
}

TEST_F(FormF2Test, HeadingsNoteAndCaptionsAreShown)
{
    ShowPage(0);
    EXPECT_EQ(Option(0).text(), "Semi-sequentielle Messung mit optimierter Abtastrate");
    EXPECT_EQ(Option(2).text(), "Drehstromasynchronmaschine - (symmetrische Last)");
    EXPECT_EQ(Option(3).text(), "Sequentielle Messung (Rekorder-Funktion)");
    EXPECT_EQ(Option(4).text(), "Sequentielle Einzelphasenmessung (Rekorder-Funktion)");
    EXPECT_EQ(Option(5).text(), "Drehstromasynchronmaschine - Einzelphasenmessung (symmetrische Last)");
    EXPECT_EQ(Option(6).text(), "3-Phasen Spannungsmessung");
    EXPECT_EQ(Find<QLabel>("lblNote").text(), "* nicht bei allen Messgeräten verfügbar");
    EXPECT_EQ(Find<QLabel>("lblMeasured").text(), "Gemessene Größen:");
    EXPECT_EQ(Find<QLabel>("lblCalculated").text(), "Berechnete Größen:");
}

TEST_F(FormF2Test, OptionsAreOneGroupAcrossAllTabs)
{
    ShowPage(0);
    Option(6).click();
    EXPECT_EQ(App().iNetConfIndex, 6);
    EXPECT_FALSE(Option(0).isChecked());
    EXPECT_EQ(CheckedOptions(), 1);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF2Test, ListsFollowTheChoice)
{
    ShowPage(0);
    EXPECT_TRUE(Find<QPlainTextEdit>("txtDescr_0").toPlainText().startsWith("Spannung - U\nStrom - I\n"));
    EXPECT_TRUE(Find<QPlainTextEdit>("txtDescr_0").isReadOnly());
    Option(6).click();
    EXPECT_EQ(Find<QPlainTextEdit>("txtDescr_0").toPlainText(), "Spannung (1,2,3,avg) - U\nFrequenz - f");
    EXPECT_EQ(Find<QPlainTextEdit>("txtDescr_1").toPlainText(), "") << "nothing is calculated from voltages alone";
}

TEST_F(FormF2Test, RefusalSelectsTheOldOptionAgainAndAsksOnce)
{
    OpenInWindow(0);
    OpenDbGuarded();
    App().MeasuredRow.lSet = 1;
    ASSERT_TRUE(AppendMeasuredRow());
    CloseDbGuarded();
    window.UnloadAndOpen(2);
    shell.answers = {Answer::No};
    Option(2).click();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(Option(0).isChecked());
    EXPECT_EQ(App().iNetConfIndex, 0);
    shell.answers = {Answer::Yes};
    Option(2).click();
    EXPECT_TRUE(Option(2).isChecked());
    EXPECT_EQ(App().iNetConfIndex, 2);
    EXPECT_TRUE(IsEntryEnabled("mnuEngine"));
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "0");
}

TEST_F(FormF2Test, ForwardLeadsToTheMachineWhereThereIsOne)
{
    ShowPage(0);
    Option(5).click();
    Find<QPushButton>("cmdForw").click();
    EXPECT_EQ(PageName(), "FormF10");
}

TEST_F(FormF2Test, OpeningATabShowsItsQuantities)
{
    ShowPage(0);
    auto& tabs = Find<QTabWidget>("tabPage");
    const QString ofSinglePhase = Find<QPlainTextEdit>("txtDescr_1").toPlainText();
    for (int tab = 0; tab < tabs.count(); ++tab) {
        tabs.setCurrentIndex(tab);
        const bool isMachine = tabs.tabText(tab) == "Asynchronmaschine";
        EXPECT_EQ(Find<QPlainTextEdit>("txtDescr_1").toPlainText().contains("Drehmoment"), isMachine) << tab;
        EXPECT_EQ(Find<QPlainTextEdit>("txtDescr_1").toPlainText().isEmpty(),
                  tabs.tabText(tab) == "3-Phasen-Spannungsmessung")
            << tab;
    }
    tabs.setCurrentIndex(0);
    EXPECT_EQ(Find<QPlainTextEdit>("txtDescr_1").toPlainText(), ofSinglePhase);
    EXPECT_EQ(App().iNetConfIndex, 0) << "looking changes nothing";
}

TEST_F(FormF2Test, ForwardFromATabWithoutAChoiceAsksInsteadOfGoingOnWithAnother)
{
    ShowPage(0);
    Find<QTabWidget>("tabPage").setCurrentIndex(1);
    shell.answers = {Answer::No, Answer::Yes};
    Find<QPushButton>("cmdForw").click();
    EXPECT_EQ(PageName(), "FormF2");
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text, "Auf dieser Karte ist nichts gewählt. Es gilt weiterhin:\n1-Phasen-Netz - "
                                   "Semi-sequentielle Messung mit optimierter Abtastrate\nDamit weitergehen?");
    EXPECT_EQ(shell.boxes[0].preset, Answer::No);
    Find<QPushButton>("cmdForw").click();
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(App().iNetConfIndex, 0);
}

TEST_F(FormF2Test, ForwardFromTheTabOfTheChoiceAsksNothing)
{
    ShowPage(4);
    Find<QPushButton>("cmdForw").click();
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace
} // namespace korvanel::test
