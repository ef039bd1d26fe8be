#include "DiaryKit/Documents/OfficePackage.h"

#include <QtCore/QDir>

#include "DiaryKit/Documents/XmlWalk.h"
#include "DiaryKit/Import/ImportError.h"

namespace diary::documents {

namespace {

// Many times the text of the longest novels, with the marks of a word processor around it.
constexpr quint64 kLargestPart = quint64{128} * 1024 * 1024;

class Relationships final : public XmlVisitor {
public:
    explicit Relationships(QStringView role) : m_role(role) {}

    Enter open(const XmlElement& element) override {
        const QStringView type = element.attribute(u"Type");
        if (m_target.isEmpty() && element.name() == u"Relationship" && type.endsWith(m_role) &&
            type.chopped(m_role.size()).endsWith(u'/')) {
            m_target = element.attribute(u"Target").toString();
        }
        return Enter::Yes;
    }
    void close(QStringView) override {}
    void characters(QStringView) override {}

    [[nodiscard]] const QString& target() const { return m_target; }

private:
    QStringView m_role;
    QString m_target;
};

}  // namespace

OfficePackage::OfficePackage(const QString& path) : m_archive(path) {
    for (const ZipArchive::Entry& entry : m_archive.entries()) m_parts.insert(entry.path, entry);
}

std::optional<QByteArray> OfficePackage::part(const QString& name) const {
    const auto found = m_parts.constFind(name);
    if (found == m_parts.constEnd()) return std::nullopt;
    if (found->size > kLargestPart || found->compressedSize > kLargestPart) {
        throw ImportError(ImportError::Kind::unrecognized);
    }
    return m_archive.contents(*found);
}

QString OfficePackage::related(const QString& source, QStringView role) const {
    const qsizetype slash = source.lastIndexOf(u'/') + 1;
    const QString folder = source.first(slash);
    const auto rels =
        part(folder + QStringLiteral("_rels/") + source.sliced(slash) + QStringLiteral(".rels"));
    if (!rels) return {};
    Relationships relationships(role);
    walkXml(*rels, relationships);
    const QString& target = relationships.target();
    if (target.startsWith(u'/')) return target.sliced(1);
    return target.isEmpty() ? QString() : QDir::cleanPath(folder + target);
}

}  // namespace diary::documents
