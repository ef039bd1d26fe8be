// A run of another program that reads a document. What it reads comes from anywhere, so its time,
// its memory and its output are bounded, and its end by a crash is a failure like any other.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <chrono>
#include <optional>

namespace diary::documents {

struct ToolRun {
    // The program's path.
    QString program;
    QStringList arguments;
    // Its home and temporary folder, so that no setting of the user counts and nothing stays.
    QString folder;
    std::chrono::milliseconds timeout{};
    qint64 mostOutput = 0;
    // Of address space, in bytes; 0 for no bound.
    quint64 mostMemory = 0;
};

// What the program wrote to its standard output; nothing if it couldn't be started, failed, took
// too long or wrote too much, after which it doesn't run any more. Blocks; any thread.
[[nodiscard]] std::optional<QByteArray> output(const ToolRun& run);

}  // namespace diary::documents
