// The sentences with which the application tells what became of a text: what it kept, what it
// couldn't save, and what it merged.
#pragma once

#include <QtCore/QString>

#include "DiaryKit/Files/KeptTexts.h"
#include "DiaryKit/Foundation/FileError.h"

namespace velmar::notices {

// Stands in the diary between two texts of one year that were merged.
[[nodiscard]] QString conflictMarker();
// The same line in every language of the interface.
[[nodiscard]] QStringList conflictMarkers();
// After a merge of conflict versions.
[[nodiscard]] QString mergedRemote();
// A draft can be neither saved nor kept, so the day stays open. `day` is "11-21".
[[nodiscard]] QString cannotLeave(const QString& day);

// After a text was kept. `day` is "11-21"; the year is shown with it where it is known.
[[nodiscard]] QString kept(diary::KeptReason reason, const QString& day, std::optional<int> year);

// On opening a day for which an unsaved draft is kept, with the link behind it.
[[nodiscard]] QString keptDraftOffer(const QString& day, std::optional<int> year);
[[nodiscard]] QString putBack();

// The alert after a save has failed. `fileName` is "11-21.md".
[[nodiscard]] QString saveFailedTitle(const QString& fileName);
// The cause in plain words, and that nothing is lost; two paragraphs, parted by a line feed.
[[nodiscard]] QString saveFailedText(const diary::FileError& error);

// The right half of the status bar.
[[nodiscard]] QString viewing(int year, int characters);

}  // namespace velmar::notices
