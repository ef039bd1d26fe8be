#include "DiaryKit/Files/TemporaryName.h"

#include <sys/prctl.h>

#include <gtest/gtest.h>

#include <QtCore/QFile>

#include "tests/support/ChildProcess.h"

namespace diary {
namespace {

const ProcessIdentity kSomebody{.host = QStringLiteral("anna-s-laptop-0123abcd"),
                                .boot = QStringLiteral("89abcdef"),
                                .pid = 4711,
                                .start = 98765};

TEST(TemporaryName, HoldsFileAndOwner) {
    const QString name = temporaryName(QStringLiteral("03-07.md"), kSomebody);
    EXPECT_TRUE(
        name.startsWith(QStringLiteral(".~03-07.md.anna-s-laptop-0123abcd.89abcdef.4711.98765.")));
    EXPECT_TRUE(name.endsWith(QStringLiteral(".tmp")));
    EXPECT_EQ(temporaryOwner(name), kSomebody);
}

TEST(TemporaryName, IsNewAtEachCall) {
    EXPECT_NE(temporaryName(QStringLiteral("a"), kSomebody),
              temporaryName(QStringLiteral("a"), kSomebody));
}

TEST(TemporaryName, FitsAFileSystemHoweverLongTheFilesNameIs) {
    for (const QString& fileName :
         {QString(255, u'x'), QString(80, QChar(0x4E2D)), QStringLiteral("😀").repeated(60)}) {
        const QString name = temporaryName(fileName, kSomebody);
        EXPECT_LT(QFile::encodeName(name).size(), 255);
        EXPECT_EQ(QString::fromUtf8(name.toUtf8()), name);
        EXPECT_EQ(temporaryOwner(name), kSomebody);
    }
}

TEST(TemporaryName, IsNoneOfAnyOtherName) {
    for (const auto& name :
         {"03-07.md", ".~03-07.md.tmp", ".~.host.89abcdef.1.2.3.tmp", ".~lock.03-07.md#",
          ".~03-07.md.host.89abcdef.1.2.tmp", ".~03-07.md.host.89abcdeg.1.2.3.tmp",
          ".~03-07.md.host.89abcdef.x.2.3.tmp", "~03-07.md.host.89abcdef.1.2.3.tmp",
          ".~03-07.md.ho_st.89abcdef.1.2.3.tmp", ".~03-07.md.host.89abcdef.1.2.3.tmp\n",
          ".syncthing.03-07.md.tmp"}) {
        EXPECT_EQ(temporaryOwner(QString::fromLatin1(name)), std::nullopt) << name;
    }
}

TEST(ProcessIdentity, NamesThisProcess) {
    const ProcessIdentity& self = ProcessIdentity::current();
    EXPECT_EQ(self.pid, ::getpid());
    EXPECT_GT(self.start, 0U);
    EXPECT_EQ(self.boot.size(), 8);
    EXPECT_EQ(temporaryOwner(temporaryName(QStringLiteral("03-07.md"), self)), self);
    EXPECT_EQ(&ProcessIdentity::current(), &self);
}

TEST(ProcessIdentity, OfAForkedChildIsItsOwn) {
    const ProcessIdentity parent = ProcessIdentity::current();
    test::ChildProcess child([&](const auto&) {
        const ProcessIdentity& own = ProcessIdentity::current();
        return own.pid == ::getpid() && own.pid != parent.pid && own.host == parent.host ? 0 : 1;
    });
    EXPECT_EQ(child.join(), 0);
}

TEST(ProcessIdentity, IsReadBehindACommandNameWithBlanksAndParentheses) {
    test::ChildProcess child([](const auto&) {
        ::prctl(PR_SET_NAME, ") 7 (a b) 9");
        return isKnownDead(ProcessIdentity::current()) ? 1 : 0;
    });
    EXPECT_EQ(child.join(), 0);
}

TEST(IsKnownDead, NotForALivingProcess) {
    EXPECT_FALSE(isKnownDead(ProcessIdentity::current()));
    int pipe[2] = {};
    ASSERT_EQ(::pipe(pipe), 0);
    test::ChildProcess child([&](const auto& test) {
        const QByteArray name =
            temporaryName(QStringLiteral("a"), ProcessIdentity::current()).toUtf8();
        if (::write(pipe[1], name.constData(), static_cast<std::size_t>(name.size())) < 0) return 1;
        test.await();
        return 0;
    });
    char name[256] = {};
    ASSERT_GT(::read(pipe[0], name, sizeof name - 1), 0);
    const ProcessIdentity owner =
        temporaryOwner(QString::fromUtf8(name)).value_or(ProcessIdentity{});
    EXPECT_EQ(owner.pid, child.pid());
    EXPECT_FALSE(isKnownDead(owner));
    child.kill();
    EXPECT_TRUE(isKnownDead(owner));
    ::close(pipe[0]);
    ::close(pipe[1]);
}

TEST(IsKnownDead, ForAProcessThatEnded) {
    ProcessIdentity owner = ProcessIdentity::current();
    test::ChildProcess child([](const auto&) { return 0; });
    owner.pid = child.pid();
    child.join();
    EXPECT_TRUE(isKnownDead(owner));
}

TEST(IsKnownDead, ForAPidThatAnotherProcessHasByNow) {
    ProcessIdentity owner = ProcessIdentity::current();
    owner.start -= 1;
    EXPECT_TRUE(isKnownDead(owner));
}

TEST(IsKnownDead, ForAProcessOfAnEarlierBoot) {
    ProcessIdentity owner = ProcessIdentity::current();
    owner.boot = owner.boot == QStringLiteral("00000000") ? QStringLiteral("00000001")
                                                          : QStringLiteral("00000000");
    EXPECT_TRUE(isKnownDead(owner));
}

TEST(IsKnownDead, NeverForAnotherMachine) {
    ProcessIdentity owner = kSomebody;
    EXPECT_FALSE(isKnownDead(owner));
}

}  // namespace
}  // namespace diary
