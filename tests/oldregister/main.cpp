#include "oldregister/ReaderMain.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    const QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
