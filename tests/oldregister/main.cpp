#include "oldregister/ReaderMain.h"
#include "support/ScriptedBoxes.h"

int main(int argc, char** argv) {
    const auto code = oldregister::runAsReader(argc, argv);
    return code ? *code : support::runWidgetTests(argc, argv);
}
