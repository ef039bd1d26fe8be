// Recorded stories that aren't followed to the letter, and what must hold in them instead.
#pragma once

#include <QtCore/QJsonObject>

namespace velmar_replay {

// Why a recorded story and ours part.
enum class Departure {
    None,
    // It reports entries as written in years that a day file has no header for.
    HeaderlessYears,
    // It writes an addition that leaves a fence open and swallows the years behind it.
    OpenFence
};

[[nodiscard]] Departure departure(const QJsonObject& recordedStory);

// The story without what belongs to years that have no header: additions, the headers that nothing
// stands below, and the numbers that count or digest them. Two such stories can be compared.
[[nodiscard]] QJsonObject withoutHeaderlessYears(const QJsonObject& story);

// The story up to its first step with an open fence, and that step's plan with the fence closed.
[[nodiscard]] QJsonObject upToOpenFence(const QJsonObject& story, const QJsonObject& recordedStory);

}  // namespace velmar_replay
