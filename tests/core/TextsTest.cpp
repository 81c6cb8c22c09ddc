// The table of texts: its numbering, and the German texts to the letter.
#include "core/Texts.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/DialoguesTexts.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/FormF1Texts.h"
#include "core/texts/FormF2Texts.h"
#include "core/texts/FormF3Texts.h"
#include "core/texts/FormH3Texts.h"
#include "core/texts/FormH5Texts.h"
#include "core/texts/FormH7Texts.h"
#include "core/texts/MainTexts.h"

#include "support/Fixture.h"
#include "support/TestPaths.h"

#include <set>
#include <string>

namespace korvanel::test {

namespace {

struct Quoted
{
    TextRef text;
    const char* german;
};

class TextsTest : public BlockTest
{
protected:
    static void Expect(std::span<const Quoted> quoted)
    {
        for (const Quoted& q : quoted)
            EXPECT_EQ(TextOf(q.text), q.german);
    }
};

} // namespace

TEST_F(TextsTest, EveryText_HasItsOwnSectionAndNumber)
{
    std::set<std::pair<std::string, int>> places;
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            EXPECT_TRUE(places.emplace(section.name, line.number).second)
                << section.name << ' ' << line.number << ": " << line.german;
}

TEST_F(TextsTest, EveryText_HasANumberOfThreeDigitsFromOneOn)
{
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines) {
            EXPECT_GE(line.number, 1) << line.german;
            EXPECT_LE(line.number, 999) << line.german;
        }
}

TEST_F(TextsTest, EveryText_HasAGermanDefault)
{
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            EXPECT_FALSE(QString(line.german).trimmed().isEmpty()) << section.name << ' ' << line.number;
}

TEST_F(TextsTest, EveryText_IsVariableOfOneEntryOnly)
{
    std::set<const QString*> variables;
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            EXPECT_TRUE(variables.insert(line.variable).second) << line.german;
}

/// A file of texts that no section of the table takes in would declare variables that nobody ever fills.
TEST_F(TextsTest, EveryFileOfTexts_IsASectionOfTheTable)
{
    const QStringList files = QDir(QStringLiteral(KORVANEL_SOURCES "/core/texts")).entryList({QStringLiteral("*.inc")});
    EXPECT_EQ(static_cast<std::size_t>(files.size()), TextSections().size());
    for (const QString& file : files)
        EXPECT_TRUE(
            QFileInfo::exists(QStringLiteral(KORVANEL_SOURCES "/core/texts/") + file.chopped(4) + QStringLiteral(".h")))
            << file.toStdString();
}

TEST_F(TextsTest, EverySection_IsOneThatALanguageFileHas)
{
    const QStringList sections{"MAIN",    "DEFAULT", "VALUE NAMES", "DIALOGUES", "PRINT/EXPORT", "FORMF1",  "FORMF2",
                               "FORMF3",  "FORMF4",  "FORMF5",      "FORMF6",    "FORMF8",       "FORMF9",  "FORMF10",
                               "FORMH3",  "FORMH5",  "FORMH6",      "FORMH7",    "FORMH9",       "FORMH10", "FORMH11",
                               "FORMH12", "FORMH13", "FORMH14",     "FORMH15",   "FORMH16",      "FORMH17"};
    for (const TextSection& section : TextSections())
        EXPECT_TRUE(sections.contains(section.name)) << section.name;
}

TEST_F(TextsTest, SetBuiltInTexts_SetsEveryTextToItsDefault)
{
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            line.variable->clear();
    SetBuiltInTexts();
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            EXPECT_EQ(*line.variable, line.german);
}

TEST_F(TextsTest, Messages_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::titleError, "Fehlermeldung"},
        {&texts::titleInformation, "Information"},
        {&texts::titleAttention, "Achtung"},
        {&texts::badFormat, "Ungültiges Dateiformat:"},
        {&texts::notFound, "Konnte Pfad/Datei nicht finden: "},
        {&texts::reallyDelete, "Datei wirklich löschen?"},
        {&texts::reallyOverwrite, "Überschreiben der Datei"},
        {&texts::numberRange, "Der eingegebene Wert muss sich\nzwischen # und # befinden."},
        {&texts::languageChange, "Die Änderung der Sprache tritt erst beim nächsten Programmstart in Kraft.\n"
                                 "Möchten sie jetzt einen Neustart von KORVANEL durchführen?"},
        {&texts::noMachineChosen, "Sie haben keine bzw. eine für die Messreihe ungültige Asynchron-Maschine aus der "
                                  "Datenbank gewählt."},
    };
    Expect(quoted);
}

