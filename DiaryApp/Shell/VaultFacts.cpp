#include "DiaryApp/Shell/VaultFacts.h"

#include <QtCore/QPointer>
#include <chrono>

#include "DiaryKit/Foundation/Background.h"

namespace velmar {

void VaultFacts::begin(const FirstScan& scan) {
    if (!scan.valid()) return lookAgain();
    // What is written until the scan's end may stand behind it, and counts as new.
    const auto adopt = [this, before = m_store.revision()](const diary::ArchiveScan& found) {
        m_store.adopt(found);
        take(found.snapshot, before + 1);
    };
    if (scan.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
        return adopt(scan.get());
    }
    m_isLooking = true;
    diary::background::run(
        diary::background::Urgency::UserWaits, this, [scan] { return scan.get(); },
        [adopt](const diary::ArchiveScan& found) { adopt(found); });
}

void VaultFacts::refresh() {
    if (m_revision != m_store.revision()) lookAgain();
}

void VaultFacts::lookAgain() {
    if (m_isLooking) return;
    m_isLooking = true;
    const int before = m_store.revision();
    m_store.loadArchiveSnapshot(
        [self = QPointer(this), before](const diary::ArchiveSnapshot& found) {
            // Taking in what was found has counted as one of the store's changes.
            if (self) self->take(found, before + 1);
        });
}

void VaultFacts::take(const diary::ArchiveSnapshot& found, int revision) {
    m_isLooking = false;
    m_revision = revision;
    const bool isNew = !m_areKnown || m_archive != found;
    m_areKnown = true;
    m_archive = found;
    if (isNew && onChanged) onChanged();
    // What was written or dropped meanwhile may have been missed.
    refresh();
}

}  // namespace velmar
