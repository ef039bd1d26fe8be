// Hears of changes in the vault, whoever makes them, the application itself included. It neither
// filters nor debounces; the receiver does. Built on inotify(7), in a thread of its own that sleeps
// until something happens.
#pragma once

#include <QtCore/QString>
#include <functional>
#include <memory>

namespace diary {

class VaultObserver {
public:
    // `onChange` is called on the observer's thread.
    VaultObserver(const QString& directory, std::function<void()> onChange);
    ~VaultObserver();
    VaultObserver(const VaultObserver&) = delete;
    VaultObserver& operator=(const VaultObserver&) = delete;

    // Watches the vault, its `.velmar` and `.velmar/imports`; folders that are missing are watched
    // for from above and taken in when they (re)appear. Returns once the first watches stand.
    // Where the system gives no watches, nothing is ever told. Not told either: changes that other
    // machines make on a network file system, and a link on the way to the vault that comes to lead
    // elsewhere. Does nothing if it has been started.
    void start();

    // No call of `onChange` begins after this returns, and none is under way unless this is called
    // from within it, which is allowed.
    void stop();

private:
    class Watch;
    std::shared_ptr<Watch> m_watch;
    QString m_directory;
    std::function<void()> m_onChange;
};

}  // namespace diary
