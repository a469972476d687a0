# kyStrake Studio: the tool live in a Qt window on the headless host. Its parts form a library that
# the program and the studio test share; it reuses the runner's scene set-up, sessions and player.
find_package(Qt5 COMPONENTS Test REQUIRED)
find_package(OpenGL REQUIRED)

file(GLOB KY_STUDIO_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/studio/*.cpp)
list(REMOVE_ITEM KY_STUDIO_SOURCES ${PROJECT_SOURCE_DIR}/studio/main.cpp)
add_library(kystrakeStudio STATIC ${KY_STUDIO_SOURCES} ${PROJECT_SOURCE_DIR}/studio/ViewportWidget.h
            ${PROJECT_SOURCE_DIR}/studio/StudioPanel.h ${PROJECT_SOURCE_DIR}/studio/StudioWindow.h)
set_target_properties(kystrakeStudio PROPERTIES AUTOMOC ON)
target_include_directories(kystrakeStudio PUBLIC ${PROJECT_SOURCE_DIR} PRIVATE ${PROJECT_SOURCE_DIR}/host/src)
target_link_libraries(kystrakeStudio PUBLIC kystrakeRunner Qt5::Widgets Qt5::Gui OpenGL::GL
                      PRIVATE nlohmann_json::nlohmann_json)

add_executable(kystrake-studio ${PROJECT_SOURCE_DIR}/studio/main.cpp)
target_link_libraries(kystrake-studio PRIVATE kystrakeStudio CLI11::CLI11)
if(TARGET kyStrake_2019)
    target_compile_definitions(kystrake-studio PRIVATE KY_PLUGIN_MODULE_PATH="$<TARGET_FILE:kyStrake_2019>")
    add_dependencies(kystrake-studio kyStrake_2019)
endif()
set_target_properties(kystrake-studio PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/runner)
