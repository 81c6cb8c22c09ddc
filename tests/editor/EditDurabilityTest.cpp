// An operation of the editor happens as a whole or not at all, also when the program is killed in the middle of it.
#include "support/KilledOperation.h"
#include "support/TestPaths.h"

namespace korvanel::test {
namespace {

struct Operation
{
    const char* name;
    int setsMore; ///< than before
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

class EditDurability : public KilledOperation, public ::testing::WithParamInterface<Operation>
{
protected:
    QString Program() const override { return QStringLiteral(KORVANEL_ROW_OPERATION); }
    QStringList Arguments() const override { return {QLatin1String(GetParam().name)}; }
};

TEST_P(EditDurability, AKilledOperationLeavesTheRowsBeforeOrTheRowsAfter)
{
    MakeRecording();
    KeepOriginal();
    if (HasFatalFailure())
        return;
    std::array<QByteArray, 3> states;
    states[0] = Digest();
    RunUndisturbed();
    states[1] = Digest();
    ASSERT_NE(states[0], states[1]);
    ASSERT_EQ(Query("SELECT count(*) FROM ComputedValues").toInt(), kSets + GetParam().setsMore);
    RunUndisturbed();
    states[2] = Digest();
    if (HasFatalFailure())
        return;
    KillAgainAndAgain(GetParam().name, states);
}

INSTANTIATE_TEST_SUITE_P(Operations, EditDurability,
                         ::testing::Values(Operation{"duplicate", 37}, Operation{"delete", -37},
                                           Operation{"resample", 19'999}, Operation{"recompute", 0}),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace korvanel::test
