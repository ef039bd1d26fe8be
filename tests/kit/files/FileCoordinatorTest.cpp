#include "DiaryKit/Files/FileCoordinator.h"

#include <gmock/gmock.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/Environment.h"
#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

using namespace std::chrono_literals;

// Long enough for a loaded machine; reached only when a lock isn't freed.
constexpr auto kDeadline = 20s;

class FileCoordinatorTest : public testing::Test {
protected:
    FileCoordinatorTest() : m_coordinator(m_vault.path()) {}

    // Adds one to the number in the file; two that do so at once lose one.
    void countUp() const {
        const int number = m_vault.read(QStringLiteral("count")).toInt();
        std::this_thread::yield();
        atomicfile::write(m_vault.filePath(QStringLiteral("count")), QByteArray::number(number + 1),
                          atomicfile::Durability::Unsynced);
    }
    void countUpTo(int times) const {
        for (int i = 0; i < times; ++i) m_coordinator.coordinateWriting([&] { countUp(); });
    }
    [[nodiscard]] int count() const { return m_vault.read(QStringLiteral("count")).toInt(); }

    // Whether another thread gets to write soon.
    [[nodiscard]] bool isFree() const {
        auto other =
            std::async(std::launch::async, [&] { m_coordinator.coordinateWriting([] {}); });
        return other.wait_for(kDeadline) == std::future_status::ready;
    }

    // A process that holds the vault from its first word to the one that it is told.
    [[nodiscard]] std::unique_ptr<test::ChildProcess> holder() const {
        auto child = std::make_unique<test::ChildProcess>([&](const auto& test) {
            m_coordinator.coordinateWriting([&] {
                test.tell();
                test.await();
                countUp();
            });
            return 0;
        });
        child->await();
        return child;
    }

    test::TemporaryVault m_vault;
    FileCoordinator m_coordinator;
};

TEST_F(FileCoordinatorTest, KeepsWritersOfTwoThreadsApart) {
    std::thread other([&] { countUpTo(300); });
    countUpTo(300);
    other.join();
    EXPECT_EQ(count(), 600);
}

TEST_F(FileCoordinatorTest, KeepsWritersOfProcessesApart) {
    const auto work = [&](const auto&) {
        countUpTo(200);
        return 0;
    };
    test::ChildProcess one(work);
    test::ChildProcess two(work);
    countUpTo(200);
    EXPECT_EQ(one.join(), 0);
    EXPECT_EQ(two.join(), 0);
    EXPECT_EQ(count(), 600);
}

TEST_F(FileCoordinatorTest, KeepsDifferentSpellingsOfOneVaultApart) {
    const QString link = m_vault.path() + QStringLiteral("-link");
    ASSERT_TRUE(QFile::link(m_vault.path(), link));
    const auto countUpBy = [&](const QString& spelling) {
        const FileCoordinator coordinator(spelling);
        for (int i = 0; i < 200; ++i) coordinator.coordinateWriting([&] { countUp(); });
    };
    std::thread first(countUpBy, link);
    std::thread second(countUpBy, m_vault.path() + QStringLiteral("//"));
    countUpBy(m_vault.path());
    first.join();
    second.join();
    EXPECT_EQ(count(), 600);
}

TEST_F(FileCoordinatorTest, HoldsReadersOffWhileAnotherProcessWrites) {
    const auto child = holder();
    auto reader = std::async(std::launch::async, [&] {
        int seen = -1;
        m_coordinator.coordinateReading([&] { seen = count(); });
        return seen;
    });
    child->tell();
    EXPECT_EQ(reader.get(), 1);
    EXPECT_EQ(child->join(), 0);
}

TEST_F(FileCoordinatorTest, LetsReadersRunTogether) {
    bool isRun = false;
    m_coordinator.coordinateReading([&] {
        std::thread other([&] { m_coordinator.coordinateReading([&] { isRun = true; }); });
        other.join();
    });
    EXPECT_TRUE(isRun);
}

TEST_F(FileCoordinatorTest, LetsAWriterInAmongReadersWithoutAPause) {
    std::atomic<bool> isWritten = false;
    // Without precedence it takes a writer five seconds and more to meet a gap by chance.
    const auto end = std::chrono::steady_clock::now() + 2s;
    const auto read = [&] {
        while (!isWritten && std::chrono::steady_clock::now() < end) {
            // As long as a file on a slow disk takes.
            m_coordinator.coordinateReading([] { std::this_thread::sleep_for(1ms); });
        }
    };
    std::vector<std::thread> readers;
    for (int i = 0; i < 8; ++i) readers.emplace_back(read);
    m_coordinator.coordinateWriting([&] { isWritten = std::chrono::steady_clock::now() < end; });
    for (std::thread& reader : readers) reader.join();
    EXPECT_TRUE(isWritten);
}

TEST_F(FileCoordinatorTest, IsFreedByTheDeathOfItsHolder) {
    const auto child = holder();
    EXPECT_EQ(child->kill(), -SIGKILL);
    EXPECT_TRUE(isFree());
}

TEST_F(FileCoordinatorTest, LeavesNothingInTheVault) {
    m_coordinator.coordinateWriting([] {});
    EXPECT_TRUE(m_vault.names().isEmpty());
}

