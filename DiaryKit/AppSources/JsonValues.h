// What the readers of JSON exports take from a cursor. A value of another kind than the one that a
// reader expects counts as absent; the cursor stands behind it in any case. All of these throw
// JsonError where the text isn't JSON.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include "DiaryKit/AppSources/JsonCursor.h"

namespace diary {

// The array of texts that comes next; empty if it is none or holds anything else.
[[nodiscard]] QStringList textList(JsonCursor& json);

// The bytes of a file as a cursor takes them: JSON may be UTF-16 as well, behind its mark.
[[nodiscard]] QByteArray jsonUtf8(const QByteArray& bytes);

}  // namespace diary
