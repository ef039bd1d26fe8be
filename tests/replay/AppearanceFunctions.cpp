#include "tests/replay/Replay.h"

namespace diary::replay {

void addAppearanceFunctions(Table&) {}

}  // namespace diary::replay
