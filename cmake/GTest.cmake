# GoogleTest from Debian's googletest/libgtest-dev packages.
find_package(GTest REQUIRED)
include(GoogleTest)
