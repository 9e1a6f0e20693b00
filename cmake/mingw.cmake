# Builds for Windows with mingw-w64. VELLUMARK_WINDOWS_ARCH is x86_64 or i686; VELLUMARK_WINDOWS_DEPS the folder into
# which .ci/windows-deps has put the libraries for it.

set(CMAKE_SYSTEM_NAME Windows)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES VELLUMARK_WINDOWS_ARCH VELLUMARK_WINDOWS_DEPS)
set(VELLUMARK_WINDOWS_ARCH x86_64 CACHE STRING "Processor: x86_64 or i686")
set(CMAKE_SYSTEM_PROCESSOR ${VELLUMARK_WINDOWS_ARCH})

set(triple ${VELLUMARK_WINDOWS_ARCH}-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${triple} ${VELLUMARK_WINDOWS_DEPS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 7 is the oldest system that PowerPoint 14.0 and our C runtime share.
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0601 -DUNICODE -D_UNICODE")
set(CMAKE_C_FLAGS_INIT "-D_WIN32_WINNT=0x0601")
if(VELLUMARK_WINDOWS_ARCH STREQUAL i686)
  # Every Windows of today has SSE2. With it both processors compute with the same doubles, bit by bit; the older unit
  # carries more digits along.
  string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse")
  string(APPEND CMAKE_C_FLAGS_INIT " -msse2 -mfpmath=sse")
endif()
# Nothing but the system's own libraries is loaded; the address space is randomized and data can't be run.
set(link "-static -static-libgcc -static-libstdc++ -Wl,--dynamicbase -Wl,--nxcompat")
if(VELLUMARK_WINDOWS_ARCH STREQUAL x86_64)
  string(APPEND link " -Wl,--high-entropy-va")
endif()
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link}")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "${link}")

# 64-bit programs can be run here.
find_program(VELLUMARK_WINE wine64 PATHS /usr/lib/wine)
if(VELLUMARK_WINE AND VELLUMARK_WINDOWS_ARCH STREQUAL x86_64)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${VELLUMARK_WINE})
endif()
