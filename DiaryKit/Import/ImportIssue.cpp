#include "DiaryKit/Import/ImportIssue.h"

#include <array>

namespace diary {

bool ImportIssue::isFixedByVelmar() const {
    switch (kind) {
        case Kind::titleMismatch:
        case Kind::duplicateYear:
        case Kind::undemotedHeading:
        case Kind::unclosedFence:
            return true;
        case Kind::ignoredFile:
        case Kind::invalidDate:
        case Kind::yearOutOfRange:
        case Kind::unreadable:
            return false;
    }
    return false;
}

namespace import_issue {

namespace {

// In the order of the enumeration.
constexpr std::array<QLatin1String, 8> kSpellings = {
    QLatin1String("ignoredFile"),    QLatin1String("titleMismatch"),
    QLatin1String("duplicateYear"),  QLatin1String("undemotedHeading"),
    QLatin1String("unclosedFence"),  QLatin1String("invalidDate"),
    QLatin1String("yearOutOfRange"), QLatin1String("unreadable")};

}  // namespace

std::optional<ImportIssue::Kind> parse(QStringView spelling) {
    for (std::size_t index = 0; index < kSpellings.size(); ++index) {
        if (kSpellings[index] == spelling) return static_cast<ImportIssue::Kind>(index);
    }
    return std::nullopt;
}

QString spelling(ImportIssue::Kind kind) {
    return kSpellings[static_cast<std::size_t>(kind)];
}

}  // namespace import_issue

}  // namespace diary
