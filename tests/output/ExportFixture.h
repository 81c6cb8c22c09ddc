// A project of its own, settings of its own, and the lines of an exported file.
#pragma once

#include "core/clsProgSettings.h"
#include "output/Export.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <cstdlib>
#include <iterator>
#include <optional>

namespace korvanel::test {

class ExportFixture : public ProjectTest
{
protected:
    static constexpr const char* kMark = "\xEF\xBB\xBF";
    static constexpr qsizetype kMarkLength = 3;

    ExportFixture() : settings(folder.path()) { App().ProgSettings = &settings; }

    /// Lines of the file that an export makes, without the byte order mark.
    QStringList Export(const QString& name = QStringLiteral("test.xls"))
    {
        ExportEvaluation(PathOf(name));
        return LinesOf(name);
    }
    QStringList LinesOf(const QString& name) const
    {
        const QByteArray content = ContentOf(name);
        EXPECT_TRUE(content.startsWith(kMark));
        EXPECT_TRUE(content.endsWith('\n'));
        return QString::fromUtf8(content.mid(kMarkLength)).chopped(1).split(u'\n');
    }
    /// Fields of a line each of whose fields ends in a tab.
    static QStringList Fields(const QString& line)
    {
        EXPECT_TRUE(line.endsWith(u'\t')) << line.toStdString();
        return line.chopped(1).split(u'\t');
    }
    /// The number of a field with the decimal comma, read by the C library; nothing if there is more than a number.
    static std::optional<double> Number(QString field)
    {
        const std::string text = field.replace(u',', u'.').toStdString();
        char* end = nullptr;
        const double value = std::strtod(text.c_str(), &end);
        return text.empty() || *end != 0 ? std::nullopt : std::optional(value);
    }
    /// A set each of whose quantities has a value of its own, with all the digits that a double has.
    static tValueRow FullRow(int set)
    {
        tValueRow row;
        row.dU[kSum] = 400.0 + set / 3.0;
        row.dI[kSum] = 0.1 + 0.2 * set;
        row.df = 49.987654321;
        row.dP[kSum] = -20450.123456789 * set;
        row.dQ[kSum] = 1234.5 / 7;
        row.dS[kSum] = 1e15 / 3;
        row.dPhi[kSum] = -31.4159265358979;
        row.dCosPhi[kSum] = 1e-7 * set;
        row.dn = 1462.5;
        row.dM = 120.79641 / set;
        row.dPmech = 18500.1;
        row.deta = 0.904;
        row.dWp = 123456.789 * set;
        row.dWpPlus = 123456.789;
        row.dWpMinus = -0.1;
        row.dWq = 5e20;
        row.dt = 3599 + set;
        row.sMethod = set % 2 == 0 ? QStringLiteral("V") : QStringLiteral("P");
        return row;
    }
    void MakeRecording(int netConf, int sets)
    {
        QFile::remove(PathOf("test.MDB"));
        CreateProject(netConf);
        App().MachineI.record = MotorWithNoLoadData();
        rows.clear();
        for (int set = 1; set <= sets; ++set)
            rows.push_back(FullRow(set));
        StoreRows(rows);
    }

    std::vector<tValueRow> rows;
    clsProgSettings settings;
};

} // namespace korvanel::test