TEST_F(FileCoordinatorTest, MayBeNestedInEveryWay) {
    using Way = void (FileCoordinator::*)(const std::function<void()>&) const;
    const Way ways[] = {&FileCoordinator::coordinateReading, &FileCoordinator::coordinateWriting};
    const FileCoordinator same(m_vault.path() + QLatin1Char('/'));
    int runs = 0;
    for (const Way outer : ways) {
        for (const Way middle : ways) {
            for (const Way inner : ways) {
                (m_coordinator.*
                 outer)([&] { (same.*middle)([&] { (m_coordinator.*inner)([&] { ++runs; }); }); });
            }
        }
    }
    EXPECT_EQ(runs, 8);
    EXPECT_TRUE(isFree());
}

TEST_F(FileCoordinatorTest, KeepsAWriteNestedInAReadAlone) {
    const auto work = [&] {
        for (int i = 0; i < 200; ++i) {
            m_coordinator.coordinateReading(
                [&] { m_coordinator.coordinateWriting([&] { countUp(); }); });
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(count(), 400);
}

TEST_F(FileCoordinatorTest, IsSharedAgainAfterANestedWrite) {
    m_coordinator.coordinateReading([&] {
        m_coordinator.coordinateWriting([] {});
        auto reader =
            std::async(std::launch::async, [&] { m_coordinator.coordinateReading([] {}); });
        EXPECT_EQ(reader.wait_for(kDeadline), std::future_status::ready);
    });
    EXPECT_TRUE(isFree());
}

TEST_F(FileCoordinatorTest, EndsWhereTwoThreadsNestTheirFilesTheOtherWayRound) {
    const QString a = m_vault.filePath(QStringLiteral("a"));
    const QString b = m_vault.filePath(QStringLiteral("b"));
    const auto write = [&](const QString& outer, const QString& inner) {
        for (int i = 0; i < 100; ++i) {
            m_coordinator.coordinateWriting([&] {
                atomicfile::write(outer, "x", atomicfile::Durability::Unsynced);
                m_coordinator.coordinateWriting(
                    [&] { atomicfile::write(inner, "y", atomicfile::Durability::Unsynced); });
            });
        }
    };
    auto other = std::async(std::launch::async, write, a, b);
    write(b, a);
    EXPECT_EQ(other.wait_for(kDeadline), std::future_status::ready);
}

TEST_F(FileCoordinatorTest, IsFreedByAnAccessorThatThrows) {
    const auto fail = [] { throw std::runtime_error("on purpose"); };
    EXPECT_THROW(m_coordinator.coordinateReading(fail), std::runtime_error);
    EXPECT_THROW(m_coordinator.coordinateWriting(fail), std::runtime_error);
    EXPECT_THROW(m_coordinator.coordinateReading([&] { m_coordinator.coordinateWriting(fail); }),
                 std::runtime_error);
    EXPECT_TRUE(isFree());
}

TEST_F(FileCoordinatorTest, LeavesOtherVaultsFree) {
    const test::TemporaryVault vault;
    const FileCoordinator other(vault.path());
    m_coordinator.coordinateWriting([&] {
        auto writer = std::async(std::launch::async, [&] { other.coordinateWriting([] {}); });
        EXPECT_EQ(writer.wait_for(kDeadline), std::future_status::ready);
        bool isRun = false;
        other.coordinateWriting([&] { isRun = true; });
        EXPECT_TRUE(isRun);
    });
}

TEST_F(FileCoordinatorTest, TriesWithoutWaiting) {
    int runs = 0;
    const auto run = [&] { ++runs; };
    EXPECT_TRUE(m_coordinator.tryCoordinateWriting(run));
    {
        const auto child = holder();
        EXPECT_FALSE(m_coordinator.tryCoordinateWriting(run));
    }
    EXPECT_TRUE(m_coordinator.tryCoordinateWriting([&] {
        run();
        auto other =
            std::async(std::launch::async, [&] { return m_coordinator.tryCoordinateWriting(run); });
        EXPECT_FALSE(other.get());
        EXPECT_FALSE(m_coordinator.tryCoordinateWriting(run));
        m_coordinator.coordinateWriting(run);
    }));
    m_coordinator.coordinateReading([&] { EXPECT_FALSE(m_coordinator.tryCoordinateWriting(run)); });
    EXPECT_EQ(runs, 3);
    EXPECT_TRUE(isFree());
}

TEST_F(FileCoordinatorTest, MakesItsFolderAnewWhenThatIsGone) {
    const QTemporaryDir runtime;
    const test::Environment given("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    const FileCoordinator coordinator(m_vault.path());
    coordinator.coordinateWriting([] {});
    QDir(runtime.path() + QStringLiteral("/velmar")).removeRecursively();
    bool isRun = false;
    coordinator.coordinateWriting([&] { isRun = true; });
    EXPECT_TRUE(isRun);
}

TEST_F(FileCoordinatorTest, SaysWhenNoLockCanBeHad) {
    const QTemporaryDir runtime;
    const test::Environment given("XDG_RUNTIME_DIR", runtime.path().toUtf8());
    const FileCoordinator coordinator(m_vault.path());
    QFile file(runtime.path() + QStringLiteral("/velmar/locks"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    bool isRun = false;
    try {
        coordinator.coordinateReading([&] { isRun = true; });
        FAIL() << "nothing was thrown";
    } catch (const FileError& error) {
        EXPECT_EQ(error.operation(), FileOperation::Coordinate);
    }
    EXPECT_FALSE(isRun);
}

}  // namespace
}  // namespace diary
