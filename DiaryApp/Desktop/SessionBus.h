// The connection to the desktop's session bus, which all of Qt in this process shares.
#pragma once

namespace velmar::sessionbus {

// Connects in the background; returns at once. The first to need the bus, which is Qt itself as
// soon as a widget gets its accessible name, waits only for what is left of that.
void warmUp();

}  // namespace velmar::sessionbus
