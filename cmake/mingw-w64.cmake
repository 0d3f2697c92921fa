# Cross-compiling for 64-bit Windows with Debian's MinGW-w64 (the POSIX-thread
# flavour, which has std::thread). Programs are linked statically, so nothing has
# to be shipped beside the .exe. Tests run under Wine, in a prefix of the build
# folder, without a display.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++")
# GCC 12 warns of overlapping copies inside std::string concatenation that cannot
# happen (a known false positive of -Wrestrict there).
set(CMAKE_CXX_FLAGS_INIT "-Wno-restrict")
# mscoree and mshtml off: Wine does not ask to install .NET and Gecko.
set(CMAKE_CROSSCOMPILING_EMULATOR
    env WINEPREFIX=${CMAKE_BINARY_DIR}/wine WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=
        /usr/lib/wine/wine64)
