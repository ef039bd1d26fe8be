// Replays the recorded cases through the replay program and compares. A case's "alt" holds answers
// of other readings of an open question; which of them we took is told below, by file.
#include <gtest/gtest.h>

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <cmath>
#include <set>

#include "tests/replay/ScenarioCases.h"

namespace {

using velmar_replay::Departure;

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

// Where characters are counted they are those that people see, not code points.
bool countsSeenCharacters(const std::string& file) {
    return file == "ImportLog.bigramCount.jsonl" || file == "ImportPlanner.pickSamples.jsonl";
}

QJsonValue expectedAnswer(const std::string& file, const QJsonObject& recorded) {
    const QLatin1String reading("cluster:clusters");
    const QJsonObject others = recorded[QLatin1String("alt")].toObject();
    const bool isOther = countsSeenCharacters(file) && others.contains(reading);
    return isOther ? others[reading] : recorded[QLatin1String("out")];
}

// Whether the recorded plan reports entries as written in a year that a day file has no header for.
// Such a plan isn't followed: what can't be found in the text isn't written.
bool reportsLostEntries(const std::string& file, const QJsonObject& recorded) {
    if (file != "ImportPlanner.plan.jsonl") return false;
    const QJsonArray years =
        recorded[QLatin1String("out")][QLatin1String("stats")][QLatin1String("years")].toArray();
    return !years.isEmpty() && (years[0].toInt() < 1000 || years[1].toInt() > 9999);
}

void expectNoLostEntries(const QJsonValue& plan) {
    int entries = 0;
    const QJsonArray changes = plan[QLatin1String("changes")].toArray();
    for (const auto& change : changes) {
        const QJsonArray additions = change[QLatin1String("additions")].toArray();
        for (const auto& addition : additions) {
            const int year = addition[QLatin1String("year")].toInt();
            EXPECT_TRUE(year >= 1000 && year <= 9999) << year;
            entries += static_cast<int>(addition[QLatin1String("entryKeys")].toArray().size());
        }
    }
    EXPECT_EQ(plan[QLatin1String("stats")][QLatin1String("entries")].toInt(), entries);
}

// The years of the additions that a story's plans tell, those without a header left out.
void expectNoLostEntriesIn(const QJsonObject& story) {
    const QJsonArray steps = story[QLatin1String("steps")].toArray();
    for (const auto& step : steps) {
        if (step.toObject().contains(QLatin1String("plan"))) {
            expectNoLostEntries(step[QLatin1String("plan")]);
        }
    }
}

// Whether the case is a story that we tell in another way; checks what must hold in it then.
bool isOtherStory(const std::string& file, const QJsonObject& recorded, const QJsonObject& told) {
    if (file != "importScenario.jsonl") return false;
    switch (velmar_replay::departure(recorded)) {
        case Departure::None:
            return false;
        case Departure::HeaderlessYears:
            expectNoLostEntriesIn(told);
            EXPECT_EQ(velmar_replay::withoutHeaderlessYears(told),
                      velmar_replay::withoutHeaderlessYears(recorded));
            return true;
        case Departure::OpenFence:
            EXPECT_EQ(velmar_replay::upToOpenFence(told, recorded),
                      velmar_replay::upToOpenFence(recorded, recorded));
            return true;
    }
    return false;
}

class RecordedCases : public testing::TestWithParam<std::string> {};

TEST_P(RecordedCases, GiveTheRecordedAnswer) {
    const QString path = QStringLiteral(VELMAR_VECTORS "/") + QString::fromStdString(GetParam());
    const QList<QByteArray> cases = linesOf(path);
    ASSERT_FALSE(cases.isEmpty());
    const QList<QByteArray> answers = replayed(cases);
    ASSERT_EQ(answers.size(), cases.size());
    std::set<qsizetype> others;
    for (qsizetype i = 0; i < cases.size(); ++i) {
        const QJsonObject expected = QJsonDocument::fromJson(cases[i]).object();
        const QJsonObject answer = QJsonDocument::fromJson(answers[i]).object();
        ASSERT_TRUE(answer.contains(QLatin1String("out"))) << answers[i].toStdString();
        if (reportsLostEntries(GetParam(), expected)) {
            expectNoLostEntries(answer[QLatin1String("out")]);
            continue;
        }
        if (isOtherStory(GetParam(), expected[QLatin1String("out")].toObject(),
                         answer[QLatin1String("out")].toObject())) {
            others.insert(i + 1);
            continue;
        }
        EXPECT_TRUE(equal(answer[QLatin1String("out")], expectedAnswer(GetParam(), expected)))
            << "line " << i + 1 << "\n"
            << cases[i].toStdString() << "\n"
            << answers[i].toStdString();
    }
    // Known by their lines, so that no other story departs unseen.
    const bool isScenario = GetParam() == "importScenario.jsonl";
    const std::set<qsizetype> known = {5, 16, 28, 31, 39};
    EXPECT_EQ(others, isScenario ? known : std::set<qsizetype>());
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
