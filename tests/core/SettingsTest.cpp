// The user's key-value store and the program settings that live in it.
#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"

#include "support/Fixture.h"

#include <QFileInfo>
#include <QSettings>

#include <functional>
#include <map>
#include <stdexcept>

namespace korvanel::test {

namespace {

const QString kSection = QStringLiteral("Settings");

class SettingsTest : public BlockTest
{
protected:
    SettingsTest() { RemoveStore(); }
    ~SettingsTest() override { RemoveStore(); }

    static QString StorePath()
    {
        return QSettings(QSettings::IniFormat, QSettings::UserScope, kSettingsApplication, kSettingsApplication)
            .fileName();
    }
    static void RemoveStore()
    {
        QFile::remove(StorePath());
        QFile::remove(StorePath() + ".bak");
    }
    /// Writes the store as a hand or a fault would.
    static void WriteStore(const QByteArray& content)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(StorePath()).path()));
        QFile file(StorePath());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }
    static void Put(const QString& key, const QString& value)
    {
        StoreValue(kSettingsApplication, kSection, key, value);
    }
    static QString Stored(const QString& key)
    {
        const std::map<QString, QString> section = ReadSection(kSettingsApplication, kSection);
        const auto entry = section.find(key);
        return entry == section.end() ? QStringLiteral("(absent)") : entry->second;
    }
    /// What a start reads back for a stored text of each numeric key.
    static void ExpectNumbers(const clsProgSettings& settings, double size, qint16 selection, qint32 cycles,
                              double cost)
    {
        EXPECT_EQ(settings.TWindowSize(), size);
        EXPECT_EQ(settings.TWindowSelection(), selection);
        EXPECT_EQ(settings.Cycles(), cycles);
        EXPECT_EQ(settings.EnergyCosts(1), cost);
    }
    static void PutNumbers(const QString& value)
    {
        for (const char* key : {"TWin0", "TWin2", "Cycles", "ECosts1"})
            Put(key, value);
    }

    const QString program = QStringLiteral("/opt/korvanel");
};

} // namespace

TEST_F(SettingsTest, EachKeyBelongsToOneSetting)
{
    std::map<QString, QStringList> owners;
#define SETTING(type, name, key, standard) owners[QStringLiteral(key)] << QStringLiteral(#name);
#include "core/ProgSettings.inc"
#undef SETTING
    EXPECT_TRUE(owners.contains(QStringLiteral("Mdb")));
    for (const auto& [key, names] : owners)
        EXPECT_EQ(names.size(), 1) << key.toStdString() << ": " << names.join(u' ').toStdString();
}

TEST_F(SettingsTest, Store_OfANewUserHasNoKeys)
{
    EXPECT_TRUE(ReadSection(kSettingsApplication, kSection).empty());
}

TEST_F(SettingsTest, Store_GivesAllKeysOfASectionByName)
{
    Put("a", "1");
    Put("b", "zwei");
    StoreValue(kSettingsApplication, "MRU", "a", "anders");
    EXPECT_EQ(ReadSection(kSettingsApplication, kSection), (std::map<QString, QString>{{"a", "1"}, {"b", "zwei"}}));
    EXPECT_EQ(ReadSection(kSettingsApplication, "MRU"), (std::map<QString, QString>{{"a", "anders"}}));
}

TEST_F(SettingsTest, Store_IsOnDiskAtOnce)
{
    Put("Probe", "sofort");
    QFile file(StorePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().contains("sofort"));
}

TEST_F(SettingsTest, Store_ReplacesAValue)
{
    Put("a", "alt");
    Put("a", "neu");
    EXPECT_EQ(Stored("a"), "neu");
}

TEST_F(SettingsTest, Store_KeepsAnyTextToTheLetter)
{
    const char* texts[] = {"",      "€",          "a, b", "a;b=c",   "\"quer\"", "C:\\K\\neu.MDB",
                           "@",     "@Invalid()", "@@x",  "100 %41", " außen ",  "zwei\nZeilen",
                           "[abc]", "true",       "0x10", "\\x41",   "-",        "Größe\tµ"};
    for (const char* text : texts) {
        Put("Probe", text);
        EXPECT_EQ(Stored("Probe"), text);
    }
}

TEST_F(SettingsTest, DeleteSection_RemovesThatSectionAlone)
{
    Put("a", "1");
    StoreValue(kSettingsApplication, "MRU", "b", "2");
    DeleteSection(kSettingsApplication, "MRU");
    EXPECT_TRUE(ReadSection(kSettingsApplication, "MRU").empty());
    EXPECT_EQ(Stored("a"), "1");
}

TEST_F(SettingsTest, HandWrittenTextWithCommas_ReadsAsOneText)
{
    WriteStore("[Settings]\nCurrency=a,b,c\n");
    EXPECT_EQ(Stored("Currency"), "a,b,c");
}

TEST_F(SettingsTest, SetDamagedStoreAside_LeavesASoundOrNewStoreAlone)
{
    EXPECT_EQ(SetDamagedStoreAside(kSettingsApplication), std::nullopt);
    Put("a", "1");
    EXPECT_EQ(SetDamagedStoreAside(kSettingsApplication), std::nullopt);
    EXPECT_FALSE(QFile::exists(StorePath() + ".bak"));
}

