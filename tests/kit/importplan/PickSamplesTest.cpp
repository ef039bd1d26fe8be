#include <gmock/gmock.h>

#include "DiaryKit/Import/ImportPlanner.h"
#include "tests/support/Printing.h"

namespace diary::ImportPlanner {
namespace {

using testing::Contains;
using testing::SizeIs;
using Sample = ImportPlan::Sample;
using Trait = Sample::Trait;

// One section in each of the first days of January.
std::vector<Sample> samples(int count) {
    std::vector<Sample> all;
    for (int i = 0; i < count; ++i) {
        all.push_back({.monthDay = {1 + i / 28, 1 + i % 28},
                       .year = 2024,
                       .added = QStringLiteral("text %1").arg(i)});
    }
    return all;
}

std::vector<int> places(const std::vector<Sample>& picked) {
    std::vector<int> found;
    for (const Sample& one : picked) {
        found.push_back((one.monthDay.month - 1) * 28 + one.monthDay.day - 1);
    }
    return found;
}

TEST(PickSamples, GivesAFewBackAsTheyAre) {
    EXPECT_EQ(pickSamples(samples(12)), samples(12));
    EXPECT_EQ(pickSamples({}), std::vector<Sample>());
}

TEST(PickSamples, TakesTwelveOfMore) {
    const std::vector<Sample> picked = pickSamples(samples(13));
    EXPECT_THAT(picked, SizeIs(12));
    const std::vector<int> found = places(picked);
    EXPECT_EQ(std::set<int>(found.begin(), found.end()).size(), 12U);
}

TEST(PickSamples, SpreadsTheRestEvenly) {
    std::vector<Sample> all = samples(36);
    // The longest is the first as well, so all others come from the even steps.
    all[0].added = QStringLiteral("the longest text of all");
    EXPECT_THAT(places(pickSamples(all)),
                testing::ElementsAre(0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 33));
}

TEST(PickSamples, RoundsItsStepDown) {
    for (const auto& [count, second] : {std::pair(13, 1), {23, 1}, {24, 2}, {35, 2}, {36, 3}}) {
        std::vector<Sample> all = samples(count);
        all[0].added = QStringLiteral("the longest text of all");
        EXPECT_EQ(places(pickSamples(all))[1], second) << count;
    }
}

TEST(PickSamples, TakesTwoOfEachTraitFirst) {
    std::vector<Sample> all = samples(40);
    for (const int i : {30, 31, 32}) all[static_cast<size_t>(i)].traits = {Trait::headings};
    all[35].traits = {Trait::several};
    const std::vector<int> found = places(pickSamples(all));
    EXPECT_EQ(found[0], 35);
    EXPECT_EQ(found[1], 30);
    EXPECT_EQ(found[2], 31);
    EXPECT_THAT(found, testing::Not(Contains(32)));
}

TEST(PickSamples, MarksTheEarliestAndTheLongest) {
    std::vector<Sample> all = samples(20);
    all[7].year = 1999;
    all[9].year = 1999;
    // More units, but a family is one character.
    all[4].added = QStringLiteral("👨‍👩‍👧").repeated(9);
    all[11].added = QStringLiteral("ten letters");
    const std::vector<Sample> picked = pickSamples(all);
    EXPECT_EQ(places(picked)[0], 7);
    EXPECT_THAT(picked[0].traits, Contains(Trait::earliest));
    EXPECT_EQ(places(picked)[1], 11);
    EXPECT_THAT(picked[1].traits, Contains(Trait::longest));
}

TEST(PickSamples, DoesNotMarkOneThatIsTakenAlready) {
    std::vector<Sample> all = samples(20);
    all[7].year = 1999;
    all[7].traits = {Trait::several};
    const std::vector<Sample> picked = pickSamples(all);
    EXPECT_EQ(places(picked)[0], 7);
    EXPECT_THAT(picked[0].traits, testing::ElementsAre(Trait::several));
}

}  // namespace
}  // namespace diary::ImportPlanner
