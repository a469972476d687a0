# The kystrake runner: replays gesture sessions on the headless host. Its parts (sessions, OBJ files,
# scene set-up, playback, the session fuzzer) form a library that the program and the runner tests share.
find_package(nlohmann_json 3 REQUIRED)
find_package(CLI11 REQUIRED)
find_package(tinyobjloader REQUIRED)

file(GLOB KY_RUNNER_SOURCES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/runner/*.cpp ${PROJECT_SOURCE_DIR}/runner/fuzz/*.cpp)
list(REMOVE_ITEM KY_RUNNER_SOURCES ${PROJECT_SOURCE_DIR}/runner/main.cpp)
add_library(kystrakeRunner STATIC ${KY_RUNNER_SOURCES})
target_include_directories(kystrakeRunner PUBLIC ${PROJECT_SOURCE_DIR} PRIVATE ${PROJECT_SOURCE_DIR}/host/src)
target_link_libraries(kystrakeRunner PUBLIC OpenMayaHost PRIVATE Qt5::Widgets nlohmann_json::nlohmann_json tinyobjloader::tinyobjloader)

if(EXISTS ${PROJECT_SOURCE_DIR}/runner/main.cpp)
    add_executable(kystrake ${PROJECT_SOURCE_DIR}/runner/main.cpp)
    target_link_libraries(kystrake PRIVATE kystrakeRunner CLI11::CLI11)
    if(TARGET kyStrake_2019)
        target_compile_definitions(kystrake PRIVATE KY_PLUGIN_MODULE_PATH="$<TARGET_FILE:kyStrake_2019>")
        add_dependencies(kystrake kyStrake_2019)
    endif()
    set_target_properties(kystrake PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/runner)
endif()
