#include "DiaryApp/Appearance/Motion.h"

namespace velmar::motion {

namespace {
bool g_isReduced = false;
}  // namespace

bool isReduced() {
    return g_isReduced;
}

void setReduced(bool reduced) {
    g_isReduced = reduced;
}

int duration(int milliseconds) {
    return g_isReduced ? 0 : milliseconds;
}

}  // namespace velmar::motion
