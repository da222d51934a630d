#include "forms/Appearance.h"
#include "forms/SlovakTexts.h"
#include "support/ScriptedBoxes.h"

#include <QApplication>
#include <QFont>
#include <QTemporaryFile>

#include <gtest/gtest.h>

namespace support {

namespace {

/// The platform without a screen would pretend to have one of 800x800.
void pretendScreen(QTemporaryFile& settings) {
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen" || !settings.open())
        return;
    settings.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    settings.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + settings.fileName().toUtf8());
}

} // namespace

int runWidgetTests(int argc, char** argv) {
    QTemporaryFile settings;
    pretendScreen(settings);
    // As a desktop without a wish of its own has it.
    QApplication::setFont(QFont(QStringLiteral("Liberation Sans"), 9));
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("TVK"));
    forms::dress(application);
    forms::installSlovakTexts(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

} // namespace support
