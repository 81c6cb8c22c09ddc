// The conversion against files and results of another program: see old_project_writer.py, which shares nothing with
// this one. What the file stores has to come through unchanged, what is formed from it to agree to 1e-12.
#include "language/ConversionFixture.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/TestPaths.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace korvanel::test {
namespace {

constexpr const char* kStored[] = {"U sum", "I sum", "f sum", "P sum"};
constexpr const char* kFormed[] = {"phi sum", "Q sum", "S sum", "cosphi sum", "Wp", "Wp+", "Wp-", "Wq"};

QJsonArray Variants()
{
    QFile file(QStringLiteral(KORVANEL_LANGUAGE_DATA "/old_projects.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).array();
}

class IndependentConversion : public ConversionTest
{
protected:
    void CompareSets(const QJsonArray& sets)
    {
        SQLite::Database db(target.toStdString());
        SQLite::Statement query(db, "SELECT * FROM SampledValues INNER JOIN ComputedValues ON SampledValues.[Set] = "
                                    "ComputedValues.[Set] ORDER BY SampledValues.[Set]");
        for (const QJsonValue& set : sets) {
            ASSERT_TRUE(query.executeStep()) << "a set is missing";
            CompareSet(query, set.toObject());
        }
        EXPECT_FALSE(query.executeStep()) << "there are more sets";
    }

    static void CompareSet(SQLite::Statement& row, const QJsonObject& expected)
    {
        for (const char* column : {"Set", "t", "Edit"})
            EXPECT_EQ(row.getColumn(column).getInt64(), expected[QLatin1String(column)].toInteger()) << column;
        EXPECT_TRUE(row.getColumn("Time").isNull());
        int at = 0;
        for (const char* column : kStored)
            EXPECT_EQ(row.getColumn(column).getDouble(), expected["stored"].toArray()[at++].toDouble()) << column;
        at = 0;
        for (const char* column : kFormed) {
            const double value = expected["formed"].toArray()[at++].toDouble();
            EXPECT_NEAR(row.getColumn(column).getDouble(), value, 1e-12 * std::abs(value)) << column;
        }
    }

    void CompareProject(const QJsonObject& variant)
    {
        const QJsonObject keys = variant["keys"].toObject();
        for (auto key = keys.begin(); key != keys.end(); ++key)
            EXPECT_EQ(KeyText(key.key().toLatin1()), key.value().toString()) << key.key().toStdString();
        EXPECT_EQ(KeyText("Measurement Interval").toDouble(), variant["interval"].toDouble());
        EXPECT_EQ(Setting("iNetConfIndex").toInt(), variant["net"].toInt());
        CompareSets(variant["sets"].toArray());
    }

    /// The outcome of the conversion, by the words of the table.
    QString Outcome(const QByteArray& file)
    {
        try {
            if (Convert(file))
                return QStringLiteral("project");
        } catch (const ArithmeticFault&) {
            return QStringLiteral("fault");
        }
        const QString text = shell.boxes.empty() ? QString() : shell.boxes.back().text;
        return text == "Ungültiges Dateiformat:\n" + source ? QStringLiteral("format") : QStringLiteral("stored");
    }
};

TEST_F(IndependentConversion, EveryVariant_GivesTheSameProjectSetBySet)
{
    const QJsonArray variants = Variants();
    EXPECT_GE(variants.size(), 140);
    for (const QJsonValue& value : variants) {
        const QJsonObject variant = value.toObject();
        SCOPED_TRACE(variant["name"].toString().toStdString());
        QFile::remove(target);
        shell.boxes.clear();
        const QString outcome = Outcome(QByteArray::fromHex(variant["file"].toString().toLatin1()));
        EXPECT_EQ(outcome, variant["outcome"].toString("project"));
        if (outcome == "project")
            CompareProject(variant);
        else
            EXPECT_EQ(FilesMade(), QStringList());
        if (HasFailure())
            return; // one after the other
    }
}

} // namespace
} // namespace korvanel::test
