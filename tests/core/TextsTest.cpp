// The table of texts: its numbering, and the German texts to the letter.
#include "core/Texts.h"

#include "support/Fixture.h"

#include <set>
#include <string>

namespace korvanel::test {

namespace {

struct Quoted
{
    TextMember text;
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

using T = TextTable;

} // namespace

TEST_F(TextsTest, EveryText_HasItsOwnSectionAndNumber)
{
    std::set<std::pair<std::string, int>> places;
    for (const TextEntry& entry : TextEntries())
        EXPECT_TRUE(places.emplace(SectionName(entry.section), entry.number).second)
            << SectionName(entry.section) << ' ' << entry.number << ": " << entry.german;
}

TEST_F(TextsTest, EveryText_HasANumberOfThreeDigitsFromOneOn)
{
    for (const TextEntry& entry : TextEntries()) {
        EXPECT_GE(entry.number, 1) << entry.german;
        EXPECT_LE(entry.number, 999) << entry.german;
    }
}

TEST_F(TextsTest, EveryText_HasAGermanDefault)
{
    for (const TextEntry& entry : TextEntries())
        EXPECT_FALSE(QString(entry.german).trimmed().isEmpty()) << SectionName(entry.section) << ' ' << entry.number;
}

TEST_F(TextsTest, EveryText_IsVariableOfOneEntryOnly)
{
    std::set<const QString*> variables;
    for (const TextEntry& entry : TextEntries())
        EXPECT_TRUE(variables.insert(&(Texts().*entry.variable)).second) << entry.german;
    EXPECT_EQ(variables.size() * sizeof(QString), sizeof(TextTable)); // and no variable is without an entry
}

TEST_F(TextsTest, EverySection_IsOneThatALanguageFileHas)
{
    const QStringList sections{"MAIN",    "DEFAULT", "VALUE NAMES", "DIALOGUES", "PRINT/EXPORT", "FORMF1",  "FORMF2",
                               "FORMF3",  "FORMF4",  "FORMF5",      "FORMF6",    "FORMF8",       "FORMF9",  "FORMF10",
                               "FORMH3",  "FORMH5",  "FORMH6",      "FORMH7",    "FORMH9",       "FORMH10", "FORMH11",
                               "FORMH12", "FORMH13", "FORMH14",     "FORMH15",   "FORMH16",      "FORMH17"};
    for (const TextEntry& entry : TextEntries())
        EXPECT_TRUE(sections.contains(SectionName(entry.section))) << SectionName(entry.section);
}

TEST_F(TextsTest, SetBuiltInTexts_SetsEveryTextToItsDefault)
{
    Texts() = TextTable();
    SetBuiltInTexts();
    for (const TextEntry& entry : TextEntries())
        EXPECT_EQ(TextOf(entry.variable), entry.german);
}

TEST_F(TextsTest, Messages_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::titleError, "Fehlermeldung"},
        {&T::titleInformation, "Information"},
        {&T::titleAttention, "Achtung"},
        {&T::badFormat, "Ungültiges Dateiformat:"},
        {&T::notFound, "Konnte Pfad/Datei nicht finden: "},
        {&T::reallyDelete, "Datei wirklich löschen?"},
        {&T::reallyOverwrite, "Überschreiben der Datei"},
        {&T::numberRange, "Der eingegebene Wert muss sich\nzwischen # und # befinden."},
        {&T::languageChange, "Die Änderung der Sprache tritt erst beim nächsten Programmstart in Kraft.\n"
                             "Möchten sie jetzt einen Neustart von KORVANEL durchführen?"},
        {&T::noMachineChosen, "Sie haben keine bzw. eine für die Messreihe ungültige Asynchron-Maschine aus der "
                              "Datenbank gewählt."},
    };
    Expect(quoted);
}

