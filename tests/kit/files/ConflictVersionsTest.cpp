#include "DiaryKit/Files/ConflictVersions.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

std::optional<ConflictName> nameOf(const char* name, const char* fileName = "03-12.md") {
    return conflictName(text(name), text(fileName));
}

TEST(ConflictName, IsCertainWhereOnlySyncServicesWriteSuchNames) {
    for (const char* name : {
             "03-12.sync-conflict-20260818-173636-D4LGQYW.md",
             "03-12.sync-conflict-20150811-101112.md",
             "03-12 (conflicted copy 2021-06-16 143218).md",
             "03-12 (conflicted copy anna 2021-06-16 143218).md",
             "03-12 (conflicted copy anna b_c_ 2021-06-16 143218).md",
             "03-12 (case clash from anna 2021-06-16 143218).md",
             "03-12_conflict-20180220-141213.md",
             "03-12_conflict-anna-20180220-141213.md",
             "03-12 (DESKTOP-UMS014A's conflicted copy 2019-04-24).md",
             "03-12 (Anna’s conflicted copy 2019-04-24 (1)).md",
             "03-12 (Anna (home)'s conflicted copy 2019-04-24).md",
             "03-12 (conflicting copy).md",
             "03-12 (conflicting copy 2).md",
             "03-12 (Conflicted copy ThinkPad-T14-G5 202603121129).md",
             "03-12-fedora-safeBackup-0001.md",
             "03-12.md.conflict1",
             "03-12.conflict2.md",
             "03-12.md..path1",
             "03-12.md..path2",
             "03-12 (CONFLICT 20231005T070858).md",
             "03-12 (Conflict a4ab3033).md",
             "03-12[conflicted].md",
             "03-12 (conflicted).md",
         }) {
        EXPECT_EQ(nameOf(name), ConflictName::Certain) << name;
    }
}

TEST(ConflictName, IsPossibleWhereTheUserMayHaveWrittenIt) {
    for (const char* name : {
             "03-12 (1).md",
             "03-12(1).md",
             "03-12 (1)(2)(2).md",
             "03-12 2.md",
             "03-12_2.md",
             "03-12-LAPTOP.md",
             "03-12-laptop-2.md",
             "03-12-laptop.local.md",
             "03-12 (Anna 的冲突副本 2024-05-06).md",
             "03-12 (Anna の競合コピー 2024-05-06 (2)).md",
             "03-12 (In Konflikt stehende Kopie von Anna 2024-05-06) (1).md",
             "03-12 (SFConflict anna@example.org 2015-03-07-11-30-28).md",
         }) {
        EXPECT_EQ(nameOf(name), ConflictName::Possible) << name;
    }
}

TEST(ConflictName, IsNoneOfTheUsersOwnNames) {
    for (const char* name : {
             "03-12.md",
             "03-12-2024.md",
             "03-12-2024 trip.md",
             "2024-03-12.md",
             "13-12.md",
             "03-120.md",
             "03-12 Romeo and Juliet (Conflicts between families).md",
             "03-12 trip.md",
             "03-12 (trip).md",
             "03-12 (homme) (homme).md",
             "03-12 123.md",
             "03-12-2024 (1).md",
             "03-12-2024-LAPTOP.md",
             "03-12.txt",
             "03-12",
             "03-1",
             "",
             "03-13 (1).md",
             "x03-12 (1).md",
         }) {
        EXPECT_EQ(nameOf(name), std::nullopt) << name;
    }
}

TEST(ConflictName, IsNoneOfPlaceholdersTemporariesAndArchivedVersions) {
    for (const char* name :
         {".03-12.md.icloud", ".03-12.md-tef.icloud", "03-12.md.nextcloud", "03-12.md.owncloud",
          ".~03-12.md.host.0123abcd.1.2.3.tmp", ".syncthing.03-12.md.tmp",
          "~syncthing~03-12.md.tmp", "~syncthing~.03-12.md.tmp", "03-12~20260818-173636.md",
          ".03-12 (1).md.icloud", "03-12 (1).md.nextcloud"}) {
        EXPECT_EQ(nameOf(name), std::nullopt) << name;
    }
}

