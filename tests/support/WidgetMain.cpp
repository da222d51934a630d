#include "support/ScriptedBoxes.h"

int main(int argc, char** argv) {
    return support::runWidgetTests(argc, argv);
}
