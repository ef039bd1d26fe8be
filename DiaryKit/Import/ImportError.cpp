#include "DiaryKit/Import/ImportError.h"

namespace diary {

const char* ImportError::what() const noexcept {
    switch (m_kind) {
        case Kind::unrecognized:
            return "import: unrecognized source";
        case Kind::badArchive:
            return "import: bad archive";
        case Kind::empty:
            return "import: nothing to import";
        case Kind::stalePlan:
            return "import: stale plan";
    }
    return "import";
}

}  // namespace diary