TEST(ConflictName, PeelsCopiesOfCopies) {
    EXPECT_EQ(nameOf("03-12.sync-conflict-20260818-173636-D4LGQYW"
                     ".sync-conflict-20260819-080000-AAAAAAA.md"),
              ConflictName::Certain);
    EXPECT_EQ(nameOf("03-12 (conflicted copy 2021-06-16 143218)_conflict-20180220-141213.md"),
              ConflictName::Certain);
    EXPECT_EQ(nameOf("03-12.sync-conflict-20260818-173636-D4LGQYW.md.conflict1"),
              ConflictName::Certain);
    EXPECT_EQ(nameOf("03-12.md.conflict1.conflict2"), ConflictName::Certain);
    EXPECT_EQ(nameOf("03-12 (1) (conflicted copy 2021-06-16 143218).md"), ConflictName::Possible);
    EXPECT_EQ(nameOf("03-12.sync-conflict-20260818-173636-D4LGQYW (1).md"), ConflictName::Possible);
    EXPECT_EQ(nameOf("03-12-LAPTOP.sync-conflict-20260818-173636-D4LGQYW.md"),
              ConflictName::Possible);
    EXPECT_EQ(nameOf("03-12 trip (conflicted copy 2021-06-16 143218).md"), std::nullopt);
}

TEST(ConflictName, WorksForAnyFile) {
    const char* photos = "hidden-photos.json";
    EXPECT_EQ(nameOf("hidden-photos.sync-conflict-20260818-173636-D4LGQYW.json", photos),
              ConflictName::Certain);
    EXPECT_EQ(nameOf("hidden-photos-LAPTOP.json", photos), ConflictName::Possible);
    EXPECT_EQ(nameOf("hidden-photos.corrupt-2025-03-07T08-15-30Z.json", photos), std::nullopt);
    EXPECT_EQ(nameOf("notes.sync-conflict-20260818-173636-ABCDEFG", "notes"),
              ConflictName::Certain);
    EXPECT_EQ(nameOf("a+b (1).md", "a+b.md"), ConflictName::Possible);
}

TEST(ConflictName, IsFoundSoonInANameMadeToBeHard) {
    QString name = QStringLiteral("03-12x");
    for (int i = 0; i < 120; ++i) name += QStringLiteral("-a");
    EXPECT_EQ(conflictName(name + QStringLiteral(".md"), u"03-12.md"), std::nullopt);
}

TEST(ConflictMoment, IsThatOfTheOutermostTag) {
    const struct {
        const char* name;
        std::optional<QDateTime> moment;
    } rows[] = {
        {"03-12.sync-conflict-20260818-173636-D4LGQYW.md", QDateTime({2026, 8, 18}, {17, 36, 36})},
        {"03-12 (conflicted copy 2021-06-16 143218).md", QDateTime({2021, 6, 16}, {14, 32, 18})},
        {"03-12_conflict-20180220-141213.md", QDateTime({2018, 2, 20}, {14, 12, 13})},
        {"03-12 (Conflicted copy T14-20200101 202603121129).md",
         QDateTime({2026, 3, 12}, {11, 29})},
        {"03-12 (CONFLICT 20231005T070858).md", QDateTime({2023, 10, 5}, {7, 8, 58})},
        {"03-12 (Anna's conflicted copy 2019-04-24).md", QDateTime({2019, 4, 24}, {0, 0})},
        {"03-12 (Kopie von Anna 2019-04-24) (1).md", QDateTime({2019, 4, 24}, {0, 0})},
        {"03-12.sync-conflict-20260818-173636.sync-conflict-20260820-000000.md",
         QDateTime({2026, 8, 20}, {0, 0})},
        {"03-12-LAPTOP (conflicted copy 2021-06-16 143218).md",
         QDateTime({2021, 6, 16}, {14, 32, 18})},
        {"03-12.sync-conflict-20269918-173636-D4LGQYW.md", std::nullopt},
        {"03-12-LAPTOP.md", std::nullopt},
        {"03-12.sync-conflict-20260818-173636.md.conflict1", std::nullopt},
        {"03-12.md", std::nullopt},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(conflictMoment(text(row.name), u"03-12.md"), row.moment) << row.name;
    }
}

class Unresolved : public testing::Test {
protected:
    [[nodiscard]] QStringList names() const {
        QStringList names;
        for (const ConflictVersion& version : versions()) {
            names.append(version.path.section(QLatin1Char('/'), -1));
        }
        return names;
    }

    [[nodiscard]] std::vector<ConflictVersion> versions() const {
        return ConflictVersions(m_vault.path())
            .unresolved(m_vault.filePath(text("03-12.md")), [this](const QByteArray& bytes) {
                m_asked.append(bytes);
                return bytes.startsWith("## ");
            });
    }

