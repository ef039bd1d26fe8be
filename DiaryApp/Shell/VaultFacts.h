// What the window tells of the whole vault: which days have writing, of how many years, since when.
// It looks in the background and keeps what it found, so that telling it never waits for a disk.
#pragma once

#include <QtCore/QObject>
#include <functional>
#include <future>

#include "DiaryKit/Vault/DiaryStore.h"

namespace velmar {

// Main thread. The store outlives it.
class VaultFacts : public QObject {
    Q_OBJECT

public:
    // A look through the vault that has begun already.
    using FirstScan = std::shared_future<diary::ArchiveScan>;

    explicit VaultFacts(diary::DiaryStore& store) : m_store(store) {}

    // The first look; without a scan it is begun here. Known at once if the scan has ended.
    void begin(const FirstScan& scan);
    // Looks again if the store has something new to say since the last look.
    void refresh();
    // Looks again in any case: on some disks nobody tells of changes.
    void lookAgain();

    // Nothing is known until the first look has ended.
    [[nodiscard]] bool areKnown() const { return m_areKnown; }
    // What the last look found.
    [[nodiscard]] const diary::ArchiveSnapshot& archive() const { return m_archive; }

    // Something else was found, or the first look ended.
    std::function<void()> onChanged;

private:
    void take(const diary::ArchiveSnapshot& found, int revision);

    diary::DiaryStore& m_store;
    diary::ArchiveSnapshot m_archive;
    bool m_areKnown = false;
    bool m_isLooking = false;
    // The store's when the last look had been taken in.
    int m_revision = -1;
};

}  // namespace velmar
