// Texts as JSON strings (RFC 8259), byte for byte the same on every system: digests are made of
// them and records hold them, so they aren't left to a library's taste.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringView>

namespace diary::json {

enum class Slash { Plain, Escaped };

// Appends the text in quotation marks. Escaped are quotation mark, backslash and the controls below
// U+0020, five of those by a letter, the others by four lower-case digits; all else stands as
// UTF-8. Tells whether the text had that: a lone surrogate stands as QStringView::toUtf8() has it.
//   u"a\n\"b\"" -> "\"a\\n\\\"b\\\"\""
bool append(QStringView text, Slash slash, QByteArray& json);

}  // namespace diary::json