TEST_F(TextsTest, ProjectTexts_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::defaultProjectName, "Neues Projekt"},
        {&texts::defaultCompany, "Ihre Firma"},
        {&texts::defaultEditor, "Ihr Name"},
        {&texts::defaultDescription, "Hersteller:\nStandort:\nEinbaulage:\nweitere Angaben:"},
        {&texts::titleNewProject, "Neues Projekt erstellen unter"},
        {&texts::titleOpen, "Öffnen"},
        {&texts::titleSaveAs, "Speichern unter"},
        {&texts::titleDelete, "Löschen"},
        {&texts::filterDelete, "KORVANEL Projekte (*.MDB)|*.MDB|KVL Projekte (*.KVL)|*.KVL|"},
        {&texts::noFileChosen, "Keine Datei ausgewählt!"},
        {&texts::oldFileVersion, "Ungültige Dateiversion! Möglicherweise wurde die Datei in VELDRIK erstellt.\n"
                                 "Benutzen Sie hierzu die Konvertierungsfunktion im Menüpunkt 'Optionen'."},
        {&texts::saveChanges, "Möchten Sie Änderungen am aktuellen Projekt speichern?"},
        {&texts::titleSaveProject, "Aktuelles Projekt sichern"},
        {&texts::labelCreated, "Erstellt am:"},
        {&texts::labelSaved, "Gesichert am:"},
        {&texts::currentProject, "Aktuelles Projekt:"},
    };
    Expect(quoted);
    EXPECT_EQ(QString(texts::saveUnderOtherName).remove('&'), "Unter anderem Namen speichern");
}

