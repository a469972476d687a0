#pragma once
// Qt's application object, which QPainter needs for fonts.

namespace mhost {

// Makes sure the process has a Qt application: when it has none, makes a QApplication (so widgets work
// as well) on the "offscreen" platform unless QT_QPA_PLATFORM names another, and keeps it for the life
// of the process. A program that makes its own QApplication should do so before the first picture.
void ensureGuiApplication();

}  // namespace mhost
