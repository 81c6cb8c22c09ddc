// What an export tells of project and machine.
#include "ExportFixture.h"

namespace korvanel::test {
namespace {

class ProjectItemsTest : public ExportFixture
{
protected:
    /// Lines between the two empty ones and the first table.
    QStringList Items()
    {
        const QStringList lines = Export();
        const qsizetype first = lines.indexOf(QString()) + 2;
        qsizetype last = first;
        while (!lines[last].startsWith("Größe\t"))
            ++last;
        return lines.mid(first, last - first);
    }
    static constexpr int kOfProject = 22;
};

TEST_F(ProjectItemsTest, ProjectItems_OneALineWithLabelValueAndUnit)
{
    MakeRecording(0, 3);
    App().sProjectName = "Förderband";
    App().sCompany = "Müller & Söhne";
    App().sEditor = "Änne Weiß";
    App().sDescription = "Hersteller:\nStandort:\tHalle 3\r\nEinbaulage:";
    App().dtProjectCreated = QDateTime(QDate(2026, 3, 1), QTime(8, 0, 5), Qt::UTC);
    App().dtProjectSaved = {};
    App().sDevice = "ISKRA MI7150";
    App().sDeviceId = "=4711";
    App().dTransPrimary = {400, 50};
    App().dTransSecondary = {100, 2.5};
    App().dtMeasurementBegin = QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26), Qt::UTC);
    App().dtMeasurementEnd = QDateTime(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
    App().sMeasurementTerm = "00:00:02";
    App().dInterval = 1;
    App().dTWindow = 900;
    App().MachineI.evaluation.lCorrectedRows = 2;
    App().MachineI.evaluation.sWindow = "00:10:00"; // the tables were formed with another one
    App().MachineI.evaluation.lGaps = 2;
    App().MachineI.evaluation.dMissing = 7;
    App().MachineI.evaluation.dCoverage = 0.98765;
    App().bEvaluated = 0;
    EXPECT_EQ(Items(), (QStringList{
                           "Projektname:\tFörderband\t",
                           "Firma:\tMüller & Söhne\t",
                           "Bearbeiter:\tÄnne Weiß\t",
                           "Beschreibung:\tHersteller: Standort: Halle 3 Einbaulage:\t",
                           "Erstellt am:\t01.03.2026 08:00:05\t",
                           "Gesichert am:\t\t",
                           "Messgerät:\tISKRA MI7150\t",
                           "Gerätekennung:\t =4711\t",
                           "Netzkonfiguration:\tSemi-sequentielle Messung mit optimierter Abtastrate\t",
                           "U-Wandler:\t400 / 100\tV",
                           "I-Wandler:\t50 / 2,5\tA",
                           "Beginn der Messung:\t14.03.2026 15:09:26\t",
                           "Ende der Messung:\t\t",
                           "Messdauer:\t00:00:02\t",
                           "Messintervall [s]: \t1\t",
                           "Anzahl der Datensätze:\t3\t",
                           "Korrigierte Datensätze:\t2\t",
                           "Zeitfenster:\t00:10:00\t",
                           "Lücken:\t2\t",
                           "Fehlende Datensätze (verworfen oder nicht gemessen):\t7\t",
                           "Abdeckung:\t98,77\t%",
                           "Ergebnisse:\tveraltet\t",
                       }));
}

TEST_F(ProjectItemsTest, MachineItems_OfAMachineThatIsKnown)
{
    MakeRecording(2, 0);
    MachineRecord& machine = App().MachineI.record;
    machine.Hersteller = "Bühler\tWerk 2";
    machine.M = 120.8;
    machine.eta = 0.905;
    machine.Po = 647.8;
    machine.Polpaarzahl = 2;
    machine.Mkipp_Mn = 2.7;
    machine.Tth = 1530;
    machine.I_CL = "F";
    machine.Masse = 115;
    machine.Mreib = true;
    EXPECT_EQ(Items().mid(kOfProject), (QStringList{
                                           "Betriebsart:\tMotor\t",
                                           "Bemerkungen:\tBühler Werk 2\t",
                                           "Pmech:\t18,5\tkW",
                                           "U:\t400\tV",
                                           "I:\t32,85\tA",
                                           "f:\t50\tHz",
                                           "n:\t1462,5\trpm",
                                           "M:\t120,8\tNm",
                                           "cosphi:\t0,898\t",
                                           "eta:\t0,905\t",
                                           "Po:\t0,6478\tkW",
                                           "Uo:\t400\tV",
                                           "Io:\t11\tA",
                                           "fo:\t50\tHz",
                                           "Polpaarzahl:\t2\t",
                                           "Schaltungsart:\tD\t",
                                           "R:\t0,56\tOhm",
                                           "Mmax / Mn:\t2,7\t",
                                           "Tth:\t25,5\tmin",
                                           "Wärmebeständigkeitsklasse:\tF\t",
                                           "m:\t115\tkg",
                                           "Inneres Reibmoment:\tgegen Null setzen\t",
                                       }));
}

TEST_F(ProjectItemsTest, WhatIsNotKnownOfTheMachineIsAnEmptyValue)
{
    MakeRecording(5, 0);
    App().MachineI.record = {};
    const QStringList items = Items().mid(kOfProject);
    EXPECT_EQ(items.size(), 22);
    for (const QString& item : items)
        EXPECT_EQ(item.section(u'\t', 1, 1), "") << item.toStdString();
}

TEST_F(ProjectItemsTest, GeneratorIsCalledOne)
{
    MakeRecording(2, 0);
    App().MachineI.record = Generator();
    EXPECT_EQ(Items().at(kOfProject), "Betriebsart:\tGenerator\t");
    EXPECT_EQ(Items().at(kOfProject + 2), "Pmech:\t-18,5\tkW");
}

TEST_F(ProjectItemsTest, WithoutAMachineInTheConfigurationNothingIsToldOfOne)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        MakeRecording(netConf, 0);
        EXPECT_EQ(Items().size(), kOfProject) << netConf;
    }
}

} // namespace
} // namespace korvanel::test
