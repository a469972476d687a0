# nlohmann-json from Debian's nlohmann-json3-dev: scene files and session files.
find_package(nlohmann_json 3 REQUIRED)
