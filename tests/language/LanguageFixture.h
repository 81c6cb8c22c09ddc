// A folder of language files beside a program whose settings name one of them.
#pragma once

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "language/LangManaging.h"
#include "support/Fixture.h"

#include <memory>

namespace korvanel::test {

inline const QString kMissing = QStringLiteral("Couldn't find the saved language file.\nLoading standard language!");
inline const QString kBroken = QStringLiteral("Unable to load the language file!\nLoading standard language!");

class LanguageTest : public BlockTest
{
protected:
    LanguageTest()
    {
        DeleteSection(kSettingsApplication, "Settings");
        settings = std::make_unique<clsProgSettings>(App().sProgramDir);
        App().ProgSettings = settings.get();
    }
    ~LanguageTest() override { DeleteSection(kSettingsApplication, "Settings"); }

    void WriteLanguage(const QString& file, const QByteArray& content) const
    {
        ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES"));
        WriteContent("LANGUAGES/" + file, content);
    }
    void UseLanguage(const QString& file) const { settings->SetLanguageFile(file); }
    QString SavedLanguage() const { return clsProgSettings(App().sProgramDir).LanguageFile(); }

    /// The state after any failure: told once, built-in texts, "standard" in use and saved.
    void ExpectFallenBack(const QString& message) const
    {
        ASSERT_EQ(shell.boxes.size(), 1u);
        EXPECT_EQ(shell.boxes[0].text, message);
        EXPECT_EQ(shell.boxes[0].icon, BoxIcon::Exclamation);
        EXPECT_EQ(settings->LanguageFile(), "standard");
        EXPECT_EQ(SavedLanguage(), "standard");
        ExpectBuiltInTexts();
    }
    static void ExpectBuiltInTexts()
    {
        for (const TextSection& section : TextSections())
            for (const TextLine& line : section.lines)
                EXPECT_EQ(*line.variable, line.german);
    }

    std::unique_ptr<clsProgSettings> settings;
};

} // namespace korvanel::test
