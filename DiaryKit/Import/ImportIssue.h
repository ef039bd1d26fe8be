// A remark of a source that checks its input. Issues are shown and never stop an import.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <optional>

namespace diary {

struct ImportIssue {
    enum class Kind {
        ignoredFile,
        titleMismatch,
        duplicateYear,
        undemotedHeading,
        unclosedFence,
        invalidDate,
        yearOutOfRange,
        unreadable
    };

    Kind kind = Kind::ignoredFile;
    // The path in the source.
    QString file = {};
    std::optional<QString> detail = {};

    // Whether taking the material over sets it right; if not, something is left behind.
    [[nodiscard]] bool isFixedByVelmar() const;

    bool operator==(const ImportIssue&) const = default;
};

namespace import_issue {

// The kind of a spelling such as "titleMismatch", the name of its case; case matters.
[[nodiscard]] std::optional<ImportIssue::Kind> parse(QStringView spelling);
[[nodiscard]] QString spelling(ImportIssue::Kind kind);

}  // namespace import_issue

}  // namespace diary
