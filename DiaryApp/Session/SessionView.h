// What the writing session tells the window. Each callable may be absent.
#pragma once

#include <QtCore/QString>
#include <functional>

#include "DiaryKit/Files/KeptTexts.h"
#include "DiaryKit/Foundation/FileError.h"

namespace velmar {

// What the status bar says once, for 4 seconds.
enum class SessionNotice {
    // Conflict versions were merged into the day in view.
    MergedRemote,
    // Another machine's text of the year in view was kept before the draft went over it.
    KeptOverwritten,
    // The file wasn't valid UTF-8; its bytes were kept before the first save over them.
    KeptUndecodable,
    // A draft that couldn't be saved was kept when it was left.
    KeptDraft,
    // Conflict versions were merged, but the merge couldn't be saved and was kept.
    KeptMerge,
    // A draft could be neither saved nor kept, so its day isn't left.
    CannotLeave,
};

struct SessionView {
    std::function<void()> renderTopBar;
    std::function<void()> renderSidebar;
    std::function<void()> renderEntry;
    std::function<void()> renderRail;
    std::function<void()> renderStatus;
    std::function<void()> scrollToTop;
    std::function<void()> focusEditor;
    std::function<void()> clearSearchHighlights;
    // The folder was looked at again, and the day taken in where it had changed.
    std::function<void()> remoteRefreshed;
    std::function<void(bool)> setEdited;
    std::function<void(bool)> setEditable;
    // Makes the draft in the editor another one in a step that the user can undo. May call
    // draftChanged(). Where it can't, renderEntry, which follows, shows the draft all the same.
    std::function<void(const QString&)> editDraft;
    // Takes what an input method holds into the draft, before the draft is left.
    std::function<void()> commitComposition;
    // Whether an input method holds text that isn't in the draft yet.
    std::function<bool()> isComposing;
    std::function<void(SessionNotice)> flash;
    // The first failure since the last good save. May run a modal dialog.
    std::function<void(const diary::FileError&)> showSaveError;
    // A draft of the day in view that an earlier save couldn't write.
    std::function<void(const diary::KeptText&)> offerKeptDraft;
    std::function<void()> withdrawKeptDraft;
};

}  // namespace velmar
