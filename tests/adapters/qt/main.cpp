#include <gtest/gtest.h>

#include <QByteArray>

#include "adapters/qt/application.h"

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ORV_SCALE", "1");
    const orv::Application application(argv[0]);
    return RUN_ALL_TESTS();
}