    void setModified(const char* name, time_t seconds) const {
        const timespec times[2] = {{.tv_sec = seconds, .tv_nsec = 0},
                                   {.tv_sec = seconds, .tv_nsec = 0}};
        const QByteArray path = QFile::encodeName(m_vault.filePath(text(name)));
        ASSERT_EQ(::utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    }

    [[nodiscard]] QByteArray resolvedBytes(const char* name) const {
        return m_vault.read(QStringLiteral(".velmar/conflicts/") + text(name));
    }

    void resolve(const char* name) const {
        ConflictVersions(m_vault.path()).markResolved({m_vault.filePath(text(name)), {}});
    }

    test::TemporaryVault m_vault;
    mutable QByteArrayList m_asked;
};

TEST_F(Unresolved, ComeOldestFirstAndByNameOfOneMoment) {
    m_vault.write(text("03-12.sync-conflict-20260818-173636-BBBBBBB.md"), "b");
    m_vault.write(text("03-12.sync-conflict-20260818-173636-AAAAAAA.md"), "a");
    m_vault.write(text("03-12 (conflicted copy 2021-06-16 143218).md"), "c");
    m_vault.write(text("03-12.md.conflict1"), "d");
    setModified("03-12.md.conflict1", 1'700'000'000);
    EXPECT_EQ(names(), (QStringList{text("03-12 (conflicted copy 2021-06-16 143218).md"),
                                    text("03-12.md.conflict1"),
                                    text("03-12.sync-conflict-20260818-173636-AAAAAAA.md"),
                                    text("03-12.sync-conflict-20260818-173636-BBBBBBB.md")}));
    EXPECT_EQ(versions()[1].moment, QDateTime::fromSecsSinceEpoch(1'700'000'000));
}

TEST_F(Unresolved, AsksTheGateAboutPossibleOnesOnly) {
    m_vault.write(text("03-12.md"), "## 2020\n");
    m_vault.write(text("03-12-LAPTOP.md"), "## 2024\n");
    m_vault.write(text("03-12-recipe.md"), "flour");
    m_vault.write(text("03-12.sync-conflict-20260818-173636-AAAAAAA.md"), "anything");
    setModified("03-12-LAPTOP.md", 1'000'000);
    EXPECT_EQ(names(), (QStringList{text("03-12-LAPTOP.md"),
                                    text("03-12.sync-conflict-20260818-173636-AAAAAAA.md")}));
    EXPECT_THAT(m_asked, testing::UnorderedElementsAre("## 2024\n", "flour"));
}

TEST_F(Unresolved, LeavesFoldersAndLinksAlone) {
    QDir(m_vault.path()).mkdir(text("03-12 (conflicting copy).md"));
    m_vault.write(text("else"), "text");
    ASSERT_TRUE(
        QFile::link(m_vault.filePath(text("else")), m_vault.filePath(text("03-12.conflict1.md"))));
    EXPECT_EQ(names(), QStringList());
}

TEST_F(Unresolved, AreNoneInAFolderThatIsMissing) {
    const ConflictVersions versions(m_vault.filePath(text("none")));
    EXPECT_TRUE(versions
                    .unresolved(m_vault.filePath(text("none/03-12.md")),
                                [](const QByteArray&) { return true; })
                    .empty());
}

TEST_F(Unresolved, AreMovedAsideUnderTheirName) {
    m_vault.write(text("03-12 (1).md"), "## 2024\n");
    ASSERT_EQ(versions().size(), 1U);
    ConflictVersions(m_vault.path()).markResolved(versions().front());
    EXPECT_EQ(names(), QStringList());
    EXPECT_FALSE(m_vault.exists(text("03-12 (1).md")));
    EXPECT_EQ(resolvedBytes("03-12 (1).md"), "## 2024\n");
}

TEST_F(Unresolved, GetANumberWhereOtherBytesStandUnderTheirName) {
    for (const char* bytes : {"first", "second", "third"}) {
        m_vault.write(text("03-12 (1).md"), bytes);
        resolve("03-12 (1).md");
    }
    EXPECT_EQ(resolvedBytes("03-12 (1).md"), "first");
    EXPECT_EQ(resolvedBytes("03-12 (1) 2.md"), "second");
    EXPECT_EQ(resolvedBytes("03-12 (1) 3.md"), "third");
}

TEST_F(Unresolved, AreKeptOnceWhereTheSameBytesStandUnderTheirName) {
    for (const char* bytes : {"first", "second", "second"}) {
        m_vault.write(text("03-12 (1).md"), bytes);
        resolve("03-12 (1).md");
    }
    EXPECT_FALSE(m_vault.exists(text("03-12 (1).md")));
    EXPECT_EQ(QDir(m_vault.filePath(text(".velmar/conflicts"))).entryList(QDir::Files),
              (QStringList{text("03-12 (1) 2.md"), text("03-12 (1).md")}));
}

TEST_F(Unresolved, SayWhenOneIsGone) {
    try {
        resolve("03-12 (1).md");
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.operation(), FileOperation::Move);
        EXPECT_EQ(error.code(), ENOENT);
    }
}

}  // namespace
}  // namespace diary
