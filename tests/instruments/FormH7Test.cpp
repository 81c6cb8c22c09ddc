#include "instruments/FormH7.h"

#include "support/Fixture.h"

#include <QLabel>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormH7Test : public BlockTest
{
protected:
    static QStringList Shown(const char* entry, int netConf)
    {
        App().sDevice = QString::fromUtf8(entry);
        App().iNetConfIndex = static_cast<qint16>(netConf);
        App().WiringTexts.fill(QStringLiteral("stale"));
        const FormH7 dialog(nullptr);
        QStringList texts;
        for (int i = 0; i < 6; ++i)
            texts << dialog.findChild<QLabel*>(QStringLiteral("lblWiringtext_%1").arg(i))->text();
        return texts;
    }
};

TEST_F(FormH7Test, HasItsTitleAndTheFiveCaptions)
{
    const FormH7 dialog(nullptr);
    EXPECT_EQ(dialog.windowTitle(), "Schaltung");
    const char* const captions[] = {"Bezeichnung:", "Netz:", "U-Messung:", "I-Messung:", "P-Messung:"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("lblText_%1").arg(i))->text(), captions[i]);
}

TEST_F(FormH7Test, LooksTheInstrumentUpAndShowsItsWiring)
{
    EXPECT_EQ(Shown("ISKRA MI71XX 3Ø3W (3u)", 1),
              (QStringList{"ISKRA MI71XX 3Ø3W (3u)", "3 Phasen, 3 Leiter, ARON-Schaltung", "L1-L2-L3", "L1-L2, L3-L2",
                           "L1, L3 (2-Wattmeter)", "Unterstützte Geräte: MI 7130, MI 7131, MI 7140, MI 7150"}));
}

TEST_F(FormH7Test, ASinglePhaseMeterIsWiredOtherwiseInAThreePhaseNet)
{
    EXPECT_EQ(Shown("YOKOGAWA WT130 1Ø2W", 0)[1], "1 Phase, 2 Leiter (single phase: 1b)");
    EXPECT_EQ(Shown("YOKOGAWA WT130 1Ø2W", 1)[1], "3 Phasen, 4 Leiter oder künstlicher Sternpunkt");
    EXPECT_EQ(Shown("YOKOGAWA WT130 1Ø2W", 2)[1], "1 Phase, 2 Leiter (single phase: 1b)");
}

TEST_F(FormH7Test, AVoltageMeterShowsADashForPower)
{
    EXPECT_EQ(Shown("ISKRA MI71XX 3Ø4W U ", 6)[4], "-");
}

TEST_F(FormH7Test, AnUnknownInstrumentHasEmptyTexts)
{
    EXPECT_EQ(Shown("<b>?</b>", 0), (QStringList{"<b>?</b>", "", "", "", "", ""}));
}

TEST_F(FormH7Test, OkCloses)
{
    FormH7 dialog(nullptr);
    dialog.show();
    dialog.findChild<QPushButton*>("cmdOK")->click();
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
} // namespace korvanel::test
