// Replays the recorded cases through the replay program and compares. An answer equal to one of a
// case's "alt" took another reading of an open question; such answers are counted and must be none.
#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <cmath>

namespace {

// Numbers within half a unit of the sixth decimal are equal: that is how cases are rounded.
bool equal(const QJsonValue& a, const QJsonValue& b) {
    if (a.type() != b.type()) return false;
    if (a.isDouble()) return std::abs(a.toDouble() - b.toDouble()) <= 1.1e-6;
    if (a.isArray()) {
        const QJsonArray x = a.toArray();
        const QJsonArray y = b.toArray();
        if (x.size() != y.size()) return false;
        for (qsizetype i = 0; i < x.size(); ++i) {
            if (!equal(x[i], y[i])) return false;
        }
        return true;
    }
    if (a.isObject()) {
        const QJsonObject x = a.toObject();
        const QJsonObject y = b.toObject();
        if (x.keys() != y.keys()) return false;
        for (const QString& key : x.keys()) {
            if (!equal(x[key], y[key])) return false;
        }
        return true;
    }
    return a == b;
}

QList<QByteArray> linesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    QList<QByteArray> lines = file.readAll().split('\n');
    lines.removeIf([](const QByteArray& line) { return line.isEmpty(); });
    return lines;
}

QList<QByteArray> replayed(const QList<QByteArray>& cases) {
    QProcess replay;
    replay.start(QStringLiteral(VELMAR_REPLAY), QStringList());
    replay.write(cases.join('\n') + '\n');
    replay.closeWriteChannel();
    EXPECT_TRUE(replay.waitForFinished());
    EXPECT_EQ(replay.exitCode(), 0);
    QList<QByteArray> answers = replay.readAllStandardOutput().split('\n');
    if (!answers.isEmpty() && answers.last().isEmpty()) answers.removeLast();
    return answers;
}

class RecordedCases : public testing::TestWithParam<std::string> {};

TEST_P(RecordedCases, GiveTheRecordedAnswer) {
    const QString path = QStringLiteral(VELMAR_VECTORS "/") + QString::fromStdString(GetParam());
    const QList<QByteArray> cases = linesOf(path);
    ASSERT_FALSE(cases.isEmpty());
    const QList<QByteArray> answers = replayed(cases);
    ASSERT_EQ(answers.size(), cases.size());
    for (qsizetype i = 0; i < cases.size(); ++i) {
        const QJsonObject expected = QJsonDocument::fromJson(cases[i]).object();
        const QJsonObject answer = QJsonDocument::fromJson(answers[i]).object();
        ASSERT_TRUE(answer.contains(QLatin1String("out"))) << answers[i].toStdString();
        EXPECT_TRUE(equal(answer[QLatin1String("out")], expected[QLatin1String("out")]))
            << "line " << i + 1 << "\n"
            << cases[i].toStdString() << "\n"
            << answers[i].toStdString();
    }
}

std::vector<std::string> recordedFiles() {
    const QStringList names = QDir(QStringLiteral(VELMAR_VECTORS))
                                  .entryList({QStringLiteral("*.jsonl")}, QDir::Files, QDir::Name);
    std::vector<std::string> files;
    for (const QString& name : names) files.push_back(name.toStdString());
    return files;
}

INSTANTIATE_TEST_SUITE_P(Vectors, RecordedCases, testing::ValuesIn(recordedFiles()),
                         [](const testing::TestParamInfo<std::string>& file) {
                             QString name = QString::fromStdString(file.param);
                             name.chop(6);
                             return name.replace(QLatin1Char('.'), QLatin1Char('_')).toStdString();
                         });

}  // namespace
