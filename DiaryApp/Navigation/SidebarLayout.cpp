#include "DiaryApp/Navigation/SidebarLayout.h"

#include <algorithm>
#include <cmath>

namespace velmar {

namespace {

struct Gap {
    int most;
    int least;
};

constexpr Gap kMonthGap{18, 10};
constexpr Gap kTodayGap{14, 4};
constexpr Gap kStatsGap{18, 10};
constexpr int kGridGap = 8;
// The sidebar of the smallest window, where the gaps have shrunk in full.
constexpr int kLeastHeight = 520;
constexpr int kShrinkable = (18 - 10) + (14 - 4) + (18 - 10);

int shrunk(const Gap& gap, double share) {
    return gap.most - static_cast<int>(std::lround((gap.most - gap.least) * share));
}

}  // namespace

SidebarLayout SidebarLayout::of(int height) {
    const int missing = std::clamp(kLeastHeight + kShrinkable - height, 0, kShrinkable);
    const double share = static_cast<double>(missing) / kShrinkable;
    SidebarLayout layout;
    layout.month = searchTop + searchHeight + shrunk(kMonthGap, share);
    layout.grid = layout.month + monthHeight + kGridGap;
    layout.today = layout.grid + gridHeight + shrunk(kTodayGap, share);
    layout.stats = layout.today + todayHeight + shrunk(kStatsGap, share);
    layout.foot = height - footHeight;
    return layout;
}

}  // namespace velmar
