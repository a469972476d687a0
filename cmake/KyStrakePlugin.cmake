# The kyStrake plug-in. Its sources (plugin/ tool/ patch/ geometry/ nodes/ viewport/) are compiled
# once as an object library; the module kyStrake_2019 that the host loads with dlopen (as Maya loads
# kyStrake_2019.mll) is linked from it, and so are the plug-in tests, which call its free functions
# directly. The sources include only maya/*.h, Qt headers and each other (paths from the tree's root).
file(GLOB_RECURSE KY_PLUGIN_SOURCES CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/plugin/*.cpp ${PROJECT_SOURCE_DIR}/tool/*.cpp ${PROJECT_SOURCE_DIR}/patch/*.cpp
    ${PROJECT_SOURCE_DIR}/geometry/*.cpp ${PROJECT_SOURCE_DIR}/nodes/*.cpp ${PROJECT_SOURCE_DIR}/viewport/*.cpp)

if(KY_PLUGIN_SOURCES)
    add_library(kyStrakeObjects OBJECT ${KY_PLUGIN_SOURCES})
    target_include_directories(kyStrakeObjects PUBLIC ${PROJECT_SOURCE_DIR})
    target_compile_definitions(kyStrakeObjects PUBLIC LINUX _BOOL REQUIRE_IOSTREAM)
    target_link_libraries(kyStrakeObjects PUBLIC OpenMayaHost Qt5::Widgets)
    set_target_properties(kyStrakeObjects PROPERTIES CXX_VISIBILITY_PRESET hidden)

    add_library(kyStrake_2019 MODULE $<TARGET_OBJECTS:kyStrakeObjects>)
    target_link_libraries(kyStrake_2019 PRIVATE OpenMayaHost Qt5::Widgets)
    set_target_properties(kyStrake_2019 PROPERTIES PREFIX "")
endif()
