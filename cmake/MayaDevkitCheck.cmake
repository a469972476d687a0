# Syntax-only compile of every plug-in source against a real Maya 2019 devkit. This is a local check:
# the devkit is Autodesk's and never part of this tree.
file(GLOB_RECURSE KY_PLUGIN_SOURCES CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/plugin/*.cpp ${PROJECT_SOURCE_DIR}/tool/*.cpp ${PROJECT_SOURCE_DIR}/patch/*.cpp
    ${PROJECT_SOURCE_DIR}/geometry/*.cpp ${PROJECT_SOURCE_DIR}/nodes/*.cpp ${PROJECT_SOURCE_DIR}/viewport/*.cpp)
set(KY_DEVKIT_STAMPS)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/devkit_check)
foreach(src ${KY_PLUGIN_SOURCES})
    file(RELATIVE_PATH rel ${PROJECT_SOURCE_DIR} ${src})
    string(REPLACE "/" "_" stamp ${rel})
    set(stamp ${CMAKE_BINARY_DIR}/devkit_check/${stamp}.ok)
    add_custom_command(OUTPUT ${stamp}
        COMMAND ${CMAKE_CXX_COMPILER} -std=c++17 -fsyntax-only -DLINUX -D_BOOL -DREQUIRE_IOSTREAM
                -I${MAYA_DEVKIT}/include -I${MAYA_DEVKIT}/include/QtCore -I${MAYA_DEVKIT}/include/QtWidgets
                -I${MAYA_DEVKIT}/include/QtGui -I${PROJECT_SOURCE_DIR} ${src}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${src} COMMENT "devkit check ${rel}" VERBATIM)
    list(APPEND KY_DEVKIT_STAMPS ${stamp})
endforeach()
add_custom_target(devkit_check ALL DEPENDS ${KY_DEVKIT_STAMPS})