TEST_F(TextsTest, Menu_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::mnuFile, "&Datei"},
        {&texts::mnuNew, "&Neu"},
        {&texts::mnuOpen, "Ö&ffnen"},
        {&texts::mnuSave, "&Speichern"},
        {&texts::mnuSaveAs, "Speichern &unter"},
        {&texts::mnuClose, "S&chließen"},
        {&texts::mnuPrint, "&Drucken"},
        {&texts::mnuDelete, "&Löschen"},
        {&texts::mnuEnd, "&Beenden"},
        {&texts::mnuProjectData, "&Projekt"},
        {&texts::mnuGeneralData, "Allgemeine &Daten"},
        {&texts::mnuConfiguration, "Netz - &Konfiguration"},
        {&texts::mnuEngine, "Motor/&Generator"},
        {&texts::mnuDatabase, "Daten&bank"},
        {&texts::mnuDevice, "&Messen/Auswerten"},
        {&texts::mnuDeviceConf, "&Konfiguration"},
        {&texts::mnuOnlineDevice, "Messen über &Schnittstelle"},
        {&texts::mnuOfflineDevice, "Messwert&editor"},
        {&texts::mnuResTable, "Auswertung &tabellarisch"},
        {&texts::mnuResGraph, "Auswertung &grafisch"},
        {&texts::mnuResPrint, "Auswertung &drucken"},
        {&texts::mnuoptions, "&Optionen"},
        {&texts::mnuModbus, "&MODBUS Adresse..."},
        {&texts::mnuDatabaseOpt, "&Datenbank..."},
        {&texts::mnuConvert, "&Dateikonvertierung..."},
        {&texts::mnuLang, "&Sprache"},
        {&texts::mnuHelp, "&?"},
        {&texts::mnuBook, "N&achschlagen"},
        {&texts::mnuInternet, "&Internet"},
        {&texts::mnuInfo, "I&nfo"},
        {&texts::manualFile, "Documentation_deu.pdf"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, ColumnOrder_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::columnOrderTitle, "Reihenfolge ändern"},
        {&texts::columnMethod, "Methode"},
        {&texts::columnModel, "Modell"},
        {&texts::columnTimeStamp, "Zeitstempel"},
        {&texts::columnTime, "t Sample"},
        {&texts::buttonOk, "OK"},
        {&texts::buttonCancel, "Abbrechen"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, NetConfiguration_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::tabSinglePhase, "1-Phasen-Netz"},
        {&texts::tabThreePhase, "3-Phasen-Netz"},
        {&texts::tabMachine, "Asynchronmaschine"},
        {&texts::tabVoltage, "3-Phasen-Spannungsmessung"},
        {&texts::noteNotAllDevices, "* nicht bei allen Messgeräten verfügbar"},
        {&texts::measuredQuantities, "Gemessene Größen:"},
        {&texts::calculatedQuantities, "Berechnete Größen:"},
        {&texts::changeDeletesValues, "Durch diese Änderung werden die bereits aufgezeichneten Messwerte gelöscht.\n"
                                      "Fortfahren?"},
        {&texts::wiringName, "Bezeichnung:"},
        {&texts::wiringNet, "Netz:"},
        {&texts::wiringVoltage, "U-Messung:"},
        {&texts::wiringCurrent, "I-Messung:"},
        {&texts::wiringPower, "P-Messung:"},
        {&texts::wiringL2L3, "L2-L3"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, MeasuringConfiguration_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::titlePage3, "Messgerät - Konfiguration"},
        {&texts::buttonDiagnosis, "Selbst&diagnose"},
        {&texts::labelBeat, "Akustischer Takt:"},
        {&texts::buttonReadTransformers, "Von Messgerät lesen"},
        {&texts::buttonWriteTransformers, "In Messgerät speichern"},
        {&texts::buttonResetCounters, "Zähler zurücksetzen"},
        {&texts::wiringTitle, "Schaltung"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, MachinePage_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::titlePage10, "Motor/Generator - Datenbank"},
        {&texts::machineKnown, "bekannt"},
        {&texts::machineGroupRating, "Bemessungsgrößen (S1-Betrieb)"},
        {&texts::machinePmech, "Pmech [kW]:"},
        {&texts::machineU, "U [V]:"},
        {&texts::machineF, "f [Hz]:"},
        {&texts::machineN, "n [rpm]:"},
        {&texts::machineI, "I [A]:"},
        {&texts::machineCosphi, "cosphi:"},
        {&texts::machinePo, "Po [kW]:"},
        {&texts::machineUo, "Uo [V]:"},
        {&texts::machineIo, "Io [A]:"},
        {&texts::machineFo, "fo [Hz]:"},
        {&texts::machineRs, "R [Ohm]:"},
        {&texts::machineStallRatio, "Mmax/Mn:"},
        {&texts::machineTth, "Tth [min]:"},
        {&texts::machineMass, "m [kg]:"},
        {&texts::machineOnline, "Über Schnittstelle ermitteln"},
        {&texts::noLoadStart, "Leerlaufdaten ermitteln"},
        {&texts::noLoadStop, "Messung beenden"},
        {&texts::machineGroupPolePairs, "Polpaarzahl"},
        {&texts::machineGroupConnection, "Schaltungsart"},
        {&texts::machineGroupRs, "Ständerwiderstand"},
        {&texts::machineGroupStallRatio, "Kipp-/Nennmoment"},
        {&texts::machineGroupTth, "Erwärmungszeitkonstante"},
        {&texts::machineGroupInsulation, "Wärmebeständigkeitsklasse"},
        {&texts::machineGroupMass, "Gewicht"},
        {&texts::machineGroupFriction, "Inneres Reibmoment"},
        {&texts::machineFrictionZero, "gegen Null setzen"},
        {&texts::machineComment, "Bemerkungen:"},
        {&texts::machineLeast, "Es muss mindestens eine Maschine vorhanden sein."},
        {&texts::machineReallyDelete, "Wollen Sie diesen Motor/Generator wirklich löschen?"},
        {&texts::machineDuplicate, "Es existiert bereits ein Satz mit gleichen Angaben.\n"
                                   "Ändern Sie die Angabe unter Bemerkungen, um sie dennoch aufzunehmen."},
        {&texts::searchNothing, "Keine Datensätze gefunden!"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, AddressSearch_ToTheLetter)
{
    const Quoted quoted[] = {
        {&texts::modbusTitle, "MODBUS Geräteadresse"},
        {&texts::modbusEnterAddress,
         "Bitte wählen Sie ein Messgerät, geben dessen Adresse ein und drücken 'Überprüfung'"},
        {&texts::modbusEnterInterval,
         "Bitte wählen Sie ein Messgerät, setzen ein Suchintervall fest und drücken 'Suche starten'"},
        {&texts::modbusTest, "Überprüfung"},
        {&texts::modbusSearch, "Suche starten"},
        {&texts::modbusUnknownDevice, "Unbekanntes Messgerät"},
        {&texts::modbusAddressRange, "Die Adresse darf nur zwischen 1 und 247 liegen."},
        {&texts::modbusIntervalRange, "Das Interval darf nur zwischen 1 und 247 liegen."},
        {&texts::modbusTesting, "Prüfe Adresse # ..."},
        {&texts::modbusNotFound, "Messgerät nicht gefunden!"},
        {&texts::modbusOtherAddress, "Bitte versuchen Sie eine andere Adresse."},
        {&texts::modbusOtherInterval, "Bitte versuchen Sie ein anderes Intervall."},
        {&texts::modbusFound, "Messgerät gefunden"},
        {&texts::modbusFirstFound, "1. gefundene Geräteadresse ist: "},
        {&texts::modbusPressOk, "Um den Vorgang abzuschließen drücken Sie 'OK'"},
    };
    Expect(quoted);
}

} // namespace korvanel::test
