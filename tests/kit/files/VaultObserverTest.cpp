#include "DiaryKit/Files/VaultObserver.h"

#include <condition_variable>
#include <mutex>

#include "DiaryKit/Files/AtomicFile.h"
#include "tests/support/ForkedStep.h"
#include "tests/support/SystemRefusals.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using namespace std::chrono_literals;

// Counts what the observer tells, and waits for it.
class Heard {
public:
    void hear() {
        const std::lock_guard lock(m_mutex);
        ++m_count;
        m_changed.notify_all();
    }

    // Whether something is told within the time that a loaded machine may take.
    [[nodiscard]] bool something() {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, 10s, [&] { return m_count > 0; });
    }

    // Whether nothing is told for as long as the application waits before it looks.
    [[nodiscard]] bool nothing() {
        std::unique_lock lock(m_mutex);
        return !m_changed.wait_for(lock, 200ms, [&] { return m_count > 0; });
    }

    // Lets what is under way come in, and forgets it.
    void settle() {
        std::unique_lock lock(m_mutex);
        do {
            m_count = 0;
        } while (m_changed.wait_for(lock, 100ms, [&] { return m_count > 0; }));
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    int m_count = 0;
};

class VaultObserverTest : public testing::Test {
protected:
    VaultObserverTest() : m_observer(vault(), [this] { m_heard.hear(); }) {}

    [[nodiscard]] QString vault() const { return m_ground.filePath(QStringLiteral("a/b/vault")); }
    [[nodiscard]] QString path(const char* name) const {
        return vault() + QLatin1Char('/') + QString::fromLatin1(name);
    }
    void write(const char* name, const QByteArray& bytes = "text") const {
        m_ground.write(QStringLiteral("a/b/vault/") + QString::fromLatin1(name), bytes);
    }
    void rename(const char* from, const char* to) const {
        ASSERT_TRUE(
            QDir(m_ground.path()).rename(QString::fromLatin1(from), QString::fromLatin1(to)));
    }
    void makeVault() const { QDir().mkpath(vault()); }
    // Begins with a vault that is there and quiet.
    void start() {
        makeVault();
        m_observer.start();
        m_heard.settle();
    }
    // Whether a file that comes now is told, and told alone.
    [[nodiscard]] bool isHearing(const char* name) {
        m_heard.settle();
        write(name);
        return m_heard.something();
    }

    test::TemporaryVault m_ground;
    Heard m_heard;
    VaultObserver m_observer;
};

TEST_F(VaultObserverTest, TellsOfANewFile) {
    start();
    write("03-07.md");
    EXPECT_TRUE(m_heard.something());
}

TEST_F(VaultObserverTest, TellsOfAFileRenamedOver) {
    write("03-07.md", "old");
    write("other", "new");
    start();
    ASSERT_EQ(::rename(QFile::encodeName(path("other")).constData(),
                       QFile::encodeName(path("03-07.md")).constData()),
              0);
    EXPECT_TRUE(m_heard.something());
}

TEST_F(VaultObserverTest, TellsOfAWriteInPlaceThatIsStillOpen) {
    write("03-07.md", "old");
    QFile file(path("03-07.md"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered));
    start();
    file.write("more");
    EXPECT_TRUE(m_heard.something());
}

TEST_F(VaultObserverTest, TellsOfADeletion) {
    write("03-07.md");
    start();
    QFile::remove(path("03-07.md"));
    EXPECT_TRUE(m_heard.something());
}

TEST_F(VaultObserverTest, TellsOfOurOwnWrites) {
    start();
    atomicfile::write(path("03-07.md"), "text");
    EXPECT_TRUE(m_heard.something());
}

TEST_F(VaultObserverTest, TellsOfTheFoldersWithin) {
    write(".velmar/hidden-photos.json");
    write(".velmar/imports/a.json");
    start();
    write(".velmar/hidden-photos.json", "new");
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing(".velmar/imports/b.json"));
}

TEST_F(VaultObserverTest, TakesInFoldersThatAreMadeLater) {
    start();
    QDir().mkpath(path(".velmar"));
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing(".velmar/hidden-photos.json"));
    m_heard.settle();
    QDir().mkpath(path(".velmar/imports"));
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing(".velmar/imports/a.json"));
}

