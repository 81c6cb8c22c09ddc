// The pages of reports of all net configurations, read from the file that comes out.
#include "output/ReportFixture.h"

namespace korvanel::test {
namespace {

class ReportPages : public ReportTest
{
};

TEST_F(ReportPages, EveryNetConfiguration_HasItsSections)
{
    for (int netConf = 0; netConf < kNetConfCount - 1; ++netConf) {
        OpenReportProject(netConf, 60);
        if (HasMachine(netConf))
            TakeSecondMachine();
        const PdfDocument report = PrintedReport(QStringLiteral("bericht-%1.pdf").arg(netConf));
        EXPECT_GE(report.pages.size(), 6U);
        window.UnloadPage();
        App().bASMSim = false;
        QFile::remove(App().sProjectPath);
    }
}

} // namespace
} // namespace korvanel::test