TEST_F(SettingsTest, SetDamagedStoreAside_CopiesADamagedStoreBeforeItIsReplaced)
{
    const QByteArray content = "[Settings]\nCycles=7\nno key here\n\xFF\xFE\x01\n[broken\n";
    WriteStore(content);
    const std::optional<QString> copy = SetDamagedStoreAside(kSettingsApplication);
    ASSERT_TRUE(copy);
    QFile file(*copy);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), content);
}

TEST_F(SettingsTest, DamagedStore_StillTakesNewValues)
{
    WriteStore("no key here\n[broken\n");
    ASSERT_TRUE(SetDamagedStoreAside(kSettingsApplication));
    clsProgSettings(program).SetCycles(25);
    EXPECT_EQ(clsProgSettings(program).Cycles(), 25);
}

TEST_F(SettingsTest, EmptyStore_GivesTheDefaults)
{
    const clsProgSettings settings(program);
    const QString separator(QDir::separator());
    EXPECT_EQ(settings.LanguageFile(), "standard");
    EXPECT_EQ(settings.ExportPath(), program + separator + "PROJECTS" + separator);
    EXPECT_EQ(settings.MotorDatabase(), program + separator + "MOTORDATABASE" + separator + "MOTOR_DB.MDB");
    EXPECT_EQ(settings.TWindowSize(), 900);
    EXPECT_EQ(settings.TWindowFactor(), 3);
    EXPECT_EQ(settings.TWindowSelection(), 0);
    EXPECT_EQ(settings.Cycles(), 10);
    EXPECT_EQ(settings.UsedCurrency(), "€");
    EXPECT_EQ(settings.EnergyCosts(0), 0.15);
    EXPECT_EQ(settings.EnergyCosts(1), 0.07);
    EXPECT_EQ(settings.EnergyCosts(2), 0.03);
}

TEST_F(SettingsTest, Reading_WritesNothing)
{
    const clsProgSettings settings(program);
    EXPECT_TRUE(ReadSection(kSettingsApplication, kSection).empty());
}

TEST_F(SettingsTest, EachProperty_GoesThroughToItsKeyAtOnceAndReturns)
{
    struct Case
    {
        const char* key;
        std::function<void(clsProgSettings&)> set;
        const char* stored;
        std::function<bool(const clsProgSettings&)> returns;
    };
    using S = clsProgSettings;
    const Case cases[] = {
        {"LangFile", [](S& s) { s.SetLanguageFile("eng.lng"); }, "eng.lng",
         [](const S& s) { return s.LanguageFile() == "eng.lng"; }},
        {"Export", [](S& s) { s.SetExportPath("/home/x, y/"); }, "/home/x, y/",
         [](const S& s) { return s.ExportPath() == "/home/x, y/"; }},
        {"Mdb", [](S& s) { s.SetMotorDatabase("C:\\M.MDB"); }, "C:\\M.MDB",
         [](const S& s) { return s.MotorDatabase() == "C:\\M.MDB"; }},
        {"TWin0", [](S& s) { s.SetTWindowSize(12.5); }, "12.5", [](const S& s) { return s.TWindowSize() == 12.5; }},
        {"TWin1", [](S& s) { s.SetTWindowFactor(-0.25); }, "-0.25",
         [](const S& s) { return s.TWindowFactor() == -0.25; }},
        {"TWin2", [](S& s) { s.SetTWindowSelection(2); }, "2", [](const S& s) { return s.TWindowSelection() == 2; }},
        {"Cycles", [](S& s) { s.SetCycles(123456); }, "123456", [](const S& s) { return s.Cycles() == 123456; }},
        {"Currency", [](S& s) { s.SetUsedCurrency("Fr."); }, "Fr.",
         [](const S& s) { return s.UsedCurrency() == "Fr."; }},
        {"ECosts0", [](S& s) { s.SetEnergyCosts(0, 0.5); }, "0.5", [](const S& s) { return s.EnergyCosts(0) == 0.5; }},
        {"ECosts1", [](S& s) { s.SetEnergyCosts(1, 1.5); }, "1.5", [](const S& s) { return s.EnergyCosts(1) == 1.5; }},
        {"ECosts2", [](S& s) { s.SetEnergyCosts(2, 4); }, "4", [](const S& s) { return s.EnergyCosts(2) == 4; }},
    };
    clsProgSettings settings(program);
    for (const Case& c : cases) {
        c.set(settings);
        EXPECT_TRUE(c.returns(settings)) << c.key;
        EXPECT_EQ(Stored(c.key), c.stored) << c.key;
        EXPECT_TRUE(c.returns(clsProgSettings(program))) << c.key;
    }
    EXPECT_EQ(ReadSection(kSettingsApplication, kSection).size(), std::size(cases));
}

TEST_F(SettingsTest, Doubles_ReturnToTheLastDigit)
{
    for (const double value : {0.1, 1.0 / 3, 1e-12, 123456789.123456789, 1e21}) {
        clsProgSettings(program).SetTWindowSize(value);
        EXPECT_EQ(clsProgSettings(program).TWindowSize(), value);
    }
}

