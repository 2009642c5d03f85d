# GTest::gtest_main, from the installed package where it fits the build, and else from the sources that Debian installs:
# the package holds libraries for the host's native width only.

find_package(GTest CONFIG QUIET)
if(NOT TARGET GTest::gtest_main)
    set(YM_SDP_GOOGLETEST /usr/src/googletest CACHE PATH "Where the sources of GoogleTest are")
    if(NOT EXISTS ${YM_SDP_GOOGLETEST}/CMakeLists.txt)
        message(FATAL_ERROR "The tests need GoogleTest (Debian: googletest, libgtest-dev); -DBUILD_TESTING=OFF leaves "
            "them out.")
    endif()
    set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
    set(BUILD_GMOCK OFF CACHE BOOL "" FORCE)
    add_subdirectory(${YM_SDP_GOOGLETEST} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
endif()
