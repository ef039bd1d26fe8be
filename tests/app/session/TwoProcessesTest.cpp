// Two processes that write different years of one day at the same time lose nothing of each other.
#include <gtest/gtest.h>

#include <QtCore/QProcess>

#include "DiaryKit/Vault/YearSectionParser.h"
#include "tests/support/Printing.h"
#include "tests/support/TemporaryVault.h"

namespace velmar::test {
namespace {

constexpr int kRounds = 2000;

std::unique_ptr<QProcess> startWriter(const QString& vault, int year, const QString& text) {
    auto process = std::make_unique<QProcess>();
    process->setStandardOutputFile(QProcess::nullDevice());
    process->start(
        QStringLiteral(VELMAR_SESSION_WRITER),
        {vault, QStringLiteral("11-21"), QString::number(year), QString::number(kRounds), text});
    return process;
}

QString linesOf(const QString& text) {
    QStringList lines;
    for (int round = 0; round < kRounds; ++round) lines += text + u' ' + QString::number(round);
    return lines.join(u'\n');
}

TEST(TwoProcesses, KeepEverySectionOfEachOther) {
    const diary::test::TemporaryVault vault;
    vault.write(QStringLiteral("11-21.md"), "# 11-21\n\n## 2001\n\nlong ago\n");
    const auto one = startWriter(vault.path(), 2015, QStringLiteral("one"));
    const auto two = startWriter(vault.path(), 2020, QStringLiteral("two"));
    constexpr int kDeadline = 240000;
    ASSERT_TRUE(one->waitForFinished(kDeadline));
    ASSERT_TRUE(two->waitForFinished(kDeadline));
    EXPECT_EQ(one->exitCode(), 0);
    EXPECT_EQ(two->exitCode(), 0);
    const QString text = QString::fromUtf8(vault.read(QStringLiteral("11-21.md")));
    using diary::YearSectionParser::body;
    EXPECT_EQ(body(2001, text), u"long ago");
    EXPECT_EQ(body(2015, text), linesOf(QStringLiteral("one")));
    EXPECT_EQ(body(2020, text), linesOf(QStringLiteral("two")));
    EXPECT_EQ(vault.names(), QStringList{QStringLiteral("11-21.md")});
}

}  // namespace
}  // namespace velmar::test
