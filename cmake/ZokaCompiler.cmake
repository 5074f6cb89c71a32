# Compiler flags common to all of our own code.
if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(ZOKA_CCACHE ccache)
if(ZOKA_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The same objects serve every checkout on the machine.
  set(CMAKE_CXX_COMPILER_LAUNCHER
      ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${ZOKA_CCACHE})
endif()

# Results must not depend on the machine's fused operations, nor on a folder's name.
add_compile_options(-ffp-contract=off -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=)
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1 -DZOKA_DEBUG=1 -D_GLIBCXX_ASSERTIONS")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")

set(ZOKA_SANITIZE "" CACHE STRING "Sanitizers, as for -fsanitize=")
if(ZOKA_SANITIZE)
  add_compile_options(-fsanitize=${ZOKA_SANITIZE} -fno-omit-frame-pointer
                      -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=${ZOKA_SANITIZE})
endif()

if(CMAKE_BUILD_TYPE STREQUAL Release AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  include(CheckIPOSupported)
  set(CMAKE_INTERPROCEDURAL_OPTIMIZATION ON)
  add_link_options(-flto=2)
endif()

set(ZOKA_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                  -Wcast-align -Wnull-dereference -Wdouble-promotion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  list(APPEND ZOKA_WARNINGS -Wno-null-dereference)
endif()
find_package(Threads REQUIRED)
