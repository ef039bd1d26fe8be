// Whether the interface may move. Animations ask here for how long they take, so that a desktop
// that asks for stillness gets it everywhere. Main thread only.
#pragma once

namespace velmar::motion {

// False until the desktop says otherwise.
[[nodiscard]] bool isReduced();

// Counts from the next animation on; what moves already ends by itself.
void setReduced(bool reduced);

// The time for an animation that takes this many milliseconds: none while motion is reduced.
[[nodiscard]] int duration(int milliseconds);

}  // namespace velmar::motion