TEST_F(SettingsTest, Store_IsReadOnceByTheConstructor)
{
    const clsProgSettings settings(program);
    Put("Cycles", "77");
    EXPECT_EQ(settings.Cycles(), 10);
    EXPECT_EQ(clsProgSettings(program).Cycles(), 77);
}

TEST_F(SettingsTest, EnergyCosts_WithIndexThreeIsABoundsErrorAndStoresNothing)
{
    clsProgSettings settings(program);
    EXPECT_THROW(static_cast<void>(settings.EnergyCosts(3)), std::out_of_range);
    EXPECT_THROW(settings.SetEnergyCosts(3, 1), std::out_of_range);
    EXPECT_TRUE(ReadSection(kSettingsApplication, kSection).empty());
}

TEST_F(SettingsTest, WholeNumbers_AreRoundedHalfToEven)
{
    struct Case
    {
        const char* text;
        int whole;
    };
    for (const Case& c : {Case{"2.5", 2}, Case{"3.5", 4}, Case{"2.51", 3}, Case{"-0.5", 0}, Case{"-1.5", -2},
                          Case{"1e2", 100}, Case{"0.49", 0}}) {
        Put("TWin2", c.text);
        Put("Cycles", c.text);
        const clsProgSettings settings(program);
        EXPECT_EQ(settings.TWindowSelection(), c.whole) << c.text;
        EXPECT_EQ(settings.Cycles(), c.whole) << c.text;
    }
}

TEST_F(SettingsTest, BadValues_GiveTheDefaultOfTheirKey)
{
    for (const char* text :
         {"", "abc", "1.2.3", "nan", "inf", "-inf", "1e999", "0,15", "1,5", "0x10", "--1", "7 V", "zwölf", "1e", "."}) {
        SCOPED_TRACE(text);
        PutNumbers(text);
        ExpectNumbers(clsProgSettings(program), 900, 0, 10, 0.07);
    }
}

TEST_F(SettingsTest, CommaInAStoredNumber_IsNoSeparatorOfThousands)
{
    PutNumbers("1,234");
    ExpectNumbers(clsProgSettings(program), 900, 0, 10, 0.07);
}

TEST_F(SettingsTest, WholeNumbersBeyondTheirType_GiveTheDefault)
{
    for (const char* text : {"32768", "-32769", "1e300"}) {
        Put("TWin2", text);
        EXPECT_EQ(clsProgSettings(program).TWindowSelection(), 0) << text;
    }
    for (const char* text : {"2147483648", "-2147483649", "-1e300"}) {
        Put("Cycles", text);
        EXPECT_EQ(clsProgSettings(program).Cycles(), 10) << text;
    }
    Put("TWin2", "-32768");
    Put("Cycles", "2147483647");
    EXPECT_EQ(clsProgSettings(program).TWindowSelection(), -32768);
    EXPECT_EQ(clsProgSettings(program).Cycles(), 2147483647);
}

TEST_F(SettingsTest, OneBadValue_LeavesTheOthers)
{
    Put("TWin0", "abc");
    Put("Cycles", "42");
    Put("Currency", "Fr.");
    const clsProgSettings settings(program);
    EXPECT_EQ(settings.TWindowSize(), 900);
    EXPECT_EQ(settings.Cycles(), 42);
    EXPECT_EQ(settings.UsedCurrency(), "Fr.");
}

TEST_F(SettingsTest, OtherKeys_AreIgnored)
{
    Put("ECosts3", "9");
    Put("TWin3", "9");
    Put("Unbekannt", "x");
    const clsProgSettings settings(program);
    EXPECT_EQ(settings.TWindowSize(), 900);
    EXPECT_EQ(settings.EnergyCosts(2), 0.03);
    EXPECT_EQ(Stored("Unbekannt"), "x");
}

TEST_F(SettingsTest, TextThatLooksLikeAnotherType_DoesNotEmptyItsProperty)
{
    WriteStore("[Settings]\nMdb=@Rect(1 2 3 4)\nExport=@Invalid()\n");
    const clsProgSettings settings(program);
    EXPECT_NE(settings.MotorDatabase(), "");
    EXPECT_NE(settings.ExportPath(), "");
}

TEST_F(SettingsTest, HostileTexts_AreTakenAsTextsAndNumbersKeepTheirDefaults)
{
    WriteStore("[Settings]\nLangFile=../../../etc/passwd\nTWin0=@Variant(\\0\\0\\0\\x7f\\xff\\xff\\xff\\xff)\n"
               "TWin2=@Rect(1 2 3 4)\nCycles=1, 2\nECosts1=@ByteArray(\\0\\xff)\nMdb=" +
               QByteArray(200'000, 'x') + "\n");
    const clsProgSettings settings(program);
    ExpectNumbers(settings, 900, 0, 10, 0.07);
    EXPECT_EQ(settings.LanguageFile(), "../../../etc/passwd");
    EXPECT_EQ(settings.MotorDatabase().size(), 200'000);
}

} // namespace korvanel::test
