// The table of the columns: names, types and units, and what values of a row are taken.
#include "motors/MotorColumns.h"

#include "support/MotorDbFixture.h"

#include <limits>
#include <random>

namespace korvanel::test {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

class MotorColumnsTest : public BlockTest
{
protected:
    MotorColumnsTest() : db(TableDb::Create(PathOf("x.MDB"), kMotorApplicationId, kMotorSchemaVersion))
    {
        db.Execute(CreateMotorStatement());
    }
    static const MotorColumn& Column(const std::string& name)
    {
        for (const MotorColumn& column : MotorColumns())
            if (name == column.name)
                return column;
        throw std::runtime_error("no column " + name);
    }
    QString Text(const QString& sql)
    {
        SQLite::Statement query(db.Handle(), sql.toStdString());
        EXPECT_TRUE(query.executeStep());
        return QString::fromStdString(query.getColumn(0).getString());
    }
    /// Takes the value of an SQL expression into a column's member.
    bool Take(const char* expression, const char* column)
    {
        SQLite::Statement query(db.Handle(), std::string("SELECT ") + expression);
        EXPECT_TRUE(query.executeStep());
        return TakeValue(query.getColumn(0), Column(column), record);
    }

    TableDb db;
    MachineRecord record;
};

TEST_F(MotorColumnsTest, Table_HasTheColumnsInTheirOrder)
{
    EXPECT_EQ(Text("SELECT group_concat(name || ' ' || type, ',') FROM pragma_table_info('Motor')"),
              "set_ID INTEGER,Hersteller TEXT,Polpaarzahl INTEGER,Pmech REAL,U REAL,M REAL,n REAL,I REAL,f REAL,"
              "cosphi REAL,eta REAL,Po REAL,Uo REAL,Io REAL,fo REAL,Schaltungsart TEXT,Rs REAL,Mkipp_Mn REAL,Tth REAL,"
              "I_CL TEXT,Masse REAL,Mreib INTEGER");
}

TEST_F(MotorColumnsTest, Table_AllowsNullsInAllButKeyPolePairsAndFriction)
{
    EXPECT_EQ(Text("SELECT group_concat(name, ',') FROM pragma_table_info('Motor') WHERE [notnull] OR pk"),
              "set_ID,Polpaarzahl,Mreib");
}

TEST_F(MotorColumnsTest, Take_ConvertsKilowattsAndMinutes)
{
    EXPECT_TRUE(Take("18.5", "Pmech"));
    EXPECT_TRUE(Take("0.65", "Po"));
    EXPECT_TRUE(Take("30", "Tth"));
    EXPECT_TRUE(Take("400", "U"));
    EXPECT_EQ(record.Pmech, 18500);
    EXPECT_EQ(record.Po, 650);
    EXPECT_EQ(record.Tth, 1800);
    EXPECT_EQ(record.U, 400);
}

TEST_F(MotorColumnsTest, Take_OfANullLeavesTheValueUnknown)
{
    for (const MotorColumn& column : MotorColumns())
        EXPECT_TRUE(Take("NULL", column.name)) << column.name;
    EXPECT_FALSE(record.set_ID || record.Pmech || record.Schaltungsart || record.I_CL || record.Masse);
    EXPECT_EQ(record.Polpaarzahl, 0);
    EXPECT_EQ(record.Hersteller, "");
    EXPECT_FALSE(record.Mreib);
}

TEST_F(MotorColumnsTest, Take_OfAnEmptyConnectionOrClassIsUnknown)
{
    EXPECT_TRUE(Take("''", "Schaltungsart"));
    EXPECT_TRUE(Take("''", "I_CL"));
    EXPECT_FALSE(record.Schaltungsart);
    EXPECT_FALSE(record.I_CL);
}

TEST_F(MotorColumnsTest, Take_OfAnyNumberButZeroIsTrue)
{
    for (const char* truth : {"1", "-1", "2"}) {
        record.Mreib = false;
        EXPECT_TRUE(Take(truth, "Mreib"));
        EXPECT_TRUE(record.Mreib) << truth;
    }
    EXPECT_TRUE(Take("0", "Mreib"));
    EXPECT_FALSE(record.Mreib);
}

TEST_F(MotorColumnsTest, Take_RefusesWhatDoesNotFit)
{
    struct Wrong
    {
        const char* column;
        const char* value;
    };
    constexpr Wrong kWrong[] = {
        {"U", "'400'"},
        {"U", "x'00ff'"},
        {"U", "9e999"},
        {"U", "-9e999"},
        {"Pmech", "1e306"}, // not finite in watts
        {"Polpaarzahl", "2.5"},
        {"Polpaarzahl", "32768"},
        {"Polpaarzahl", "'2'"},
        {"set_ID", "2147483648"},
        {"set_ID", "'1'"},
        {"Mreib", "'True'"},
        {"Hersteller", "7"},
        {"Hersteller", "x'00'"},
        {"Hersteller", "hex(zeroblob(20000))"},
        {"Schaltungsart", "1"},
        {"I_CL", "hex(zeroblob(20000))"},
    };
    const MachineRecord former = record = KnownMachine();
    for (const Wrong& wrong : kWrong)
        EXPECT_FALSE(Take(wrong.value, wrong.column)) << wrong.column << ' ' << wrong.value;
    EXPECT_EQ(record.U, former.U);
    EXPECT_EQ(record.Pmech, former.Pmech);
    EXPECT_EQ(record.Polpaarzahl, former.Polpaarzahl);
    EXPECT_EQ(record.Hersteller, former.Hersteller);
}

TEST_F(MotorColumnsTest, Bind_RefusesNumbersThatAreNotFinite)
{
    SQLite::Statement row(db.Handle(), "SELECT ?");
    for (const double number : {kInfinity, -kInfinity, std::numeric_limits<double>::quiet_NaN()}) {
        record.Pmech = number;
        EXPECT_THROW(BindValue(row, 1, Column("Pmech"), record), DbError);
        EXPECT_THROW(BindComparison(db, row, 1, Column("Pmech"), record), DbError);
    }
}

TEST_F(MotorColumnsTest, Bind_OfAnEmptyConnectionIsNull)
{
    record.Schaltungsart = QString();
    SQLite::Statement row(db.Handle(), "SELECT typeof(?), typeof(?)");
    BindValue(row, 1, Column("Schaltungsart"), record);
    BindValue(row, 2, Column("Hersteller"), record); // an empty remark is one
    ASSERT_TRUE(row.executeStep());
    EXPECT_STREQ(row.getColumn(0).getText(), "null");
    EXPECT_STREQ(row.getColumn(1).getText(), "text");
}

TEST_F(MotorColumnsTest, Comparison_FindsAgainWhatWasReadWrittenAndRead)
{
    std::mt19937 random(20260314);
    std::uniform_real_distribution<double> anyPower(0.001, 1000);
    for (const char* name : {"Pmech", "Po", "Tth"}) {
        SQLite::Statement query(db.Handle(), std::string("SELECT ") + ComparisonOf(db, Column(name)) +
                                                 " FROM (SELECT ? AS " + name + ")");
        for (int i = 0; i < 20000; ++i) {
            const double stored = anyPower(random);
            const double inRecord = stored * Column(name).factor;
            const double copied = inRecord / Column(name).factor; // into a project
            MachineRecord again;
            again.*std::get<std::optional<double> MachineRecord::*>(Column(name).member) = copied * Column(name).factor;
            query.reset();
            const int next = BindComparison(db, query, 1, Column(name), again);
            query.bind(next, stored);
            ASSERT_TRUE(query.executeStep());
            ASSERT_EQ(query.getColumn(0).getInt(), 1) << name << ' ' << stored;
        }
    }
}

// A table from before a column came.

constexpr MotorColumn kLater{.name = "Jahr", .member = &MachineRecord::Masse, .factor = 12, .since = 2};

TEST_F(MotorColumnsTest, ALaterColumn_ReadsAsNotKnownWhereTheTableLacksIt)
{
    EXPECT_EQ(MotorReadNames(db, std::span(&kLater, 1)), "NULL");
    EXPECT_EQ(MotorReadNames(db, MotorColumns()), MotorColumnNames(MotorColumns()))
        << "what was always there is missed";
    AddLaterMotorColumns(db, std::span(&kLater, 1));
    EXPECT_EQ(MotorReadNames(db, std::span(&kLater, 1)), "[Jahr]");
    AddLaterMotorColumns(db, std::span(&kLater, 1)); // it is there already
    EXPECT_EQ(Text("SELECT type FROM pragma_table_info('Motor') WHERE name='Jahr'"), "REAL");
}

TEST_F(MotorColumnsTest, ALaterColumn_MakesNoDuplicateWhereTheTableLacksIt)
{
    MachineRecord machine = KnownMachine();
    const auto isFound = [&] {
        SQLite::Statement query(db.Handle(), "SELECT " + ComparisonOf(db, kLater) + " FROM Motor");
        EXPECT_EQ(BindComparison(db, query, 1, kLater, machine), query.getBindParameterCount() + 1);
        return query.executeStep() && query.getColumn(0).getInt() == 1;
    };
    WriteMachine(db, machine, true);
    EXPECT_FALSE(isFound());
    AddLaterMotorColumns(db, std::span(&kLater, 1));
    db.Execute(QStringLiteral("UPDATE Motor SET Jahr=%1").arg(*machine.Masse / 12));
    EXPECT_TRUE(isFound());
}

} // namespace
} // namespace korvanel::test
