#include "motors/FormH8.h"

#include "machine/Algorithms_ASM_Start.h"
#include "motors/ModelListing.h"
#include "support/Machines.h"
#include "support/WindowFixture.h"

#include <QListWidget>
#include <QPushButton>

namespace korvanel::test {
namespace {

class FormH8Test : public WindowTest
{
};

TEST_F(FormH8Test, ListsTheModelOfTheMeasuredMachine)
{
    App().MachineI.record = MotorWithNoLoadData();
    BuildMachineModel();
    FormH8 info(&window, MachineInfo::MachineI);
    EXPECT_EQ(info.windowTitle(), "Motor/Generator Info");
    const auto* list = info.findChild<QListWidget*>(QStringLiteral("lstInfo"));
    ASSERT_NE(list, nullptr);
    QStringList lines;
    for (int i = 0; i < list->count(); ++i)
        lines << list->item(i)->text();
    EXPECT_EQ(lines, ModelListing(App().MachineI.status, App().MachineI.model));
    EXPECT_TRUE(lines.contains("n syn n = 1500 rpm"));
}

TEST_F(FormH8Test, IsLeftByItsButton)
{
    FormH8 info(&window, MachineInfo::MachineI);
    info.show();
    info.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    EXPECT_FALSE(info.isVisible());
}

} // namespace
} // namespace korvanel::test
