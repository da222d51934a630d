#include "forms/Appearance.h"
#include "forms/SlovakTexts.h"
#include "oldregister/ReaderMain.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TVK"));
    forms::dress(application);
    forms::installSlovakTexts(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
