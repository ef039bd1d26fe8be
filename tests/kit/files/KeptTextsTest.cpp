#include "DiaryKit/Files/KeptTexts.h"

#include <sys/stat.h>

#include <QtCore/QTemporaryDir>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

class KeptTextsTest : public testing::Test {
protected:
    KeptTextsTest() : m_texts(m_vault.path(), {base(1), base(2)}) {}

    [[nodiscard]] QString base(int number) const {
        return m_folder.filePath(QStringLiteral("base %1").arg(number));
    }

    static QDateTime moment(int second) { return {{2026, 3, 7}, {18, 15, second, 120}, Qt::UTC}; }

    [[nodiscard]] KeptText keep(const char* bytes, int second = 30,
                                std::optional<int> year = 2024) const {
        return m_texts.keep(QStringLiteral("03-07"), year, KeptReason::UnsavedDraft, bytes,
                            moment(second));
    }

    [[nodiscard]] std::vector<KeptText> drafts() const {
        return m_texts.list(QStringLiteral("03-07"), KeptReason::UnsavedDraft);
    }

    // In the place of a folder, since permissions don't bind the superuser.
    void putFileInPlaceOf(const QString& path) const {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QTemporaryDir m_folder;
    test::TemporaryVault m_vault;
    KeptTexts m_texts;
};

TEST_F(KeptTextsTest, AreFilesNamedByMomentYearAndReason) {
    const KeptText text = keep("words");
    EXPECT_EQ(text.path,
              m_texts.folder() + QStringLiteral("/03-07/20260307-181530120 2024 draft.md"));
    EXPECT_EQ(atomicfile::read(text.path), "words");
    EXPECT_EQ(text.year, 2024);
    EXPECT_EQ(text.moment, moment(30));
    EXPECT_EQ(drafts(), std::vector{text});
}

TEST_F(KeptTextsTest, OfOneVaultLieInAFolderNamedAfterIt) {
    EXPECT_TRUE(m_texts.folder().startsWith(base(1) + QStringLiteral("/kept/my väult-")));
    EXPECT_EQ(m_texts.folder().section(QLatin1Char('-'), -1).size(), 12);
    EXPECT_EQ(KeptTexts(m_vault.path() + QLatin1Char('/'), {base(1)}).folder(), m_texts.folder());
    EXPECT_NE(KeptTexts(m_vault.filePath(QStringLiteral("my väult")), {base(1)}).folder(),
              m_texts.folder());
}

TEST_F(KeptTextsTest, AreForThisUserAlone) {
    const KeptText text = keep("words");
    struct stat status {};
    ASSERT_EQ(::stat(QFile::encodeName(text.path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    for (QString path = text.path.section(QLatin1Char('/'), 0, -2); path.size() >= base(1).size();
         path = path.section(QLatin1Char('/'), 0, -2)) {
        ASSERT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777U, 0700U) << path.toStdString();
    }
}

TEST_F(KeptTextsTest, KeepTheReasonAndWholeFiles) {
    const QString day = QStringLiteral("03-07");
    for (const KeptReason reason : {KeptReason::Overwritten, KeptReason::Undecodable,
                                    KeptReason::UnsavedDraft, KeptReason::UnsavedMerge}) {
        const KeptText text = m_texts.keep(day, std::nullopt, reason, "\xFF", moment(1));
        EXPECT_TRUE(text.path.contains(QStringLiteral(" file ")));
        EXPECT_EQ(text.year, std::nullopt);
        EXPECT_EQ(m_texts.list(day, reason), std::vector{text});
    }
}

TEST_F(KeptTextsTest, OfOneMomentGetNumbers) {
    const KeptText first = keep("first");
    const KeptText second = keep("second");
    const KeptText third = keep("third");
    EXPECT_TRUE(second.path.endsWith(QStringLiteral(" draft-2.md")));
    EXPECT_TRUE(third.path.endsWith(QStringLiteral(" draft-3.md")));
    EXPECT_EQ(atomicfile::read(first.path), "first");
    EXPECT_EQ(drafts(), (std::vector{first, second, third}));
}

TEST_F(KeptTextsTest, ComeOldestFirst) {
    const KeptText later = keep("later", 50);
    const KeptText sooner = keep("sooner", 10);
    EXPECT_EQ(drafts(), (std::vector{sooner, later}));
}

TEST_F(KeptTextsTest, AreNotKeptTwiceInARow) {
    const KeptText first = keep("words", 10);
    EXPECT_EQ(keep("words", 20), first);
    const KeptText ofOtherYear = keep("words", 20, 2023);
    EXPECT_NE(ofOtherYear.path, first.path);
    const KeptText changed = keep("more words", 30);
    const KeptText back = keep("words", 40);
    EXPECT_EQ(drafts(), (std::vector{first, ofOtherYear, changed, back}));
}

TEST_F(KeptTextsTest, ThatWerePutBackAreListedNoMoreAndStay) {
    const KeptText text = keep("words");
    m_texts.markPutBack(text);
    EXPECT_TRUE(drafts().empty());
    EXPECT_EQ(atomicfile::read(text.path + QStringLiteral(".put-back")), "words");
    const KeptText again = keep("words");
    EXPECT_EQ(drafts(), std::vector{again});
    EXPECT_NE(again.path, text.path);
}

TEST_F(KeptTextsTest, GoToTheNextFolderWhereTheFirstTakesNone) {
    putFileInPlaceOf(base(1));
    const KeptText text = keep("words");
    EXPECT_TRUE(text.path.startsWith(base(2)));
    EXPECT_EQ(atomicfile::read(text.path), "words");
    EXPECT_EQ(drafts(), std::vector{text});
}

TEST_F(KeptTextsTest, OfAllFoldersAreListed) {
    const KeptText first =
        KeptTexts(m_vault.path(), {base(2)})
            .keep(QStringLiteral("03-07"), 2024, KeptReason::UnsavedDraft, "elsewhere", moment(10));
    const KeptText second = keep("here", 20);
    EXPECT_EQ(drafts(), (std::vector{first, second}));
}

TEST_F(KeptTextsTest, FailWhereNoFolderTakesThem) {
    putFileInPlaceOf(base(1));
    putFileInPlaceOf(base(2));
    EXPECT_THROW((void)keep("words"), FileError);
    EXPECT_THROW(
        (void)KeptTexts(m_vault.path(), QStringList())
            .keep(QStringLiteral("03-07"), 2024, KeptReason::UnsavedDraft, "words", moment(1)),
        FileError);
}

TEST_F(KeptTextsTest, LieInTheStateFolderByDefault) {
    const KeptText text =
        KeptTexts(m_vault.path())
            .keep(QStringLiteral("03-07"), 2024, KeptReason::Overwritten, "words", moment(1));
    EXPECT_TRUE(text.path.startsWith(qEnvironmentVariable("XDG_STATE_HOME")));
    EXPECT_TRUE(QFile::exists(text.path));
}

TEST_F(KeptTextsTest, LeaveForeignAndBegunFilesOut) {
    const KeptText text = keep("words");
    const QString folder = text.path.section(QLatin1Char('/'), 0, -2) + QLatin1Char('/');
    putFileInPlaceOf(folder + QStringLiteral("20260307-181531120 2024 draft.md"));
    for (const auto& name : {"notes.md", "20260307-181530120 2024 poem.md",
                             "20269907-181530120 2024 draft.md", "20260307 2024 draft.md"}) {
        atomicfile::write(folder + QString::fromLatin1(name), "foreign");
    }
    EXPECT_EQ(drafts(), std::vector{text});
}

}  // namespace
}  // namespace diary
