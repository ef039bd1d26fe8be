// What reading and applying an import can fail with, beside the failures of files (FileError).
#pragma once

#include <exception>

namespace diary {

class ImportError : public std::exception {
public:
    enum class Kind {
        // What was picked is none of the known sources.
        unrecognized,
        // A zip archive that can't be read.
        badArchive,
        // The source held nothing to import.
        empty,
        // The import was confirmed with options other than those that its plan was made with.
        stalePlan
    };

    explicit ImportError(Kind kind) : m_kind(kind) {}

    [[nodiscard]] Kind kind() const { return m_kind; }
    // For developers; the application words the kind for the user.
    [[nodiscard]] const char* what() const noexcept override;

    bool operator==(const ImportError& other) const { return m_kind == other.m_kind; }

private:
    Kind m_kind;
};

}  // namespace diary
