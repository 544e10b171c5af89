# One place for the language level, the warnings and the speed of the build.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow)
# The release presets leave this off: people build them with compilers that this code has not
# met, and GCC 12 itself warns falsely about std::string at -O3.
if(BRELL_WERROR)
  add_compile_options(-Werror)
endif()

if(BRELL_SANITIZE)
  add_compile_options(-fsanitize=${BRELL_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${BRELL_SANITIZE})
  if(BRELL_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 reports uninitialised reads inside its own <regex> and coroutine frames
    # once the sanitizers have rewritten them.
    add_compile_options(-Wno-maybe-uninitialized)
    if(BRELL_SANITIZE MATCHES "thread")
      add_compile_options(-Wno-tsan)
    endif()
  endif()
endif()

find_program(CCACHE ccache)
if(CCACHE)
  # The two sloppiness values let ccache serve files that use precompiled headers, the other two
  # let checkouts in different folders share what they have compiled.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
      ${CCACHE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
  endif()
endif()

find_program(MOLD mold)
if(MOLD)
  add_link_options(-fuse-ld=mold)
endif()
