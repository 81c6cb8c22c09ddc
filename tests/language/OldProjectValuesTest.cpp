#include "language/OldProjectValues.h"

#include "language/ConversionFixture.h"

#include <limits>

namespace korvanel::test {
namespace {

TEST(OldProjectValues, Dates_HaveDayMonthYearAndATimeBehindTheComma)
{
    const auto moment = [](int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
        return QDateTime(QDate(year, month, day), QTime(hour, minute, second), Qt::UTC);
    };
    EXPECT_EQ(OldDate("14.03.1999, 15:09:26"), moment(1999, 3, 14, 15, 9, 26));
    EXPECT_EQ(OldDate(" 4 . 3 . 99 , 5 : 9 "), moment(1999, 3, 4, 5, 9));
    EXPECT_EQ(OldDate("1.1.29"), moment(2029, 1, 1));
    EXPECT_EQ(OldDate("1.1.30,"), moment(1930, 1, 1));
    EXPECT_EQ(OldDate("29.2.2000"), moment(2000, 2, 29));
    EXPECT_EQ(OldDate(QByteArrayView("1.1.2001\0\0", 10)), moment(2001, 1, 1));
    for (const char* none : {"", ",", "1.1", "1.1.1.1", "30.2.2000", "1.13.2000", "1.1.2000, 24:00", "1.1.2000, 1",
                             "1.1.2000, 1:2:3:4", "-1.1.2000", "1.1.20000", "heute", "1.1.2000 10:00", "0.0.0"})
        EXPECT_FALSE(OldDate(none)) << none;
}

TEST(OldProjectValues, Numbers_AreDoublesTextsOrNull)
{
    EXPECT_EQ(OldNumber(Double(-12.5)), -12.5);
    EXPECT_EQ(OldNumber("12,5"), 12.5);
    EXPECT_EQ(OldNumber(" 12.5 "), 12.5);
    EXPECT_EQ(OldNumber("7"), 7);
    EXPECT_EQ(OldNumber(LittleEndian<qint32>(-5)), -5);
    EXPECT_EQ(OldNumber(LittleEndian<qint16>(300)), 300);
    for (const QByteArray& none :
         {QByteArray("NULL"), QByteArray(), QByteArray("abc"), QByteArray("1,2,3"), QByteArray("inf"),
          QByteArray("nan"), QByteArray("1e999"), QByteArray(100, '1'), Double(std::numeric_limits<double>::infinity()),
          Double(std::numeric_limits<double>::quiet_NaN())})
        EXPECT_FALSE(OldNumber(none)) << none.toStdString();
}

TEST(OldProjectValues, Texts_AreOfTheCodePageAndHaveLineFeeds)
{
    EXPECT_EQ(OldText("K\xfchlung \x80\x96"), QString::fromUtf8("Kühlung €–"));
    EXPECT_EQ(OldText("a\r\nb\rc\nd"), "a\nb\nc\nd");
    EXPECT_EQ(OldText(QByteArrayView("a\0b\0", 4)), "ab");
}

TEST(OldProjectValues, ATextOfAHundredKilobytes_IsCutToWhatAProjectMayHold)
{
    EXPECT_EQ(OldText(QByteArray(100'000, '\xfc')), QString(32'767, u'ü'));
}

} // namespace
} // namespace korvanel::test
