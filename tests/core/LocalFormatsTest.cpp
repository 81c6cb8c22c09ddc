// Decimal characters, and dates and times as text. The tests run without a locale of the system, which counts as
// German.
#include "core/LocalFormats.h"

#include "support/Fixture.h"

#include <ctime>

namespace korvanel::test {

TEST(LocalFormatsTest, FormatLocale_OfASystemWithoutLocaleIsGerman)
{
    EXPECT_EQ(FormatLocale().language(), QLocale::German);
}

TEST(LocalFormatsTest, AppendDateTimeTextOfStored_AppendsADateAndNothingElse)
{
    std::string text = "am ";
    EXPECT_TRUE(AppendDateTimeTextOfStored(text, "2026-03-14 15:09:26"));
    EXPECT_EQ(text, "am 14.03.2026 15:09:26");
    for (const char* other : {"", "gestern", "2026-03-14", "2026-03-14T15:09:26", "2026-03-14 15:09:26.5"})
        EXPECT_FALSE(AppendDateTimeTextOfStored(text, other)) << other;
    EXPECT_EQ(text, "am 14.03.2026 15:09:26");
}

TEST(LocalFormatsTest, SystemDecimalChar_WithoutSettingIsTheComma)
{
    EXPECT_EQ(SystemDecimalChar(), u',');
}

TEST(LocalFormatsTest, OtherDecimalChar_IsThePointForTheComma)
{
    EXPECT_EQ(OtherDecimalCharOf(u','), u'.');
}

TEST(LocalFormatsTest, OtherDecimalChar_IsTheCommaForAnyOtherSetting)
{
    for (const QChar decimalChar : {u'.', u';', u'\'', u' '})
        EXPECT_EQ(OtherDecimalCharOf(decimalChar), u',') << QString(decimalChar).toStdString();
}

TEST(LocalFormatsTest, ZeroDate_IsTheEndOf1899)
{
    EXPECT_EQ(ZeroDate().date(), QDate(1899, 12, 30));
    EXPECT_EQ(ZeroDate().time(), QTime(0, 0, 0));
}

TEST(LocalFormatsTest, DateTimeText_IsDateBlankTimeWithFourDigitYearAndSeconds)
{
    EXPECT_EQ(DateTimeText(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7))), "04.03.2026 05:06:07");
    EXPECT_EQ(DateTimeText(QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59))), "31.12.1999 23:59:59");
}

TEST(LocalFormatsTest, DateFormatAndTimeFormat_AreThoseOfTheText)
{
    const QDateTime moment(QDate(2026, 3, 4), QTime(5, 6, 7));
    EXPECT_EQ(DateFormat(), "dd.MM.yyyy");
    EXPECT_EQ(TimeFormat(), "HH:mm:ss");
    EXPECT_EQ(moment.toString(DateFormat() + ' ' + TimeFormat()), DateTimeText(moment));
}

TEST(LocalFormatsTest, DateTimeText_AtMidnightKeepsItsTime)
{
    EXPECT_EQ(DateTimeText(QDateTime(QDate(2026, 3, 4), QTime(0, 0, 0))), "04.03.2026 00:00:00");
}

TEST(LocalFormatsTest, GeneralDateText_LeavesOutWhatIsZero)
{
    EXPECT_EQ(GeneralDateText(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7))), "04.03.2026 05:06:07");
    EXPECT_EQ(GeneralDateText(QDateTime(QDate(2026, 3, 4), QTime(0, 0, 0))), "04.03.2026");
    EXPECT_EQ(GeneralDateText(QDateTime(QDate(1899, 12, 30), QTime(5, 6, 7))), "05:06:07");
    EXPECT_EQ(GeneralDateText(ZeroDate()), "00:00:00");
}

TEST(LocalFormatsTest, StoredDateText_IsIsoWithABlank)
{
    EXPECT_EQ(StoredDateText(QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7))), "2026-03-04 05:06:07");
    EXPECT_EQ(StoredDateText(ZeroDate()), "1899-12-30 00:00:00");
}

TEST(LocalFormatsTest, DateFromStoredText_ReturnsWhatWasStored)
{
    for (const QDateTime& moment :
         {QDateTime(QDate(2026, 3, 4), QTime(5, 6, 7)), ZeroDate(), QDateTime(QDate(2024, 2, 29), QTime(23, 59, 59))})
        EXPECT_EQ(DateFromStoredText(StoredDateText(moment)), moment) << StoredDateText(moment).toStdString();
}

TEST(LocalFormatsTest, DateFromStoredText_OfAnyOtherTextIsInvalid)
{
    for (const char* text : {"", "2026-03-04", "04.03.2026 05:06:07", "2026-13-04 05:06:07", "2026-02-30 05:06:07",
                             "2026-03-04 24:00:00", "2026-03-04 05:06:07 UTC", "2026-03-04T05:06:07", "garbage"})
        EXPECT_FALSE(DateFromStoredText(text).isValid()) << text;
}

TEST(LocalFormatsTest, StoredMoment_InTheHourThatDaylightSavingSkipsIsATimeLikeAnyOther)
{
    const QByteArray former = qgetenv("TZ");
    qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    tzset();
    const QDateTime moment = DateFromStoredText("2026-03-29 02:30:00");
    EXPECT_TRUE(moment.isValid());
    EXPECT_EQ(StoredDateText(moment), "2026-03-29 02:30:00");
    EXPECT_EQ(DateFromStoredText("2026-03-29 03:30:00").toSecsSinceEpoch() - moment.toSecsSinceEpoch(), 3600)
        << "whole seconds of calendar time";
    qputenv("TZ", former);
    tzset();
}

} // namespace korvanel::test
