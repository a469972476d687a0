# Qt 5 from Debian's qtbase5-dev: the panel's controls found by name, and viewport pictures drawn with
# QImage and QPainter.
find_package(Qt5 COMPONENTS Core Gui Widgets REQUIRED)
