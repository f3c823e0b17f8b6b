#include "SoftwareReceiver.h"

#include <QApplication>

#include <gmock/gmock.h>

int main(int argc, char* argv[])
{
    if (const auto code = orvim::test::runAsSoftwareReceiver(argc, argv)) return *code;
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
