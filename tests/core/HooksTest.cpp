// What lower rooms ask of higher ones, with and without somebody who answers.
#include "core/Hooks.h"

#include "support/Fixture.h"

#include <stdexcept>
#include <utility>

namespace korvanel::test {

namespace {

class HooksTest : public BlockTest
{
};

/// Every hook with what is returned where nobody answers.
constexpr std::pair<Hook, bool> kHookDefaults[] = {
    {Hook::SaveIfDirty, true},  {Hook::CloseProject, true},     {Hook::LoadMachines, true},
    {Hook::CopyMachines, true}, {Hook::AllowMachinePage, true}, {Hook::ExportEvaluation, false},
};

} // namespace

TEST_F(HooksTest, FreshBlock_HasNone)
{
    for (const auto& [hook, unused] : kHookDefaults)
        SetHook(hook, [] { return true; });
    App() = ApplicationBlock();
    for (const auto& [hook, unused] : kHookDefaults)
        EXPECT_FALSE(HasHook(hook)) << static_cast<int>(hook);
}

TEST_F(HooksTest, StartUp_LeavesThem)
{
    SetHook(Hook::CloseProject, [] { return false; });
    InitialiseApplicationBlock(folder.path());
    EXPECT_FALSE(CallHook(Hook::CloseProject));
}

TEST_F(HooksTest, Call_WithoutAnAnswerGivesTheDefaultOfTheHook)
{
    for (const auto& [hook, expected] : kHookDefaults) {
        EXPECT_EQ(CallHook(hook), expected) << static_cast<int>(hook);
        EXPECT_FALSE(HasHook(hook)) << "asking sets none";
    }
}

TEST_F(HooksTest, Call_ReturnsTheAnswerEachTime)
{
    for (const auto& [hook, unused] : kHookDefaults) {
        int calls = 0;
        SetHook(hook, [&calls] { return ++calls % 2 == 0; });
        EXPECT_TRUE(HasHook(hook));
        EXPECT_FALSE(CallHook(hook)) << static_cast<int>(hook);
        EXPECT_TRUE(CallHook(hook)) << static_cast<int>(hook);
        EXPECT_EQ(calls, 2);
    }
}

TEST_F(HooksTest, Call_ReachesItsOwnHookOnly)
{
    SetHook(Hook::LoadMachines, [] { return false; });
    EXPECT_TRUE(CallHook(Hook::CopyMachines));
    EXPECT_FALSE(CallHook(Hook::LoadMachines));
}

TEST_F(HooksTest, Call_LetsThroughWhatTheAnswerThrows)
{
    SetHook(Hook::LoadMachines, []() -> bool { throw std::runtime_error("no table"); });
    EXPECT_THROW(CallHook(Hook::LoadMachines), std::runtime_error);
}

TEST_F(HooksTest, Set_ASecondTimeReplacesTheFirst)
{
    int first = 0;
    SetHook(Hook::CloseProject, Done([&first] { ++first; }));
    SetHook(Hook::CloseProject, [] { return false; });
    EXPECT_FALSE(CallHook(Hook::CloseProject));
    EXPECT_EQ(first, 0);
}

TEST_F(HooksTest, Set_ToNothingTakesTheAnswerAway)
{
    SetHook(Hook::CloseProject, [] { return false; });
    SetHook(Hook::CloseProject, {});
    EXPECT_FALSE(HasHook(Hook::CloseProject));
    EXPECT_TRUE(CallHook(Hook::CloseProject));
}

TEST_F(HooksTest, Done_IsTrueWhenTheRoutineHasRun)
{
    int runs = 0;
    SetHook(Hook::ExportEvaluation, Done([&runs] { ++runs; }));
    EXPECT_EQ(runs, 0);
    EXPECT_TRUE(CallHook(Hook::ExportEvaluation));
    EXPECT_EQ(runs, 1);
}

} // namespace korvanel::test
