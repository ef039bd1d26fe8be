#include "DiaryApp/Desktop/SessionBus.h"

#include <QtDBus/QDBusConnection>

#include "DiaryKit/Foundation/Background.h"

namespace velmar::sessionbus {

void warmUp() {
    diary::background::start(diary::background::Urgency::UserWaits,
                             [] { (void)QDBusConnection::sessionBus(); });
}

}  // namespace velmar::sessionbus
