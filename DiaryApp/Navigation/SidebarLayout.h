// Where the parts of the sidebar stand for a window's height. Pure geometry.
#pragma once

namespace velmar {

struct SidebarLayout {
    // Tops of the parts, in pixels from the sidebar's own top.
    int month = 0;
    int grid = 0;
    int today = 0;
    int stats = 0;
    int foot = 0;

    static constexpr int sidebarWidth = 268;
    static constexpr int left = 20;
    static constexpr int contentWidth = 228;
    static constexpr int searchTop = 14;
    static constexpr int searchHeight = 32;
    static constexpr int monthHeight = 32;
    static constexpr int gridHeight = 217;
    static constexpr int todayHeight = 36;
    static constexpr int statsHeight = 81;
    static constexpr int footHeight = 44;

    // In a low window the gaps above month, today button and facts shrink from 18, 14 and 18 to 10,
    // 4 and 10, by as much as it takes.
    [[nodiscard]] static SidebarLayout of(int height);

    bool operator==(const SidebarLayout&) const = default;
};

}  // namespace velmar
