// Which files of a vault are known to exist but aren't here: sync services put a placeholder in
// their place. What asks for a download is injected, since most services on Linux offer nothing.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <functional>
#include <optional>

namespace diary {

enum class DownloadState {
    // The file is here, and no placeholder beside it.
    Current,
    // The file is here, and a placeholder too: the service may hold a newer one.
    Downloaded,
    // Only a placeholder stands for the file.
    NotDownloaded,
};

// Tells the state of files and passes on requests. Copies share the request. Any thread.
class DownloadService {
public:
    // Asks the sync service for a file, given the path that it will have. Returns at once; must be
    // safe on any thread. May do nothing.
    using Request = std::function<void(const QString& path)>;

    DownloadService() = default;
    explicit DownloadService(Request request) : m_request(std::move(request)) {}

    // Absent if neither the file nor a placeholder is there, or the folder can't be examined.
    [[nodiscard]] std::optional<DownloadState> state(const QString& path) const;

    // Passes the request on; without one nothing happens.
    void startDownloading(const QString& path) const;

private:
    Request m_request;
};

// The name of the file that a placeholder stands for: ".03-07.md.icloud" and "03-07.md.nextcloud"
// give "03-07.md". Nothing if the name is no placeholder's.
[[nodiscard]] std::optional<QString> placeholderTarget(QStringView name);

}  // namespace diary
