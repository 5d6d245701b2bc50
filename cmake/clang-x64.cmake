# clang as a second compiler for 64-bit Windows, with the headers and libraries of mingw-w64 and its g++.
# It reads the sources as MSVC does, and warns of what GNU has added to the language.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Debian keeps the g++ of each thread model in a folder of its own, which clang does not find by itself.
execute_process(COMMAND x86_64-w64-mingw32-g++-posix -print-libgcc-file-name
                OUTPUT_VARIABLE PANELORA_LIBGCC OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET PANELORA_LIBGCC PARENT_PATH PANELORA_GCC_DIR)
string(CONCAT CMAKE_CXX_FLAGS_INIT
  "-stdlib++-isystem ${PANELORA_GCC_DIR}/include/c++ "
  "-stdlib++-isystem ${PANELORA_GCC_DIR}/include/c++/x86_64-w64-mingw32 "
  "-fms-compatibility -fms-compatibility-version=19.29 -Wgnu "
  # What these headers need of GNU's compiler, which it is not any more with the former.
  "-fgnuc-version=4.2.1 -D__STRICT_ANSI__")
foreach(kind EXE SHARED)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-L${PANELORA_GCC_DIR} -pthread")  # its libstdc++ needs pthreads
endforeach()

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
