# Compiles for Windows on Debian: g++-mingw-w64-x86-64-posix compiles, wine64 runs what was made.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix) # for GoogleTest's own project
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Libraries of headers alone serve every system, but /usr/include itself would hide the compiler's own C headers. So
# links to them stand in a folder laid out like an installation, and only that folder is searched.
set(ZOVA_HEADER_LIBRARIES "${CMAKE_BINARY_DIR}/header-libraries")
file(MAKE_DIRECTORY "${ZOVA_HEADER_LIBRARIES}/include")
foreach(library boost CLI)
  if(EXISTS "/usr/include/${library}")
    file(CREATE_LINK "/usr/include/${library}" "${ZOVA_HEADER_LIBRARIES}/include/${library}" SYMBOLIC)
  endif()
endforeach()
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 "${ZOVA_HEADER_LIBRARIES}")
if(ZOVA_WINDOWS_LIBRARIES) # where tools/build-windows-libraries has put Qt
  list(APPEND CMAKE_FIND_ROOT_PATH "${ZOVA_WINDOWS_LIBRARIES}")
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(Boost_NO_BOOST_CMAKE ON) # its package file names /usr/include

# Qt's code generators run here: they are Debian's own.
file(GLOB hostQt /usr/lib/*/cmake/Qt6HostInfo)
if(hostQt)
  list(GET hostQt 0 hostQt)
  get_filename_component(QT_HOST_PATH_CMAKE_DIR "${hostQt}" DIRECTORY)
  set(QT_HOST_PATH /usr)
endif()

# One file that runs wherever it is copied to.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/../tools/wine")
