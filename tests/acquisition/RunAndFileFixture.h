// The fixture of a run and the file that it writes.
#pragma once

#include "acquisition/RunFixture.h"

namespace korvanel::test {

class RunAndFile : public RunTest
{
protected:
    /// Another program on the same file.
    SQLite::Database Other(int patienceMs = 0) const
    {
        return {App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE, patienceMs};
    }
    /// Reads the file and keeps it in use until it goes.
    class Reader
    {
    public:
        explicit Reader(const QString& path)
            : database(path.toStdString(), SQLite::OPEN_READONLY), query(database, "SELECT * FROM SampledValues")
        {
            database.exec("BEGIN");
            query.executeStep();
        }

    private:
        SQLite::Database database;
        SQLite::Statement query;
    };
    QString Heading(const char* key) const
    {
        const QString column =
            QLatin1String(key).contains(QLatin1String("Begin")) || QLatin1String(key).contains(QLatin1String("End"))
                ? "Time"
                : "Text";
        return Query("SELECT [" + column + "] FROM Overview WHERE Name='Measurement " + key + "'");
    }
    QString Interval() const { return Query("SELECT Decimal FROM Overview WHERE Name='Measurement Interval'"); }
};

} // namespace korvanel::test
