#include "DiaryApp/Desktop/SystemAppearance.h"

#include <gtest/gtest.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QStandardPaths>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>
#include <QtTest/QTest>

#include "tests/app/desktop/PrivateBus.h"

namespace velmar {

// A desktop's portal of settings, as new as it is made.
class FakePortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    enum class Version { One, Two };

    explicit FakePortal(Version version) : m_version(version) {}

    QMap<QString, QVariant> values;
    // Leaves every question without an answer.
    bool isSilent = false;
    int questions = 0;

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant ReadOne(const QString& area, const QString& key) {
        ++questions;
        if (m_version == Version::One) {
            sendErrorReply(QDBusError::UnknownMethod, QStringLiteral("no such method"));
            return {};
        }
        return QDBusVariant(value(area, key));
    }
    Q_SCRIPTABLE QDBusVariant Read(const QString& area, const QString& key) {
        ++questions;
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value(area, key))));
    }

Q_SIGNALS:
    Q_SCRIPTABLE void SettingChanged(const QString& area, const QString& key,
                                     const QDBusVariant& value);

private:
    QVariant value(const QString& area, const QString& key) {
        const QVariant found = values.value(area + QLatin1Char('/') + key);
        if (isSilent) {
            setDelayedReply(true);
        } else if (!found.isValid()) {
            sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
                           QStringLiteral("no such setting"));
        }
        return found.isValid() ? found : QVariant(0U);
    }

    Version m_version;
};

namespace {

const QString& appearanceArea() {
    static const QString area = QStringLiteral("org.freedesktop.appearance");
    return area;
}
const QString& colorScheme() {
    static const QString key = QStringLiteral("color-scheme");
    return key;
}

class SystemAppearanceTest : public testing::Test {
protected:
    void SetUp() override {
        if (!bus.isThere()) {
            ASSERT_TRUE(QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
                << bus.complaint().toStdString();
            GTEST_SKIP() << "dbus-daemon isn't installed";
        }
        appearance.onChanged = [this] { ++changes; };
    }

    void putOnBus(FakePortal& portal) {
        QDBusConnection desktop = bus.connection();
        ASSERT_TRUE(desktop.registerObject(
            QStringLiteral("/org/freedesktop/portal/desktop"), &portal,
            QDBusConnection::ExportScriptableSlots | QDBusConnection::ExportScriptableSignals));
        ASSERT_TRUE(desktop.registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }

    static void setColorScheme(FakePortal& portal, uint scheme) {
        portal.values[appearanceArea() + QLatin1Char('/') + colorScheme()] = scheme;
    }
    static void setAnimations(FakePortal& portal, bool on) {
        portal.values[QStringLiteral("org.gnome.desktop.interface/enable-animations")] = on;
    }
    static void announce(FakePortal& portal, const QVariant& scheme) {
        Q_EMIT portal.SettingChanged(appearanceArea(), colorScheme(), QDBusVariant(scheme));
    }
    // A change that says nothing itself, behind which all that was sent before has come.
    void waitForAll(FakePortal& portal) {
        const int before = changes;
        const bool now = appearance.isMotionReduced().value_or(false);
        Q_EMIT portal.SettingChanged(QStringLiteral("org.gnome.desktop.interface"),
                                     QStringLiteral("enable-animations"), QDBusVariant(now));
        ASSERT_TRUE(QTest::qWaitFor([&] { return changes > before; }));
    }

    test::PrivateBus bus;
    SystemAppearance appearance;
    int changes = 0;
};

TEST_F(SystemAppearanceTest, ReadsDarkFromANewPortal) {
    FakePortal portal(FakePortal::Version::Two);
    setColorScheme(portal, 1);
    setAnimations(portal, true);
    putOnBus(portal);
    appearance.start(bus.connection());
    EXPECT_EQ(appearance.isDark(), std::nullopt) << "it doesn't wait for the answer";
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_EQ(appearance.isDark(), true);
    EXPECT_EQ(appearance.isMotionReduced(), false);
    EXPECT_EQ(portal.questions, 2);
}

TEST_F(SystemAppearanceTest, ReadsAnOldPortalsTwiceWrappedValues) {
    FakePortal portal(FakePortal::Version::One);
    setColorScheme(portal, 2);
    setAnimations(portal, false);
    putOnBus(portal);
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
    EXPECT_EQ(appearance.isDark(), false);
    EXPECT_EQ(appearance.isMotionReduced(), true);
    EXPECT_EQ(portal.questions, 4);
}

TEST_F(SystemAppearanceTest, FollowsChangesWhileItRuns) {
    FakePortal portal(FakePortal::Version::Two);
    setColorScheme(portal, 2);
    putOnBus(portal);
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == false; }));
    announce(portal, 1U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == true; }));
    announce(portal, QVariant::fromValue(QDBusVariant(2U)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == false; }));
    EXPECT_EQ(changes, 3);
    EXPECT_EQ(appearance.isMotionReduced(), std::nullopt) << "this desktop says nothing of motion";
}

