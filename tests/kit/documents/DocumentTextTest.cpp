#include "DiaryKit/Documents/DocumentText.h"

#include <QtCore/QThread>
#include <array>

#include "DiaryKit/Documents/DocumentTool.h"
#include "DiaryKit/Documents/DocumentToolError.h"
#include "DiaryKit/Documents/LegacyWordText.h"
#include "DiaryKit/Foundation/Background.h"
#include "DiaryKit/Foundation/FileError.h"
#include "tests/kit/documents/Documents.h"

namespace diary {
namespace {

using namespace std::chrono_literals;
using documents::documentText;
using testing::importError;

QString named(const QString& name, const QByteArray& bytes) {
    const testing::TemporaryPackage folder;
    return documentText(folder.add(name, bytes));
}

std::optional<ImportError::Kind> refusal(const QString& name, const QByteArray& bytes) {
    return importError([&] { (void)named(name, bytes); });
}

TEST(DocumentText, theContentTellsTheFormat) {
    const QByteArray docx = testing::Docx(testing::Docx::paragraph("a")).bytes();
    const QByteArray odt = testing::Odt("<text:p>b</text:p>").bytes();
    for (const auto& name : {QStringLiteral("x.docx"), QStringLiteral("x.odt"),
                             QStringLiteral("x.doc"), QStringLiteral("x.RTF")}) {
        EXPECT_EQ(named(name, docx), QStringLiteral("a"));
        EXPECT_EQ(named(name, odt), QStringLiteral("b"));
        EXPECT_EQ(named(name, "{\\rtf1 c}"), QStringLiteral("c"));
        EXPECT_EQ(named(name, "<!DOCTYPE html><p>d"), QStringLiteral("d"));
        EXPECT_EQ(named(name, "<html xmlns:o=\"x\"><body><p>e</body></html>"), QStringLiteral("e"));
    }
}

TEST(DocumentText, aDocumentThatIsAFolder) {
    const testing::TemporaryPackage folder;
    folder.add(QStringLiteral("diary.rtfd/TXT.rtf"), "{\\rtf1 a{{\\NeXTGraphic b.jpg }\\'ac}}");
    folder.add(QStringLiteral("diary.rtfd/b.jpg"));
    EXPECT_EQ(documentText(folder.path(QStringLiteral("diary.rtfd"))), QStringLiteral("a"));
}

TEST(DocumentText, plainTextUnderTheNameOfADocument) {
    EXPECT_EQ(named(QStringLiteral("a.rtf"), "2024-03-05\nplain"),
              QStringLiteral("2024-03-05\nplain"));
    EXPECT_EQ(named(QStringLiteral("a.doc"), "\xC8\xD5"), QStringLiteral("日"));
    EXPECT_EQ(named(QStringLiteral("a.doc"), QByteArray("\xFF\xFE"
                                                        "a\0",
                                                        4)),
              QStringLiteral("a"));
    EXPECT_EQ(refusal(QStringLiteral("a.doc"), QByteArray("a\0b", 3)),
              ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal(QStringLiteral("a.docx"), "plain"), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal(QStringLiteral("a.webarchive"), "plain"), ImportError::Kind::unrecognized);
}

TEST(DocumentText, anArchiveWithoutADocumentIsRefused) {
    testing::ZipBuilder zip;
    zip.add(testing::ZipBuilder::stored("a.txt", "a"));
    EXPECT_EQ(refusal(QStringLiteral("a.docx"), zip.bytes()), ImportError::Kind::unrecognized);
    EXPECT_EQ(refusal(QStringLiteral("a.docx"), "PK\3\4"), ImportError::Kind::badArchive);
}

TEST(DocumentText, anEncryptedDocumentIsRefused) {
    // OpenDocument encrypts the parts, Office Open XML puts an archive into a container.
    testing::ZipBuilder odt;
    odt.add(testing::ZipBuilder::stored("content.xml", "\x8F\x01\xE7garbage\xFF"));
    EXPECT_EQ(refusal(QStringLiteral("a.odt"), odt.bytes()), ImportError::Kind::unrecognized);
    const QString part = QStringLiteral("EncryptedPackage");
    QByteArray container("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    container += QByteArray(512, '\0');
    container.append(reinterpret_cast<const char*>(part.utf16()), part.size() * 2);
    EXPECT_EQ(refusal(QStringLiteral("a.docx"), container), ImportError::Kind::unrecognized);
}

TEST(DocumentText, aMissingFileIsTheFilesFailure) {
    EXPECT_THROW((void)documentText(QStringLiteral("/nowhere/a.rtf")), FileError);
    const testing::TemporaryPackage folder;
    folder.add(QStringLiteral("a.rtfd/other.rtf"));
    EXPECT_THROW((void)documentText(folder.path(QStringLiteral("a.rtfd"))), FileError);
}

// What passes for a document of Word; the programs of these tests don't read it.
QByteArray wordContainer() {
    const QString part = QStringLiteral("WordDocument");
    QByteArray bytes("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    return bytes.append(reinterpret_cast<const char*>(part.utf16()), part.size() * 2);
}

class LegacyWord : public ::testing::Test {
protected:
    // A program of that name that runs the script.
    void addProgram(const QString& name, const QByteArray& script) const {
        const QString path = m_folder.add(QStringLiteral("bin/") + name, "#!/bin/sh\n" + script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QString read(const QString& name = QStringLiteral("a.doc")) const {
        return documents::legacyWordText(m_folder.add(name, wordContainer()),
                                         {m_folder.path(QStringLiteral("bin"))});
    }

    testing::TemporaryPackage m_folder;
};

TEST_F(LegacyWord, withoutAProgramTellsWhichIsMissing) {
    try {
        (void)read();
        FAIL() << "it was read";
    } catch (const documents::DocumentToolError& error) {
        EXPECT_EQ(error.tools(),
                  (QStringList{QStringLiteral("LibreOffice"), QStringLiteral("catdoc")}));
    }
}

TEST_F(LegacyWord, catdocsTextIsTaken) {
    // U+1F600 as catdoc writes it.
    addProgram(
        QStringLiteral("catdoc"),
        "test \"$1 $2 $3\" = '-w -d utf-8' && printf 'a\\355\\240\\275\\355\\270\\200\\355b'");
    EXPECT_EQ(read(), QStringLiteral("a😀\uFFFDb"));
}

TEST_F(LegacyWord, aNameIsNeverAnOption) {
    addProgram(QStringLiteral("catdoc"),
               "case \"$4\" in /*/document.doc) cat \"$4\" >/dev/null "
               "&& echo read;; esac");
    EXPECT_EQ(read(QStringLiteral("-x $(touch y) '.doc")), QStringLiteral("read\n"));
}

TEST_F(LegacyWord, theOfficeIsAskedFirst) {
    addProgram(QStringLiteral("catdoc"), "echo catdoc");
    const QByteArray odt = testing::Odt("<text:p>office</text:p>").bytes();
    const QString source = m_folder.add(QStringLiteral("made.odt"), odt);
    addProgram(QStringLiteral("soffice"),
               "/bin/cp '" + source.toUtf8() + "' \"$7/document.odt\" && test -e \"$8\"");
    EXPECT_EQ(read(), QStringLiteral("office"));
}

TEST_F(LegacyWord, catdocIsAskedWhereTheOfficeFails) {
    addProgram(QStringLiteral("catdoc"), "echo catdoc");
    addProgram(QStringLiteral("soffice"), "exit 0");
    EXPECT_EQ(read(), QStringLiteral("catdoc\n"));
}

TEST_F(LegacyWord, aProgramThatFailsOrCrashesIsARefusal) {
    for (const char* script : {"exit 1", "kill -SEGV $$", "kill -KILL $$"}) {
        addProgram(QStringLiteral("catdoc"), script);
        EXPECT_EQ(importError([&] { (void)read(); }), ImportError::Kind::unrecognized) << script;
        QFile::remove(m_folder.path(QStringLiteral("bin/catdoc")));
    }
}

TEST_F(LegacyWord, otherContainersAreRefused) {
    addProgram(QStringLiteral("catdoc"), "echo read");
    const QString path = m_folder.add(QStringLiteral("a.doc"), "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
    EXPECT_EQ(importError([&] {
                  (void)documents::legacyWordText(path, {m_folder.path(QStringLiteral("bin"))});
              }),
              ImportError::Kind::unrecognized);
}

documents::ToolRun shell(const QString& folder, const QString& script) {
    return {.program = QStringLiteral("/bin/sh"),
            .arguments = {QStringLiteral("-c"), script},
            .folder = folder,
            .timeout = 20s,
            .mostOutput = qint64{1024} * 1024};
}

TEST(DocumentTool, aProgramThatTakesTooLongIsEndedWithWhatItStarted) {
    const testing::TemporaryPackage folder;
    documents::ToolRun run = shell(folder.root(), QStringLiteral("sleep 60 & echo $! >pid; wait"));
    run.timeout = 300ms;
    EXPECT_EQ(documents::output(run), std::nullopt);
    QFile pid(folder.path(QStringLiteral("pid")));
    ASSERT_TRUE(pid.open(QIODevice::ReadOnly));
    const QString path = QStringLiteral("/proc/") + QString::fromLatin1(pid.readAll().trimmed()) +
                         QStringLiteral("/stat");
    // Gone, or waiting for whoever reaps it; a killed process takes a moment to die.
    const auto isGone = [&] {
        QFile state(path);
        return !state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ");
    };
    for (int look = 0; look < 200 && !isGone(); ++look) QThread::msleep(10);
    EXPECT_TRUE(isGone());
}

TEST(DocumentTool, outputWithoutEndIsRefused) {
    const testing::TemporaryPackage folder;
    EXPECT_EQ(documents::output(shell(folder.root(), QStringLiteral("yes"))), std::nullopt);
}

TEST(DocumentTool, memoryIsBounded) {
    const testing::TemporaryPackage folder;
    documents::ToolRun run = shell(folder.root(), QStringLiteral("ulimit -v"));
    run.mostMemory = quint64{512} * 1024 * 1024;
    EXPECT_EQ(documents::output(run), QByteArray("524288\n"));
}

TEST(DocumentTool, theUsersSettingsDoNotCount) {
    const testing::TemporaryPackage folder;
    EXPECT_EQ(
        documents::output(shell(folder.root(), QStringLiteral("cd; pwd; echo $XDG_CONFIG_HOME"))),
        folder.root().toUtf8() + "\n\n");
}

TEST(DocumentTool, severalThreadsRunProgramsAtOnce) {
    constexpr int kThreads = 6;
    const testing::TemporaryPackage folder;
    std::array<std::optional<QByteArray>, kThreads> read = {};
    background::inParallel(kThreads, [&](int i) {
        read.at(static_cast<std::size_t>(i)) =
            documents::output(shell(folder.root(), QStringLiteral("echo %1").arg(i)));
    });
    for (int i = 0; i < kThreads; ++i) {
        EXPECT_EQ(read.at(static_cast<std::size_t>(i)), QByteArray::number(i) + '\n');
    }
}

TEST(DocumentTool, aProgramThatIsNotThereIsAFailure) {
    const testing::TemporaryPackage folder;
    documents::ToolRun run = shell(folder.root(), {});
    run.program = QStringLiteral("/nowhere/catdoc");
    EXPECT_EQ(documents::output(run), std::nullopt);
}

}  // namespace
}  // namespace diary
