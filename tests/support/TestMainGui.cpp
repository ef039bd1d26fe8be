// Main function of the tests that show windows; they run on the offscreen platform.
#include <gmock/gmock.h>

#include <QtWidgets/QApplication>

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
