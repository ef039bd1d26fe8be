#include "DiaryKit/Files/DownloadService.h"

#include <memory>

#include "tests/support/TemporaryVault.h"

namespace diary {
namespace {

TEST(PlaceholderTarget, NamesTheFileThatAPlaceholderStandsFor) {
    const struct {
        const char* name;
        const char* target;
    } rows[] = {
        {".03-07.md.icloud", "03-07.md"},
        {".03-07.md-tef.icloud", "03-07.md"},
        {".hidden-photos.json.icloud", "hidden-photos.json"},
        {"03-07.md.nextcloud", "03-07.md"},
        {"03-07.md.owncloud", "03-07.md"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(placeholderTarget(QString::fromLatin1(row.name)), QString::fromLatin1(row.target))
            << row.name;
    }
}

TEST(PlaceholderTarget, IsNoneOfOtherNames) {
    for (const auto& name : {"03-07.md", "03-07.md.icloud", ".icloud", "..icloud", ".nextcloud",
                             ".03-07.md", "03-07.md.nextcloud2", ".03-07.md.ICLOUD"}) {
        EXPECT_EQ(placeholderTarget(QString::fromLatin1(name)), std::nullopt) << name;
    }
}

class DownloadServiceState : public testing::TestWithParam<const char*> {};

TEST_P(DownloadServiceState, FollowsFileAndPlaceholder) {
    const test::TemporaryVault vault;
    const QString path = vault.filePath(QStringLiteral("03-07.md"));
    const DownloadService service;
    EXPECT_EQ(service.state(path), std::nullopt);
    vault.write(QString::fromLatin1(GetParam()), "");
    EXPECT_EQ(service.state(path), DownloadState::NotDownloaded);
    vault.write(QStringLiteral("03-07.md"), "text");
    EXPECT_EQ(service.state(path), DownloadState::Downloaded);
    QFile::remove(vault.filePath(QString::fromLatin1(GetParam())));
    EXPECT_EQ(service.state(path), DownloadState::Current);
}

INSTANTIATE_TEST_SUITE_P(Placeholders, DownloadServiceState,
                         testing::Values(".03-07.md.icloud", ".03-07.md-tef.icloud",
                                         "03-07.md.nextcloud", "03-07.md.owncloud"));

TEST(DownloadService, SaysNothingOfAFolderThatIsNone) {
    const test::TemporaryVault vault;
    vault.write(QStringLiteral("file"), "");
    EXPECT_EQ(DownloadService().state(vault.filePath(QStringLiteral("file/03-07.md"))),
              std::nullopt);
}

TEST(DownloadService, PassesRequestsOn) {
    QStringList asked;
    const DownloadService service([&](const QString& path) { asked.append(path); });
    // Copies share the request.
    const auto copy = std::make_unique<const DownloadService>(service);
    copy->startDownloading(QStringLiteral("/vault/03-07.md"));
    EXPECT_EQ(asked, QStringList{QStringLiteral("/vault/03-07.md")});
}

TEST(DownloadService, WithoutARequestAsksNobody) {
    EXPECT_NO_THROW(DownloadService().startDownloading(QStringLiteral("/vault/03-07.md")));
}

}  // namespace
}  // namespace diary
