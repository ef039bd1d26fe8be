#include "DiaryKit/Files/TemporaryName.h"

#include <sys/types.h>
#include <unistd.h>

#include <QtCore/QCryptographicHash>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <memory>

namespace diary {

namespace {

// Most file systems take names of 255 bytes; one is left unused, as some tools add one.
constexpr qsizetype kMostNameBytes = 254;

QByteArray systemText(const char* path) {
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

QString sanitised(QString host) {
    static const QRegularExpression foreign(QStringLiteral("[^A-Za-z0-9-]+"));
    host.replace(foreign, QStringLiteral("-"));
    return host.isEmpty() ? QStringLiteral("host") : host;
}

// The host's name with a print of its machine id and of this process's pid namespace. Two machines
// may share a name, and a pid of another namespace says nothing here.
QString hostName() {
    char name[HOST_NAME_MAX + 1] = {};
    if (::gethostname(name, sizeof name - 1) != 0) name[0] = '\0';
    char space[64] = {};
    const ssize_t length = ::readlink("/proc/self/ns/pid", space, sizeof space);
    QCryptographicHash print(QCryptographicHash::Sha256);
    print.addData(QByteArrayView("velmar temporary\n"));
    print.addData(systemText("/etc/machine-id"));
    print.addData(QByteArrayView(space, qMax<ssize_t>(length, 0)));
    return sanitised(QString::fromLatin1(name)) + QLatin1Char('-') +
           QString::fromLatin1(print.result().toHex().first(8));
}

// The moment a process began, in clock ticks since boot; absent if that can't be had.
std::optional<std::uint64_t> startOf(std::int64_t pid) {
    const QByteArray status = systemText(
        QByteArray("/proc/").append(QByteArray::number(pid)).append("/stat").constData());
    // The second field is the command's name in parentheses and may itself hold blanks and
    // parentheses; behind its last one the third field follows.
    const qsizetype nameEnd = status.lastIndexOf(')');
    if (nameEnd < 0) return std::nullopt;
    constexpr qsizetype kFieldOfStart = 22;
    const QByteArrayList fields = status.sliced(nameEnd + 1).trimmed().split(' ');
    bool isNumber = false;
    const std::uint64_t start = fields.value(kFieldOfStart - 3).toULongLong(&isNumber);
    if (!isNumber) return std::nullopt;
    return start;
}

// The identities that this process has had: a forked child has its parent's first. They are kept,
// since callers hold references to them.
struct KnownIdentity {
    ProcessIdentity identity;
    const KnownIdentity* previous = nullptr;
};

std::atomic<const KnownIdentity*> s_known = nullptr;

}  // namespace

const ProcessIdentity& ProcessIdentity::current() {
    const std::int64_t pid = ::getpid();
    const KnownIdentity* known = s_known.load();
    while (known == nullptr || known->identity.pid != pid) {
        const ProcessIdentity identity{
            .host = hostName(),
            // Empty where the system doesn't tell; nobody removes such a temporary.
            .boot = QString::fromLatin1(systemText("/proc/sys/kernel/random/boot_id").left(8)),
            .pid = pid,
            .start = startOf(pid).value_or(0)};
        auto made = std::make_unique<const KnownIdentity>(KnownIdentity{identity, known});
        if (s_known.compare_exchange_strong(known, made.get())) known = made.release();
    }
    return known->identity;
}

QString temporaryName(const QString& fileName, const ProcessIdentity& owner) {
    static std::atomic<std::uint64_t> serial = 0;
    const QString tail = QStringLiteral(".%1.%2.%3.%4.%5.tmp")
                             .arg(owner.host, owner.boot)
                             .arg(owner.pid)
                             .arg(owner.start)
                             .arg(++serial);
    QString name = fileName;
    const qsizetype room = kMostNameBytes - 2 - tail.toUtf8().size();
    while (name.size() > 1 && name.toUtf8().size() > room) {
        name.chop(1);
        if (name.back().isHighSurrogate()) name.chop(1);
    }
    return QStringLiteral(".~") + name + tail;
}

std::optional<ProcessIdentity> temporaryOwner(QStringView name) {
    if (!name.startsWith(QLatin1String(".~")) || !name.endsWith(QLatin1String(".tmp"))) {
        return std::nullopt;
    }
    static const QRegularExpression form(QRegularExpression::anchoredPattern(QStringLiteral(
        "\\.~.+\\.([A-Za-z0-9-]+)\\.([0-9a-f]{8})\\.([0-9]{1,9})\\.([0-9]{1,19})\\.[0-9]+\\.tmp")));
    const QRegularExpressionMatch match = form.match(name);
    if (!match.hasMatch()) return std::nullopt;
    return ProcessIdentity{.host = match.captured(1),
                           .boot = match.captured(2),
                           .pid = match.captured(3).toLongLong(),
                           .start = match.captured(4).toULongLong()};
}

bool isKnownDead(const ProcessIdentity& owner) {
    const ProcessIdentity& self = ProcessIdentity::current();
    if (owner.host != self.host || owner.pid <= 0) return false;
    if (owner.boot != self.boot) return true;
    if (::kill(static_cast<pid_t>(owner.pid), 0) != 0 && errno == ESRCH) return true;
    // Another user's process may be hidden; then nothing is known.
    const std::optional<std::uint64_t> start = startOf(owner.pid);
    return start && *start != owner.start;
}

}  // namespace diary