TEST_F(TextsTest, ProjectTexts_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::defaultProjectName, "Neues Projekt"},
        {&T::defaultCompany, "Ihre Firma"},
        {&T::defaultEditor, "Ihr Name"},
        {&T::defaultDescription, "Hersteller:\nStandort:\nEinbaulage:\nweitere Angaben:"},
        {&T::titleNewProject, "Neues Projekt erstellen unter"},
        {&T::titleOpen, "Öffnen"},
        {&T::titleSaveAs, "Speichern unter"},
        {&T::titleDelete, "Löschen"},
        {&T::filterDelete, "KORVANEL Projekte (*.MDB)|*.MDB|KVL Projekte (*.KVL)|*.KVL|"},
        {&T::noFileChosen, "Keine Datei ausgewählt!"},
        {&T::oldFileVersion, "Ungültige Dateiversion! Möglicherweise wurde die Datei in VELDRIK erstellt.\n"
                             "Benutzen Sie hierzu die Konvertierungsfunktion im Menüpunkt 'Optionen'."},
        {&T::saveChanges, "Möchten Sie Änderungen am aktuellen Projekt speichern?"},
        {&T::titleSaveProject, "Aktuelles Projekt sichern"},
        {&T::labelCreated, "Erstellt am:"},
        {&T::labelSaved, "Gesichert am:"},
        {&T::currentProject, "Aktuelles Projekt:"},
    };
    Expect(quoted);
    EXPECT_EQ(QString(Texts().saveUnderOtherName).remove('&'), "Unter anderem Namen speichern");
}

TEST_F(TextsTest, Menu_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::mnuFile, "&Datei"},
        {&T::mnuNew, "&Neu"},
        {&T::mnuOpen, "Ö&ffnen"},
        {&T::mnuSave, "&Speichern"},
        {&T::mnuSaveAs, "Speichern &unter"},
        {&T::mnuClose, "S&chließen"},
        {&T::mnuPrint, "&Drucken"},
        {&T::mnuDelete, "&Löschen"},
        {&T::mnuEnd, "&Beenden"},
        {&T::mnuProjectData, "&Projekt"},
        {&T::mnuGeneralData, "Allgemeine &Daten"},
        {&T::mnuConfiguration, "Netz - &Konfiguration"},
        {&T::mnuEngine, "Motor/&Generator"},
        {&T::mnuDatabase, "Daten&bank"},
        {&T::mnuDevice, "&Messen/Auswerten"},
        {&T::mnuDeviceConf, "&Konfiguration"},
        {&T::mnuOnlineDevice, "Messen über &Schnittstelle"},
        {&T::mnuOfflineDevice, "Messwert&editor"},
        {&T::mnuResTable, "Auswertung &tabellarisch"},
        {&T::mnuResGraph, "Auswertung &grafisch"},
        {&T::mnuResPrint, "Auswertung &drucken"},
        {&T::mnuoptions, "&Optionen"},
        {&T::mnuModbus, "&MODBUS Adresse..."},
        {&T::mnuDatabaseOpt, "&Datenbank..."},
        {&T::mnuConvert, "&Dateikonvertierung..."},
        {&T::mnuLang, "&Sprache"},
        {&T::mnuHelp, "&?"},
        {&T::mnuBook, "N&achschlagen"},
        {&T::mnuInternet, "&Internet"},
        {&T::mnuInfo, "I&nfo"},
        {&T::manualFile, "Documentation_deu.pdf"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, ColumnOrder_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::columnOrderTitle, "Reihenfolge ändern"},
        {&T::columnMethod, "Methode"},
        {&T::columnModel, "Modell"},
        {&T::columnTimeStamp, "Zeitstempel"},
        {&T::columnTime, "t Sample"},
        {&T::buttonOk, "OK"},
        {&T::buttonCancel, "Abbrechen"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, NetConfiguration_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::tabSinglePhase, "1-Phasen-Netz"},
        {&T::tabThreePhase, "3-Phasen-Netz"},
        {&T::tabMachine, "Asynchronmaschine"},
        {&T::tabVoltage, "3-Phasen-Spannungsmessung"},
        {&T::noteNotAllDevices, "* nicht bei allen Messgeräten verfügbar"},
        {&T::measuredQuantities, "Gemessene Größen:"},
        {&T::calculatedQuantities, "Berechnete Größen:"},
        {&T::changeDeletesValues, "Durch diese Änderung werden die bereits aufgezeichneten Messwerte gelöscht.\n"
                                  "Fortfahren?"},
        {&T::wiringName, "Bezeichnung:"},
        {&T::wiringNet, "Netz:"},
        {&T::wiringVoltage, "U-Messung:"},
        {&T::wiringCurrent, "I-Messung:"},
        {&T::wiringPower, "P-Messung:"},
        {&T::wiringL2L3, "L2-L3"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, MeasuringConfiguration_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::titlePage3, "Messgerät - Konfiguration"},
        {&T::buttonDiagnosis, "Selbst&diagnose"},
        {&T::labelBeat, "Akustischer Takt:"},
        {&T::buttonReadTransformers, "Von Messgerät lesen"},
        {&T::buttonWriteTransformers, "In Messgerät speichern"},
        {&T::buttonResetCounters, "Zähler zurücksetzen"},
        {&T::wiringTitle, "Schaltung"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, MachinePage_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::titlePage10, "Motor/Generator - Datenbank"},
        {&T::machineKnown, "bekannt"},
        {&T::machineGroupRating, "Bemessungsgrößen (S1-Betrieb)"},
        {&T::machinePmech, "Pmech [kW]:"},
        {&T::machineU, "U [V]:"},
        {&T::machineF, "f [Hz]:"},
        {&T::machineN, "n [rpm]:"},
        {&T::machineI, "I [A]:"},
        {&T::machineCosphi, "cosphi:"},
        {&T::machinePo, "Po [kW]:"},
        {&T::machineUo, "Uo [V]:"},
        {&T::machineIo, "Io [A]:"},
        {&T::machineFo, "fo [Hz]:"},
        {&T::machineRs, "R [Ohm]:"},
        {&T::machineStallRatio, "Mmax/Mn:"},
        {&T::machineTth, "Tth [min]:"},
        {&T::machineMass, "m [kg]:"},
        {&T::machineOnline, "Über Schnittstelle ermitteln"},
        {&T::noLoadStart, "Leerlaufdaten ermitteln"},
        {&T::noLoadStop, "Messung beenden"},
        {&T::machineGroupPolePairs, "Polpaarzahl"},
        {&T::machineGroupConnection, "Schaltungsart"},
        {&T::machineGroupRs, "Ständerwiderstand"},
        {&T::machineGroupStallRatio, "Kipp-/Nennmoment"},
        {&T::machineGroupTth, "Erwärmungszeitkonstante"},
        {&T::machineGroupInsulation, "Wärmebeständigkeitsklasse"},
        {&T::machineGroupMass, "Gewicht"},
        {&T::machineGroupFriction, "Inneres Reibmoment"},
        {&T::machineFrictionZero, "gegen Null setzen"},
        {&T::machineComment, "Bemerkungen:"},
        {&T::machineLeast, "Es muss mindestens eine Maschine vorhanden sein."},
        {&T::machineReallyDelete, "Wollen Sie diesen Motor/Generator wirklich löschen?"},
        {&T::machineDuplicate, "Es existiert bereits ein Satz mit gleichen Angaben.\n"
                               "Ändern Sie die Angabe unter Bemerkungen, um sie dennoch aufzunehmen."},
        {&T::searchNothing, "Keine Datensätze gefunden!"},
    };
    Expect(quoted);
}

