# GoogleTest for a processor that the machine has no library of: built, as part of the build that asks for it, from the
# sources that libgtest-dev and libgmock-dev install. Like the installed package it brings Threads::Threads along.
include(CMakeFindDependencyMacro)
find_dependency(Threads)
if(NOT TARGET GTest::gtest)
    set(INSTALL_GTEST OFF)
    set(BUILD_SHARED_LIBS OFF)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    foreach(library gtest gtest_main gmock gmock_main)
        target_compile_options(${library} PRIVATE -w) # its warnings are none of ours
    endforeach()
endif()
