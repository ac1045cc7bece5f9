# Cross-building static Windows x64 programs on Debian with MinGW-w64 (the POSIX thread model,
# whose libstdc++ has std::thread and friends), to be run natively or under Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(VORNA_MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${VORNA_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${VORNA_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${VORNA_MINGW_TRIPLET}-windres)

# Libraries and headers come from the cross sysroot only; programs (Ninja, Python) from the host.
set(CMAKE_FIND_ROOT_PATH /usr/${VORNA_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Static executables: no MinGW runtime DLLs to ship, or to find under Wine.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# Test programs of the build (ctest) run under Wine when it is there.
find_program(VORNA_WINE wine)
if(VORNA_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${VORNA_WINE})
endif()
