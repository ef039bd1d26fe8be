#include "DiaryKit/Documents/LegacyWordText.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <array>
#include <cerrno>
#include <optional>

#include "DiaryKit/Documents/DocumentTool.h"
#include "DiaryKit/Documents/DocumentToolError.h"
#include "DiaryKit/Documents/OdtText.h"
#include "DiaryKit/Files/AtomicFile.h"
#include "DiaryKit/Foundation/FileError.h"
#include "DiaryKit/Foundation/Utf8.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::documents {

namespace {

using namespace std::chrono_literals;

constexpr qint64 kMebibyte = qint64{1024} * 1024;

// A program's name and where it is.
std::optional<QString> found(const QString& name, const QStringList& folders) {
    const QString path = QStandardPaths::findExecutable(name, folders);
    return path.isEmpty() ? std::nullopt : std::optional(path);
}

// Whether the container holds a text of Word. One that is encrypted as a whole holds another part.
bool holdsWordDocument(QByteArrayView bytes) {
    constexpr QStringView kPart = u"WordDocument";
    return bytes.contains(
        QByteArrayView(reinterpret_cast<const char*>(kPart.utf16()), kPart.size() * 2));
}

// catdoc writes each half of a surrogate pair as a character of three bytes (CESU-8).
QString fromCesu8(const QByteArray& bytes) {
    const auto at = [&](qsizetype i) { return static_cast<unsigned char>(bytes[i]); };
    const auto isHalf = [&](qsizetype i, unsigned char first) {
        return i + 2 < bytes.size() && at(i) == 0xED && (at(i + 1) & 0xF0) == first &&
               (at(i + 2) & 0xC0) == 0x80;
    };
    QByteArray utf8;
    utf8.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (!isHalf(i, 0xA0) || !isHalf(i + 3, 0xB0)) {
            utf8 += bytes[i];
            continue;
        }
        const auto high =
            static_cast<char16_t>(0xD000 | (at(i + 1) & 0x3F) << 6 | (at(i + 2) & 0x3F));
        const auto low =
            static_cast<char16_t>(0xD000 | (at(i + 4) & 0x3F) << 6 | (at(i + 5) & 0x3F));
        utf8 += QStringView(std::array{high, low}).toUtf8();
        i += 5;
    }
    return utf8::decodedWithRepair(utf8);
}

std::optional<QString> readByCatdoc(const QString& program, const QString& document,
                                    const QString& folder) {
    const auto bytes = output({
        .program = program,
        // Without the wrapping of lines, and in UTF-8.
        .arguments = {QStringLiteral("-w"), QStringLiteral("-d"), QStringLiteral("utf-8"),
                      document},
        .folder = folder,
        .timeout = 20s,
        .mostOutput = 64 * kMebibyte,
        .mostMemory = 512 * kMebibyte,
    });
    if (!bytes) return std::nullopt;
    return fromCesu8(*bytes);
}

std::optional<QString> readByLibreOffice(const QString& program, const QString& document,
                                         const QString& folder) {
    const QUrl profile = QUrl::fromLocalFile(folder + QStringLiteral("/profile"));
    const auto told = output({
        .program = program,
        .arguments = {QStringLiteral("--headless"), QStringLiteral("--norestore"),
                      QStringLiteral("-env:UserInstallation=") +
                          profile.toString(QUrl::FullyEncoded),
                      QStringLiteral("--convert-to"), QStringLiteral("odt"),
                      QStringLiteral("--outdir"), folder, document},
        .folder = folder,
        .timeout = 90s,
        .mostOutput = kMebibyte,
        .mostMemory = 0,
    });
    const QString made = folder + QStringLiteral("/document.odt");
    if (!told || !QFile::exists(made)) return std::nullopt;
    return odtText(made);
}

}  // namespace

bool looksLikeLegacyWord(QByteArrayView bytes) {
    return bytes.startsWith("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

QString legacyWordText(const QString& path, const QStringList& folders) {
    const auto catdoc = found(QStringLiteral("catdoc"), folders);
    auto office = found(QStringLiteral("soffice"), folders);
    if (!office) office = found(QStringLiteral("libreoffice"), folders);
    const QByteArray bytes = atomicfile::read(path);
    if (!looksLikeLegacyWord(bytes) || !holdsWordDocument(bytes)) {
        throw ImportError(ImportError::Kind::unrecognized);
    }
    if (!catdoc && !office) {
        throw DocumentToolError({QStringLiteral("LibreOffice"), QStringLiteral("catdoc")});
    }
    const QTemporaryDir folder;
    // A copy under a name of ours: no name of the user's is read as an option.
    const QString document = folder.filePath(QStringLiteral("document.doc"));
    if (!folder.isValid() || !QFile::copy(path, document)) {
        throw FileError(FileOperation::MakeFolder, folder.path(), EIO);
    }
    if (office) {
        if (auto text = readByLibreOffice(*office, document, folder.path())) {
            return std::move(*text);
        }
    }
    if (catdoc) {
        if (auto text = readByCatdoc(*catdoc, document, folder.path())) return std::move(*text);
    }
    throw ImportError(ImportError::Kind::unrecognized);
}

}  // namespace diary::documents
