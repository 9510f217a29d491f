# 32-bit ARM with hardware floating point, which is what most receivers' hosts are: `char` is unsigned there and a
# pointer has 32 bits. Programs run here in an emulator.
# Debian: g++-arm-linux-gnueabihf qemu-user, and for the tests libgtest-dev libgmock-dev.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc) # GoogleTest asks for one
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)

set(KEST_TARGET_ROOT /usr/arm-linux-gnueabihf)
set(CMAKE_FIND_ROOT_PATH ${KEST_TARGET_ROOT})
add_compile_options(-Wno-psabi) # a note about compilers before 7, of which nothing here is linked

set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L ${KEST_TARGET_ROOT})

# No GoogleTest is installed for this processor; it is built from its sources.
set(GTest_DIR ${CMAKE_CURRENT_LIST_DIR}/googletest)
