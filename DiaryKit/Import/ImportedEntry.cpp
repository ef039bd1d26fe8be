#include "DiaryKit/Import/ImportedEntry.h"

namespace diary {

QString ImportedEntry::Time::text() const {
    return QString::asprintf("%02d:%02d", hour, minute);
}

}  // namespace diary
