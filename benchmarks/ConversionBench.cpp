// A million sets of an old file into a new project, against a bare loop: the same inserts with numbers as they come, in
// one transaction.
#include "Conversion.h"
#include "CopiedProject.h"
#include "Recording.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "language/OldProjectConversion.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>
#include <QtEndian>

#include <bit>
#include <cmath>
#include <cstdlib>

namespace korvanel::bench {

namespace {

constexpr quint32 kPhaseFlag = 1U << 14U;

void WriteNumber(QByteArray& out, quint32 number)
{
    char bytes[sizeof(number)];
    qToLittleEndian(number, bytes);
    out.append(bytes, sizeof(bytes));
}

/// An old file of three phases, with so many sets of 20 bytes.
void WriteOldFile(const QString& path, int sets)
{
    constexpr int kRecordSize = 20;
    constexpr int kChunkHead = 8;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    QByteArray block("FORMKVLS");
    WriteNumber(block, static_cast<quint32>(2 * kChunkHead + 4 + kRecordSize * sets));
    block += "F201";
    WriteNumber(block, 4);
    WriteNumber(block, kPhaseFlag);
    block += "BODY";
    WriteNumber(block, static_cast<quint32>(kRecordSize * sets));
    for (int set = 0; set < sets; ++set) {
        const double load = 0.6 + 0.4 * std::sin(set * 0.01);
        for (const double value : {400 - 2 * load, 32.85 * load, 50.0, 20450 * load, static_cast<double>(set)})
            WriteNumber(block, std::bit_cast<quint32>(static_cast<float>(value)));
        constexpr qsizetype kBlock = 1 << 16;
        if (block.size() > kBlock || set + 1 == sets) {
            file.write(block);
            block.clear();
        }
    }
    file.write(block);
}

const QString& OldFileOf(int sets)
{
    static const QString path = [sets] {
        const QString name = ScratchPath(QStringLiteral("old.KVL"));
        WriteOldFile(name, sets);
        return name;
    }();
    return path;
}

void InsertBare(BareDatabase& db)
{
    constexpr int kSampledNumbers = 5;
    constexpr int kComputedNumbers = 7;
    sqlite3_stmt* sampled =
        db.Prepare("INSERT INTO SampledValues ([Set], [U sum], [I sum], [f sum], [P sum], [phi sum], "
                   "[t], [Edit]) VALUES (?,?,?,?,?,?,?,?)");
    sqlite3_stmt* computed =
        db.Prepare("INSERT INTO ComputedValues ([Set], [Q sum], [S sum], [cosphi sum], [Wp], [Wp+], "
                   "[Wp-], [Wq]) VALUES (?,?,?,?,?,?,?,?)");
    const auto insert = [](sqlite3_stmt* statement) {
        if (sqlite3_step(statement) != SQLITE_DONE)
            std::abort();
        sqlite3_reset(statement);
    };
    for (int set = 1; set <= Sets(); ++set) {
        int position = 0;
        sqlite3_bind_int(sampled, ++position, set);
        for (int i = 0; i < kSampledNumbers; ++i)
            sqlite3_bind_double(sampled, ++position, set + 0.5 * i + 0.1);
        sqlite3_bind_int(sampled, ++position, set - 1);
        sqlite3_bind_int(sampled, ++position, 255);
        insert(sampled);
        position = 0;
        sqlite3_bind_int(computed, ++position, set);
        for (int i = 0; i < kComputedNumbers; ++i)
            sqlite3_bind_double(computed, ++position, set + 0.5 * i + 0.1);
        insert(computed);
    }
}

void Convert_Bare(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = ScratchPath(QStringLiteral("bare.MDB"));
        CreateProject(path, kNetThreePhase);
        state.ResumeTiming();
        {
            BareDatabase db(path);
            db.Execute("BEGIN IMMEDIATE");
            InsertBare(db);
            db.Execute("COMMIT");
        }
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
}

void Convert_Program(benchmark::State& state)
{
    const QString source = OldFileOf(Sets());
    const QString target = ScratchPath(QStringLiteral("converted.MDB"));
    for (auto _ : state) {
        if (!ConvertOldFile(source, target))
            state.SkipWithError("the file could not be converted");
        state.PauseTiming();
        QFile::remove(target);
        state.ResumeTiming();
    }
}

BENCHMARK(Convert_Bare)->Apply(OneRunEach);
BENCHMARK(Convert_Program)->Apply(OneRunEach);

} // namespace

bool ConvertAsManySets()
{
    const QString source = ScratchPath(QStringLiteral("as-many.KVL"));
    WriteOldFile(source, App().iSetCount);
    return ConvertOldFile(source, ScratchPath(QStringLiteral("as-many.MDB")));
}

} // namespace korvanel::bench
