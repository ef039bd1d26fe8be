#include "DiaryKit/Documents/DocumentTool.h"

#include <sched.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QtCore/QDeadlineTimer>
#include <QtCore/QProcess>
#include <QtCore/QProcessEnvironment>
#include <algorithm>
#include <csignal>

namespace diary::documents {

namespace {

QProcessEnvironment environment(const ToolRun& run) {
    const QProcessEnvironment own = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment made;
    made.insert(QStringLiteral("PATH"), own.value(QStringLiteral("PATH")));
    made.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    made.insert(QStringLiteral("HOME"), run.folder);
    made.insert(QStringLiteral("TMPDIR"), run.folder);
    return made;
}

// Runs in the child ahead of the program: only calls that are safe there.
void confine(quint64 mostMemory) {
    // A group of its own, so that what the program starts can be ended with it.
    setpgid(0, 0);
    // No network, where the system lets us: a document may name pictures that lie elsewhere.
    unshare(CLONE_NEWUSER | CLONE_NEWNET);
    // Our end is its end.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const struct rlimit noDump = {0, 0};
    setrlimit(RLIMIT_CORE, &noDump);
    if (mostMemory == 0) return;
    const struct rlimit memory = {mostMemory, mostMemory};
    setrlimit(RLIMIT_AS, &memory);
}

void end(QProcess& process) {
    if (process.state() == QProcess::NotRunning) return;
    kill(static_cast<pid_t>(-process.processId()), SIGKILL);
    process.kill();
    process.waitForFinished();
}

}  // namespace

std::optional<QByteArray> output(const ToolRun& run) {
    QProcess process;
    process.setProcessEnvironment(environment(run));
    process.setWorkingDirectory(run.folder);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    const quint64 mostMemory = run.mostMemory;
    process.setChildProcessModifier([mostMemory] { confine(mostMemory); });
    const QDeadlineTimer deadline(run.timeout);
    process.start(run.program, run.arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted()) return std::nullopt;

    QByteArray bytes;
    while (process.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) {
        bytes += process.readAllStandardOutput();
        if (bytes.size() > run.mostOutput) break;
    }
    if (bytes.size() <= run.mostOutput && process.state() != QProcess::NotRunning) {
        process.waitForFinished(static_cast<int>(deadline.remainingTime()));
    }
    const bool isDone = process.state() == QProcess::NotRunning;
    end(process);
    bytes += process.readAllStandardOutput();
    if (!isDone || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0 ||
        bytes.size() > run.mostOutput) {
        return std::nullopt;
    }
    return bytes;
}

}  // namespace diary::documents
