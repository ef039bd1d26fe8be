// What a reader of web archives needs of Apple's binary property lists (bplist00): values of
// dictionaries, found without building what else the list holds. Lists come from anywhere: objects
// that refer to themselves, or to others many times over, cost nothing here, as no value is
// followed that isn't asked for.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <optional>

namespace diary::documents {

class BinaryPropertyList {
public:
    // An object's number in the list.
    using Object = quint64;

    [[nodiscard]] static bool looksLike(QByteArrayView bytes);

    // The bytes must outlive the list. Where they aren't a sound one, it has no top object.
    explicit BinaryPropertyList(QByteArrayView bytes);

    [[nodiscard]] std::optional<Object> top() const;

    // The value of a key; nothing if the object isn't a dictionary with that key.
    [[nodiscard]] std::optional<Object> value(Object dictionary, QStringView key) const;

    // The object as data and as text; nothing if it is of another kind.
    [[nodiscard]] std::optional<QByteArrayView> data(Object object) const;
    [[nodiscard]] std::optional<QString> text(Object object) const;

private:
    struct Content {
        quint8 kind = 0;
        // Of bytes, units or references, by the kind.
        quint64 count = 0;
        quint64 start = 0;
    };

    [[nodiscard]] bool holds(quint64 offset, quint64 length) const;
    [[nodiscard]] std::optional<quint64> number(quint64 offset, quint64 width) const;
    [[nodiscard]] std::optional<Content> content(Object object) const;

    QByteArrayView m_bytes;
    quint64 m_offsetWidth = 0;
    quint64 m_referenceWidth = 0;
    quint64 m_objects = 0;
    quint64 m_top = 0;
    quint64 m_offsets = 0;
};

}  // namespace diary::documents
