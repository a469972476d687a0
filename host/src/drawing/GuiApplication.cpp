#include "drawing/GuiApplication.h"

#include <QApplication>
#include <cstdlib>

namespace mhost {

void ensureGuiApplication() {
    if (QCoreApplication::instance()) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static int argc = 1;
    static char name[] = "mhost";
    static char* argv[] = {name, nullptr};
    // Never deleted: Qt's font caches must not be torn down during static destruction.
    new QApplication(argc, argv);
}

}  // namespace mhost