TEST_F(TextsTest, AddressSearch_ToTheLetter)
{
    const Quoted quoted[] = {
        {&T::modbusTitle, "MODBUS Geräteadresse"},
        {&T::modbusEnterAddress, "Bitte wählen Sie ein Messgerät, geben dessen Adresse ein und drücken 'Überprüfung'"},
        {&T::modbusEnterInterval,
         "Bitte wählen Sie ein Messgerät, setzen ein Suchintervall fest und drücken 'Suche starten'"},
        {&T::modbusTest, "Überprüfung"},
        {&T::modbusSearch, "Suche starten"},
        {&T::modbusUnknownDevice, "Unbekanntes Messgerät"},
        {&T::modbusAddressRange, "Die Adresse darf nur zwischen 1 und 247 liegen."},
        {&T::modbusIntervalRange, "Das Interval darf nur zwischen 1 und 247 liegen."},
        {&T::modbusTesting, "Prüfe Adresse # ..."},
        {&T::modbusNotFound, "Messgerät nicht gefunden!"},
        {&T::modbusOtherAddress, "Bitte versuchen Sie eine andere Adresse."},
        {&T::modbusOtherInterval, "Bitte versuchen Sie ein anderes Intervall."},
        {&T::modbusFound, "Messgerät gefunden"},
        {&T::modbusFirstFound, "1. gefundene Geräteadresse ist: "},
        {&T::modbusPressOk, "Um den Vorgang abzuschließen drücken Sie 'OK'"},
    };
    Expect(quoted);
}

} // namespace korvanel::test
