#include "DiaryApp/Chrome/Notices.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "DiaryApp/Settings/Localization.h"

namespace velmar {
namespace {

class NoticesTest : public testing::Test {
protected:
    NoticesTest() { localization::install(Language::en); }
};

QString cause(int code) {
    const diary::FileError error(diary::FileOperation::Write, QStringLiteral("/vault/x.md"), code);
    return notices::saveFailedText(error).section(QLatin1Char('\n'), 0, 0);
}

TEST_F(NoticesTest, TellsWhyASaveFailed) {
    EXPECT_EQ(cause(ENOSPC), QStringLiteral("The disk is full."));
    EXPECT_EQ(cause(EDQUOT), cause(ENOSPC));
    EXPECT_EQ(cause(EACCES),
              QStringLiteral("You have no permission to write in the diary’s folder."));
    EXPECT_EQ(cause(EPERM), cause(EACCES));
    EXPECT_EQ(cause(EROFS),
              QStringLiteral("The diary’s folder is on a disk that can only be read."));
    EXPECT_EQ(cause(ENOENT), QStringLiteral("The diary’s folder is not there."));
    EXPECT_EQ(cause(EIO), QStringLiteral("The system reports: Input/output error"));
}

TEST_F(NoticesTest, SaysThatNothingIsLost) {
    const diary::FileError error(diary::FileOperation::Write, QStringLiteral("/x"), ENOSPC);
    EXPECT_TRUE(notices::saveFailedText(error)
                    .section(QLatin1Char('\n'), 1)
                    .startsWith(QStringLiteral("Nothing you wrote is lost.")));
}

TEST_F(NoticesTest, NamesTheDayAndYearOfWhatWasKept) {
    using diary::KeptReason;
    const QString day = QStringLiteral("11-21");
    EXPECT_EQ(notices::kept(KeptReason::Overwritten, day, 2026),
              QStringLiteral("What another device wrote for 11-21 2026 was kept before it was "
                             "overwritten"));
    EXPECT_TRUE(notices::kept(KeptReason::Undecodable, day, std::nullopt)
                    .startsWith(QStringLiteral("11-21.md ")));
    EXPECT_TRUE(
        notices::kept(KeptReason::UnsavedDraft, day, 2026).contains(QStringLiteral("11-21 2026")));
    EXPECT_TRUE(notices::kept(KeptReason::UnsavedMerge, day, std::nullopt)
                    .contains(QStringLiteral("11-21.md")));
    EXPECT_TRUE(notices::keptDraftOffer(day, 2026).contains(QStringLiteral("11-21 2026")));
    EXPECT_EQ(notices::putBack(), QStringLiteral("Put it back"));
}

TEST_F(NoticesTest, TheMarkerIsOneLine) {
    for (const Language language : {Language::en, Language::zhHans, Language::ja}) {
        localization::install(language);
        EXPECT_FALSE(notices::conflictMarker().isEmpty());
        EXPECT_FALSE(notices::conflictMarker().contains(QLatin1Char('\n')));
        EXPECT_FALSE(notices::conflictMarker().startsWith(QLatin1Char('#')));
        EXPECT_FALSE(notices::conflictMarker().startsWith(QStringLiteral("---")));
    }
    localization::install(Language::en);
}

TEST_F(NoticesTest, CountsTheCharactersInView) {
    EXPECT_EQ(notices::viewing(2026, 407), QStringLiteral("Viewing ## 2026 · 407 chars"));
    EXPECT_EQ(notices::viewing(2026, 1), QStringLiteral("Viewing ## 2026 · 1 char"));
}

}  // namespace
}  // namespace velmar
