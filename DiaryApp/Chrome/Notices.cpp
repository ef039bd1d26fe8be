#include "DiaryApp/Chrome/Notices.h"

#include "DiaryApp/Settings/Localization.h"

#include <cerrno>
#include <cstring>

namespace velmar::notices {

namespace {

QString dayAndYear(const QString& day, std::optional<int> year) {
    return year ? day + u' ' + QString::number(*year) : day;
}

QString cause(int code) {
    switch (code) {
        case ENOSPC:
        case EDQUOT:
            return qtTrId("SaveFailedDiskFull");
        case EACCES:
        case EPERM:
            return qtTrId("SaveFailedNoPermission");
        case EROFS:
            return qtTrId("SaveFailedReadOnly");
        case ENOENT:
        case ENODEV:
        case ENOTDIR:
            return qtTrId("SaveFailedFolderMissing");
        default:
            return qtTrId("SaveFailedOther").arg(QString::fromLocal8Bit(std::strerror(code)));
    }
}

}  // namespace

QString conflictMarker() {
    return qtTrId("ConflictMarker");
}

QStringList conflictMarkers() {
    return localization::textInAllLanguages("ConflictMarker");
}

QString mergedRemote() {
    return qtTrId("MergedRemoteNotice");
}

QString cannotLeave(const QString& day) {
    return qtTrId("CannotLeaveNotice").arg(day);
}

QString kept(diary::KeptReason reason, const QString& day, std::optional<int> year) {
    switch (reason) {
        case diary::KeptReason::Overwritten:
            return qtTrId("KeptOverwrittenNotice").arg(dayAndYear(day, year));
        case diary::KeptReason::Undecodable:
            return qtTrId("KeptUndecodableNotice").arg(day + QStringLiteral(".md"));
        case diary::KeptReason::UnsavedDraft:
            return qtTrId("KeptDraftNotice").arg(dayAndYear(day, year));
        case diary::KeptReason::UnsavedMerge:
            break;
    }
    return qtTrId("KeptMergeNotice").arg(day + QStringLiteral(".md"));
}

QString keptDraftOffer(const QString& day, std::optional<int> year) {
    return qtTrId("KeptDraftOffer").arg(dayAndYear(day, year));
}

QString putBack() {
    return qtTrId("PutBack");
}

QString saveFailedTitle(const QString& fileName) {
    return qtTrId("SaveFailedTitle").arg(fileName);
}

QString saveFailedText(const diary::FileError& error) {
    return cause(error.code()) + u'\n' + qtTrId("SaveFailedNothingLost");
}

QString viewing(int year, int characters) {
    return qtTrId("Viewing ## %@ · %d chars", characters).arg(year);
}

}  // namespace velmar::notices
