// The failure of a file operation, as thrown by everything that writes. Reads that may fail
// quietly return an absent value instead; each declaration says which it does.
#pragma once

#include <QtCore/QString>
#include <exception>

namespace diary {

// What was being done when the operation failed. The application words it for the user.
enum class FileOperation { Read, Write, MakeFolder, Coordinate, Decode, Move };

// A failed file operation: what, where, and the system's reason as an errno value.
class FileError : public std::exception {
public:
    FileError(FileOperation operation, QString path, int code);

    [[nodiscard]] FileOperation operation() const { return m_operation; }
    [[nodiscard]] const QString& path() const { return m_path; }
    // An errno value. EILSEQ stands for bytes that aren't valid UTF-8.
    [[nodiscard]] int code() const { return m_code; }
    // The system's words for the code, in the language of the C library. For developers.
    [[nodiscard]] const char* what() const noexcept override { return m_what.constData(); }

private:
    FileOperation m_operation;
    QString m_path;
    int m_code;
    QByteArray m_what;
};

}  // namespace diary
