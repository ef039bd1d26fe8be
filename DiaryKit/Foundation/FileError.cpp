#include "DiaryKit/Foundation/FileError.h"

#include <system_error>

namespace diary {

namespace {

const char* verb(FileOperation operation) {
    switch (operation) {
        case FileOperation::Read:
            return "read";
        case FileOperation::Write:
            return "write";
        case FileOperation::MakeFolder:
            return "make folder";
        case FileOperation::Coordinate:
            return "lock";
        case FileOperation::Decode:
            return "decode";
        case FileOperation::Move:
            return "move";
    }
    return "";
}

}  // namespace

FileError::FileError(FileOperation operation, QString path, int code)
    : m_operation(operation), m_path(std::move(path)), m_code(code) {
    m_what = QByteArray(verb(operation)) + ' ' + m_path.toUtf8() + ": " +
             QByteArray::fromStdString(std::generic_category().message(code));
}

}  // namespace diary
