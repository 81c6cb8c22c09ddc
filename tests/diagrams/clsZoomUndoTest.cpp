#include "diagrams/clsZoomUndo.h"

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <random>

namespace korvanel {
namespace {

DiagramView ViewNumber(int number)
{
    return {.x1 = static_cast<double>(number), .x2 = number + 10.0, .y1 = 0, .y2 = 1};
}

void AddView(clsZoomUndo& zooms, int number)
{
    const DiagramView view = ViewNumber(number);
    zooms.Add(view.x1, view.x2, view.y1, view.y2);
}

clsZoomUndo ZoomsOf(int count)
{
    clsZoomUndo zooms;
    for (int number = 1; number <= count; ++number)
        AddView(zooms, number);
    return zooms;
}

TEST(ZoomHistory, EmptyOneGivesNothing)
{
    clsZoomUndo zooms;

    EXPECT_EQ(zooms.Undo(), std::nullopt);
    EXPECT_EQ(zooms.Redo(), std::nullopt);
    EXPECT_EQ(zooms.CurrentZoom(), std::nullopt);
    EXPECT_FALSE(zooms.HasUndo());
    EXPECT_FALSE(zooms.HasRedo());
}

TEST(ZoomHistory, FirstViewCannotBeUndone)
{
    clsZoomUndo zooms = ZoomsOf(2);

    EXPECT_EQ(zooms.Undo(), ViewNumber(1));
    EXPECT_FALSE(zooms.HasUndo());
    EXPECT_EQ(zooms.Undo(), ViewNumber(1));
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(1));
}

TEST(ZoomHistory, LastViewCannotBeRedone)
{
    clsZoomUndo zooms = ZoomsOf(2);

    EXPECT_EQ(zooms.Redo(), ViewNumber(2));
    EXPECT_FALSE(zooms.HasRedo());
}

TEST(ZoomHistory, OfElevenViewsTheLastTenRemain)
{
    clsZoomUndo zooms = ZoomsOf(11);

    EXPECT_EQ(zooms.Count(), 10);
    EXPECT_TRUE(zooms.HasUndo());
    for (int i = 0; i < 20; ++i)
        zooms.Undo();
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(2));
}

TEST(ZoomHistory, SameViewTwiceOnTheLastRecordChangesNothing)
{
    clsZoomUndo zooms = ZoomsOf(2);
    AddView(zooms, 2);

    EXPECT_EQ(zooms.Count(), 2);
    EXPECT_EQ(zooms.Undo(), ViewNumber(1));
}

TEST(ZoomHistory, ViewOfTheLastRecordInMidHistoryChangesNothing)
{
    clsZoomUndo zooms = ZoomsOf(4);
    zooms.Undo();
    zooms.Undo();
    AddView(zooms, 4);

    EXPECT_EQ(zooms.Count(), 4);
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(2));
    EXPECT_TRUE(zooms.HasRedo());
}

TEST(ZoomHistory, ViewOfTheCurrentRecordInMidHistoryIsANewOne)
{
    clsZoomUndo zooms = ZoomsOf(3);
    zooms.Undo();
    AddView(zooms, 2);

    EXPECT_EQ(zooms.Count(), 3);
    EXPECT_FALSE(zooms.HasRedo());
    EXPECT_EQ(zooms.Undo(), ViewNumber(2));
}

TEST(ZoomHistory, NewViewAfterUndoDropsWhatFollowed)
{
    clsZoomUndo zooms = ZoomsOf(3);
    zooms.Undo();
    AddView(zooms, 7);

    EXPECT_FALSE(zooms.HasRedo());
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(7));
    EXPECT_EQ(zooms.Undo(), ViewNumber(2));
}

TEST(ZoomHistory, FullOneLosesItsOldestViewEvenWhereTheTailIsCut)
{
    clsZoomUndo zooms = ZoomsOf(10);
    for (int i = 0; i < 3; ++i)
        zooms.Undo();
    AddView(zooms, 20);

    EXPECT_EQ(zooms.Count(), 7);
    for (int i = 0; i < 20; ++i)
        zooms.Undo();
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(2));
}

TEST(ZoomHistory, NewViewOnTheOldestRecordOfAFullOneIsAllThatRemains)
{
    clsZoomUndo zooms = ZoomsOf(10);
    for (int i = 0; i < 9; ++i)
        zooms.Undo();
    AddView(zooms, 20);

    EXPECT_EQ(zooms.Count(), 1);
    EXPECT_EQ(zooms.CurrentZoom(), ViewNumber(20));
    EXPECT_FALSE(zooms.HasUndo());
}

// The history written down once more in the plainest way: two piles beside the view that is shown.
struct TwoPiles
{
    std::deque<int> below;
    std::optional<int> shown;
    std::deque<int> above;

    void Add(int view)
    {
        const std::optional<int> last = above.empty() ? shown : std::optional(above.back());
        if (last == view)
            return;
        if (below.size() + above.size() + (shown ? 1 : 0) >= 10) {
            if (below.empty())
                shown.reset();
            else
                below.pop_front();
        }
        if (shown)
            below.push_back(*shown);
        above.clear();
        shown = view;
    }
    void Undo()
    {
        if (below.empty())
            return;
        above.push_front(*shown);
        shown = below.back();
        below.pop_back();
    }
    void Redo()
    {
        if (above.empty())
            return;
        below.push_back(*shown);
        shown = above.front();
        above.pop_front();
    }
};

TEST(ZoomHistory, RandomSequenceOfCallsGoesAsTwoPilesDo)
{
    std::mt19937 random(20);
    clsZoomUndo zooms;
    TwoPiles piles;
    for (int step = 0; step < 100'000; ++step) {
        const int number = static_cast<int>(random() % 6);
        std::optional<DiagramView> answer;
        switch (random() % 4) {
        case 0:
            answer = zooms.Undo();
            piles.Undo();
            break;
        case 1:
            answer = zooms.Redo();
            piles.Redo();
            break;
        default:
            AddView(zooms, number);
            piles.Add(number);
            answer = zooms.CurrentZoom();
        }
        const auto expected = piles.shown ? std::optional(ViewNumber(*piles.shown)) : std::nullopt;
        ASSERT_EQ(answer, expected) << "step " << step;
        ASSERT_EQ(zooms.CurrentZoom(), answer) << "step " << step;
        ASSERT_EQ(zooms.HasUndo(), !piles.below.empty()) << "step " << step;
        ASSERT_EQ(zooms.HasRedo(), !piles.above.empty()) << "step " << step;
        ASSERT_LE(zooms.Count(), 10) << "step " << step;
    }
}

} // namespace
} // namespace korvanel
