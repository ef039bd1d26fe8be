// Runs a program with the fault library, in the terms of its README.
#pragma once

#include <gtest/gtest.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <map>

namespace diary::test {

// Variables without their common beginning: {"KILL_AT", "3"}.
using Faults = std::map<QString, QString>;

struct FaultyRun {
    // Whether the program came to its own end.
    bool isEnded = false;
    int exitCode = -1;
    QByteArray output;
};

// Runs `program` to its end, with faults below `root`.
inline FaultyRun runWithFaults(const QString& program, const QStringList& arguments,
                               const QString& root, const Faults& faults) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LD_PRELOAD"),
                       QStringLiteral(VELMAR_BINARY_DIR "/bin/libvelmar_faults.so"));
    environment.insert(QStringLiteral("VELMAR_FAULT_ROOT"), root);
    for (const auto& [name, value] : faults) {
        environment.insert(QStringLiteral("VELMAR_FAULT_") + name, value);
    }
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    constexpr int kDeadlineMilliseconds = 30'000;
    FaultyRun run;
    if (!process.waitForFinished(kDeadlineMilliseconds)) return run;
    run.isEnded = process.exitStatus() == QProcess::NormalExit;
    run.exitCode = process.exitCode();
    run.output = process.readAllStandardOutput();
    return run;
}

// The same for the program of careful and careless ways to write.
inline FaultyRun runWriter(const QString& way, const QString& folder, const Faults& faults) {
    return runWithFaults(QStringLiteral(VELMAR_BINARY_DIR "/bin/velmar_faults_writer"),
                         {way, folder}, folder, faults);
}

// The names of the calls that the writer makes, in their order. It runs to its end for that.
inline QByteArrayList callsOfWriter(const QString& way, const QString& folder, Faults faults = {}) {
    const QTemporaryDir outside;
    const QString path = outside.filePath(QStringLiteral("count"));
    faults[QStringLiteral("COUNT")] = path;
    EXPECT_EQ(runWriter(way, folder, faults).exitCode, 0);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArrayList names;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.isEmpty()) continue;
        const QByteArrayList fields = line.split(' ');
        EXPECT_EQ(fields.value(0), QByteArray::number(names.size() + 1));
        names.append(fields.value(1));
    }
    return names;
}

}  // namespace diary::test