TEST_F(VaultObserverTest, TakesInAWholeTreeMadeAtOnce) {
    start();
    QDir().mkpath(path(".velmar/imports"));
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing(".velmar/imports/a.json"));
}

TEST_F(VaultObserverTest, TakesInAVaultThatIsMadeLater) {
    m_observer.start();
    m_heard.settle();
    makeVault();
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing("03-07.md"));
}

TEST_F(VaultObserverTest, SurvivesThatTheVaultIsRemovedAndMadeAgain) {
    start();
    QDir(vault()).removeRecursively();
    EXPECT_TRUE(m_heard.something());
    m_heard.settle();
    makeVault();
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing("03-07.md"));
}

TEST_F(VaultObserverTest, SurvivesThatTheVaultIsMovedAwayAndBack) {
    start();
    rename("a/b/vault", "a/b/aside");
    EXPECT_TRUE(m_heard.something());
    m_heard.settle();
    m_ground.write(QStringLiteral("a/b/aside/03-07.md"), "text");
    EXPECT_TRUE(m_heard.nothing());
    rename("a/b/aside", "a/b/vault");
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing("03-08.md"));
}

TEST_F(VaultObserverTest, SurvivesThatAFolderAboveIsRemovedAndMadeAgain) {
    start();
    QDir(m_ground.filePath(QStringLiteral("a"))).removeRecursively();
    EXPECT_TRUE(m_heard.something());
    m_heard.settle();
    makeVault();
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing("03-07.md"));
}

TEST_F(VaultObserverTest, SurvivesThatAFolderAboveIsMovedAwayAndAnotherMade) {
    start();
    rename("a", "aside");
    EXPECT_TRUE(m_heard.something());
    m_heard.settle();
    makeVault();
    EXPECT_TRUE(m_heard.something());
    EXPECT_TRUE(isHearing("03-07.md"));
    m_heard.settle();
    m_ground.write(QStringLiteral("aside/b/vault/03-07.md"), "text");
    EXPECT_TRUE(m_heard.nothing());
}

TEST_F(VaultObserverTest, SurvivesThatADiskIsMountedOverTheVaultAndGone) {
    makeVault();
    const std::string words = test::wordsOfFork([&]() -> std::string {
        const QByteArray folder = QFile::encodeName(vault());
        if (!test::leaveMountsOfOthersAlone()) return "no mount";
        start();
        if (::mount("tmpfs", folder.constData(), "tmpfs", 0, "size=64k") != 0) return "no mount";
        if (!m_heard.something()) return "the disk isn't told";
        if (!isHearing("03-07.md")) return "nothing on the disk is told";
        m_heard.settle();
        if (::umount(folder.constData()) != 0) return "no unmount";
        if (!m_heard.something()) return "its end isn't told";
        std::string below = isHearing("03-08.md") ? "" : "nothing below is told";
        m_observer.stop();
        return below;
    });
    if (words == "no mount") GTEST_SKIP() << "this system lets nobody mount here";
    EXPECT_EQ(words, "");
}

TEST_F(VaultObserverTest, TellsNothingWhileNothingHappens) {
    write("03-07.md");
    start();
    (void)atomicfile::read(path("03-07.md"));
    m_ground.write(QStringLiteral("a/b/beside.md"), "text");
    EXPECT_TRUE(m_heard.nothing());
}

TEST_F(VaultObserverTest, TellsNothingOnceStopped) {
    start();
    m_observer.stop();
    m_observer.stop();
    write("03-07.md");
    EXPECT_TRUE(m_heard.nothing());
}

TEST_F(VaultObserverTest, MayBeStartedAgain) {
    start();
    m_observer.stop();
    m_observer.start();
    EXPECT_TRUE(isHearing("03-07.md"));
}

TEST_F(VaultObserverTest, MayBeStoppedFromWithinItsCall) {
    makeVault();
    VaultObserver observer(vault(), [&] {
        observer.stop();
        m_heard.hear();
    });
    observer.start();
    write("03-07.md");
    EXPECT_TRUE(m_heard.something());
    m_heard.settle();
    write("03-08.md");
    EXPECT_TRUE(m_heard.nothing());
}

}  // namespace
}  // namespace diary
