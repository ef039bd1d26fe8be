#include "DiaryKit/Files/RecoveryDrafts.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"

namespace diary {

namespace {

std::optional<RecoveredDraft> readDraft(const QString& folder, const QString& name) {
    static const QRegularExpression form(QStringLiteral("^(\\d\\d-\\d\\d) (\\d{1,5})\\.md$"));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch()) return std::nullopt;
    const auto bytes = atomicfile::tryRead(folder + u'/' + name);
    if (!bytes) return std::nullopt;
    return RecoveredDraft{match.captured(1), match.captured(2).toInt(),
                          utf8::decodedWithRepair(*bytes), folder + u'/' + name};
}

}  // namespace

RecoveryDrafts::RecoveryDrafts(QString folder, const ProcessIdentity& owner)
    : m_folder(std::move(folder)),
      m_ownFolder(m_folder + u'/' + temporaryName(QStringLiteral("session"), owner)) {}

void RecoveryDrafts::remember(const QString& day, int year, const QString& text) {
    if (m_folder.isEmpty()) return;
    const QString path =
        m_ownFolder + u'/' + day + u' ' + QString::number(year) + QLatin1String(".md");
    try {
        atomicfile::makePrivateFolder(m_ownFolder);
        atomicfile::write(path, text.toUtf8(), atomicfile::Durability::Unsynced,
                          atomicfile::NewMode::Private);
    } catch (const FileError&) {
        return;
    }
    if (m_remembered != path) forget();
    m_remembered = path;
}

void RecoveryDrafts::forget() {
    if (m_remembered.isEmpty()) return;
    QFile::remove(m_remembered);
    QDir().rmdir(m_ownFolder);
    m_remembered.clear();
}

std::vector<RecoveredDraft> RecoveryDrafts::abandoned() const {
    std::vector<RecoveredDraft> drafts;
    if (m_folder.isEmpty()) return drafts;
    const auto filter = QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& session : QDir(m_folder).entryList(QDir::Dirs | filter, QDir::Name)) {
        const std::optional<ProcessIdentity> owner = temporaryOwner(session);
        if (!owner || !isKnownDead(*owner)) continue;
        const QString folder = m_folder + u'/' + session;
        for (const QString& name : QDir(folder).entryList(QDir::Files, QDir::Name)) {
            if (auto draft = readDraft(folder, name)) drafts.push_back(std::move(*draft));
        }
    }
    return drafts;
}

void RecoveryDrafts::discard(const RecoveredDraft& draft) {
    QFile::remove(draft.path);
    QDir().rmdir(draft.path.section(u'/', 0, -2));
}

}  // namespace diary
