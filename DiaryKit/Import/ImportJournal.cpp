#include "DiaryKit/Import/ImportJournal.h"

#include <fcntl.h>
#include <unistd.h>

#include <QtCore/QFile>
#include <cerrno>
#include <utility>

#include "DiaryKit/Foundation/FileError.h"

namespace diary {

namespace {

// The result of a call that is repeated while signals interrupt it.
template <typename Call>
auto require(const QString& path, Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    if (result < 0) throw FileError(FileOperation::Write, path, errno);
    return result;
}

constexpr mode_t kMode = 0666;

}  // namespace

ImportJournal::ImportJournal(QString path, Opening opening)
    : m_path(std::move(path)), m_file(require(m_path, [&] {
          const int truncating = opening == Opening::Anew ? O_TRUNC : 0;
          return ::open(QFile::encodeName(m_path).constData(),
                        O_WRONLY | O_CREAT | truncating | O_APPEND | O_CLOEXEC, kMode);
      })) {
    try {
        // Readers pass over empty lines.
        if (opening == Opening::Continued) writeAll("\n");
        atomicfile::syncFolder(m_path.section(u'/', 0, -2));
    } catch (...) {
        close();
        throw;
    }
}

ImportJournal::~ImportJournal() {
    close();
}

void ImportJournal::append(const ImportRecord::File& file, atomicfile::Durability durability) {
    append(file.encoded(), durability);
}

void ImportJournal::append(QByteArray line, atomicfile::Durability durability) {
    line += '\n';
    writeAll(line);
    if (durability == atomicfile::Durability::Synced) {
        require(m_path, [this] { return ::fdatasync(m_file); });
    }
}

void ImportJournal::writeAll(QByteArrayView bytes) {
    while (!bytes.isEmpty()) {
        bytes = bytes.sliced(require(m_path, [&] {
            return ::write(m_file, bytes.data(), static_cast<std::size_t>(bytes.size()));
        }));
    }
}

void ImportJournal::close() {
    const int file = std::exchange(m_file, -1);
    if (file >= 0) ::close(file);
}

}  // namespace diary
