// Main function of the tests that need no window.
#include <gmock/gmock.h>

#include <QtCore/QCoreApplication>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