TEST_F(SystemAppearanceTest, NoPreferenceSaysNothingUntilOneWasHeard) {
    FakePortal portal(FakePortal::Version::Two);
    setColorScheme(portal, 0);
    putOnBus(portal);
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.questions == 2; }));
    waitForAll(portal);
    EXPECT_EQ(appearance.isDark(), std::nullopt);
    announce(portal, 1U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == true; }));
    announce(portal, 0U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == false; }));
}

TEST_F(SystemAppearanceTest, ForeignSettingsAndOddValuesChangeNothing) {
    FakePortal portal(FakePortal::Version::Two);
    setColorScheme(portal, 1);
    putOnBus(portal);
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == true; }));
    announce(portal, QStringLiteral("light"));
    Q_EMIT portal.SettingChanged(appearanceArea(), QStringLiteral("accent-color"),
                                 QDBusVariant(2U));
    Q_EMIT portal.SettingChanged(QStringLiteral("org.example"), colorScheme(), QDBusVariant(2U));
    waitForAll(portal);
    EXPECT_EQ(appearance.isDark(), true);
}

TEST_F(SystemAppearanceTest, APortalThatNeverAnswersHoldsNothingUp) {
    FakePortal portal(FakePortal::Version::Two);
    portal.isSilent = true;
    putOnBus(portal);
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.questions == 2; }));
    EXPECT_EQ(appearance.isDark(), std::nullopt);
    announce(portal, 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == true; }));
}

TEST_F(SystemAppearanceTest, APortalThatComesLaterIsFollowed) {
    appearance.start(bus.connection());
    FakePortal portal(FakePortal::Version::Two);
    putOnBus(portal);
    // Whether Qt has heard of the new owner already can't be seen from here.
    EXPECT_TRUE(QTest::qWaitFor([&] {
        announce(portal, 1U);
        QCoreApplication::processEvents();
        return appearance.isDark() == true;
    }));
}

TEST_F(SystemAppearanceTest, WithoutABusNothingIsKnown) {
    appearance.start(QDBusConnection(QStringLiteral("no such connection")));
    EXPECT_EQ(appearance.isDark(), std::nullopt);
    EXPECT_EQ(appearance.isMotionReduced(), std::nullopt);
    EXPECT_EQ(changes, 0);
}

TEST_F(SystemAppearanceTest, AnAnswerAfterTheEndIsDropped) {
    FakePortal portal(FakePortal::Version::Two);
    setColorScheme(portal, 1);
    putOnBus(portal);
    auto brief = std::make_unique<SystemAppearance>();
    bool isTold = false;
    brief->onChanged = [&] { isTold = true; };
    brief->start(bus.connection());
    brief.reset();
    ASSERT_TRUE(QTest::qWaitFor([&] { return portal.questions == 2; }));
    appearance.start(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() == true; }));
    EXPECT_FALSE(isTold);
}

}  // namespace
}  // namespace velmar

#include "SystemAppearanceTest.moc"
