// A program that writes through a writing session, for tests of several processes and of sudden
// ends: session_writer <vault> <MM-DD> <year> <rounds> <text>. Each round appends the text and its
// number as a line, saves, and prints "saved <round>", or "failed <round>".
#include <QtCore/QCoreApplication>
#include <cstdio>

#include "DiaryApp/Session/WritingSession.h"

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 6) return 2;
    const auto day = diary::MonthDay::parse(arguments[2] + QLatin1String(".md"));
    if (!day) return 2;
    diary::DiaryStore store(arguments[1]);
    velmar::WritingSession session(store, {}, {});
    session.open(*day, velmar::Focus::Unchanged);
    session.pickYear(arguments[3].toInt(), velmar::Focus::Unchanged);
    for (int round = 0; round < arguments[4].toInt(); ++round) {
        const QString line = arguments[5] + u' ' + QString::number(round);
        session.draftChanged(session.draft().isEmpty() ? line : session.draft() + u'\n' + line);
        session.flushSaveIfDirty();
        std::printf("%s %d\n", session.isDirty() ? "failed" : "saved", round);
        std::fflush(stdout);
    }
    return session.isDirty() ? 1 : 0;
}
