#include "DiaryKit/Import/HistoryCache.h"

#include "DiaryKit/Import/ImportLogFiles.h"

namespace diary {

HistoryCache::HistoryCache(QString folder, QString excluded)
    : m_folder(std::move(folder)), m_excluded(std::move(excluded)) {}

const std::vector<ImportRecord>& HistoryCache::records() {
    QStringList names = ImportLog::recordNames(m_folder);
    names.removeAll(m_excluded);
    bool isChanged = names != m_names;
    for (const QString& name : names) isChanged = update(name) || isChanged;
    if (!isChanged) return m_records;
    m_names = std::move(names);
    m_records.clear();
    for (const QString& name : m_names) {
        const std::optional<ImportRecord>& record = m_cache[name].record;
        if (record) m_records.push_back(*record);
    }
    return m_records;
}

// Reads the record if it isn't what was read last, and tells whether it did.
bool HistoryCache::update(const QString& name) {
    constexpr qsizetype kEnding = 5;  // ".json"
    const QString id = name.chopped(kEnding);
    // Taken ahead of reading, so that a change in between is seen by the next call.
    const Stamps stamps = {fileStamp(m_folder + u'/' + name),
                           fileStamp(ImportLog::journalPath(m_folder, id))};
    const auto found = m_cache.constFind(name);
    if (found != m_cache.constEnd() && found->stamps == stamps) return false;
    ++m_readCount;
    m_cache.insert(name, {stamps, ImportLog::readRecord(m_folder, name)});
    return true;
}

}  // namespace diary
