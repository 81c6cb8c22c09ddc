// The choice of the estimation method on the page of the run.
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/WindowFixture.h"

#include <QComboBox>

namespace korvanel::test {
namespace {

class FormF4Method : public WindowTest
{
protected:
    QComboBox& ShowWith(const MachineRecord& record, int method)
    {
        OpenInWindow(2);
        App().MachineI.record = record;
        BuildMachineModel();
        App().iCalcMethod = static_cast<qint16>(method);
        App().iCurrentPage = kPageMeasure;
        window.ShowPage();
        return Find<QComboBox>("cboEngine");
    }
    static QStringList Items(const QComboBox& box)
    {
        QStringList items;
        for (int i = 0; i < box.count(); ++i)
            items << box.itemText(i) + QStringLiteral(" = ") + box.itemData(i).toString();
        return items;
    }
};

TEST_F(FormF4Method, ListsBothMethodsOfAMachineWithRatingDataAndConnection)
{
    const QComboBox& box = ShowWith(Motor(), 1);
    EXPECT_EQ(Items(box), (QStringList{"Raumvektor (V) = 0", "Leistungsbilanz (P) = 1"}));
    EXPECT_EQ(box.currentData().toInt(), 1);
}

TEST_F(FormF4Method, ListsOnlyWhatTheMachineAllows)
{
    MachineRecord record = Motor();
    record.Schaltungsart.reset();
    EXPECT_EQ(Items(ShowWith(record, 0)), QStringList{"Leistungsbilanz (P) = 1"});
}

TEST_F(FormF4Method, ListsTheSpaceVectorAloneWithoutRatingData)
{
    MachineRecord record = NoLoadDataOnly();
    record.Schaltungsart = QStringLiteral("Y");
    EXPECT_EQ(Items(ShowWith(record, 1)), QStringList{"Raumvektor (V) = 0"});
}

} // namespace
} // namespace korvanel::test
