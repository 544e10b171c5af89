# Precompiled headers shared by all targets: for plain code, for code that waits on the
# network, and for the latter beside Qt, which wants position-independent code.
# The libraries' own definitions hold for every target: a precompiled header made without
# them could not be used by a target that links those libraries.
add_compile_definitions(
    BOOST_CONTAINER_DYN_LINK BOOST_CONTAINER_NO_LIB BOOST_JSON_DYN_LINK BOOST_JSON_NO_LIB
    BOOST_URL_DYN_LINK BOOST_URL_NO_LIB FMT_SHARED)

function(brell_precompiled_header name)
  file(CONFIGURE OUTPUT "${CMAKE_BINARY_DIR}/pch/${name}.cpp" CONTENT "\n" @ONLY)
  add_library(${name} STATIC "${CMAKE_BINARY_DIR}/pch/${name}.cpp")
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

set(BRELL_PLAIN_HEADERS
    <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <span> <string>
    <string_view> <unordered_map> <utility> <variant> <vector> <boost/json.hpp> <fmt/format.h>)
brell_precompiled_header(pch_plain ${BRELL_PLAIN_HEADERS})
set(BRELL_ASYNC_HEADERS ${BRELL_PLAIN_HEADERS}
    <boost/asio/awaitable.hpp> <boost/asio/co_spawn.hpp> <boost/asio/io_context.hpp>
    <boost/asio/steady_timer.hpp> <boost/asio/thread_pool.hpp> <boost/asio/use_awaitable.hpp>)
brell_precompiled_header(pch_async ${BRELL_ASYNC_HEADERS})
brell_precompiled_header(pch_qt ${BRELL_ASYNC_HEADERS}
    <QAbstractListModel> <QCoreApplication> <QDateTime> <QLocale> <QObject> <QPointer> <QString>
    <QStringList> <QTimer> <QVariantMap>)
target_link_libraries(pch_qt PRIVATE Qt6::Core)

# Batches share the cost of headers. The names in the unnamed namespaces of a batch must differ;
# where they need not, a target stays out with the property UNITY_BUILD, a file with
# SKIP_UNITY_BUILD_INCLUSION.
set(CMAKE_UNITY_BUILD ${BRELL_UNITY})
set(CMAKE_UNITY_BUILD_BATCH_SIZE 10)
if(BRELL_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # It takes every file of a batch for a header.
  add_compile_options(-Wno-subobject-linkage)
endif()

# Every source file of the current folder and the folders below it, for the targets that name none.
function(brell_folder_sources result)
  file(GLOB_RECURSE found RELATIVE "${CMAKE_CURRENT_SOURCE_DIR}" CONFIGURE_DEPENDS *.cpp *.h)
  set(${result} ${found} PARENT_SCOPE)
endfunction()

# brell_library(kit_text [SOURCES ...] [USES ...] [PRIVATELY_USES ...] [ASYNC | QT])
# A static library whose include root is the repository root. Without SOURCES it holds all of its
# folder.
function(brell_library name)
  cmake_parse_arguments(L "ASYNC;QT" "" "SOURCES;USES;PRIVATELY_USES" ${ARGN})
  if(NOT L_SOURCES)
    brell_folder_sources(L_SOURCES)
  endif()
  add_library(${name} STATIC ${L_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${L_USES} PRIVATE ${L_PRIVATELY_USES} Boost::headers)
  if(L_QT)
    brell_use_qt(${name})
  else()
    brell_use_pch(${name} "${L_ASYNC}")
  endif()
endfunction()

# brell_program(brell [SOURCES ...] [USES ...] [ASYNC | QT])
# Without SOURCES the program is made of its folder, without the folders below it.
function(brell_program name)
  cmake_parse_arguments(P "ASYNC;QT" "" "SOURCES;USES" ${ARGN})
  if(NOT P_SOURCES)
    file(GLOB P_SOURCES CONFIGURE_DEPENDS *.cpp)
  endif()
  add_executable(${name} ${P_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ${P_USES} Boost::headers)
  if(P_QT)
    brell_use_qt(${name})
  else()
    brell_use_pch(${name} "${P_ASYNC}")
  endif()
endfunction()

function(brell_quiet_coroutines name)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 takes the frame allocator of Asio's coroutines for a mismatch.
    target_compile_options(${name} PRIVATE -Wno-mismatched-new-delete)
  endif()
endfunction()

function(brell_use_qt name)
  target_link_libraries(${name} PRIVATE Qt6::Core)
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  brell_quiet_coroutines(${name})
  target_precompile_headers(${name} REUSE_FROM pch_qt)
endfunction()

function(brell_use_pch name async)
  if(async)
    target_precompile_headers(${name} REUSE_FROM pch_async)
    brell_quiet_coroutines(${name})
  else()
    target_precompile_headers(${name} REUSE_FROM pch_plain)
  endif()
endfunction()

# brell_test(test_desk [FOLDERS ...] [SOURCES ...] [USES ...] [TIMEOUT seconds] [ASYNC | QT | WINDOW])
# A program with the tests of its folder, or of FOLDERS below it, or of SOURCES. WINDOW is for tests
# that draw, ask for a screen or use the clipboard: they have a QGuiApplication and need no screen.
# Fixture files are found through the BRELL_FIXTURES definition.
function(brell_test name)
  cmake_parse_arguments(T "ASYNC;QT;WINDOW" "TIMEOUT" "FOLDERS;SOURCES;USES" ${ARGN})
  if(NOT T_TIMEOUT)
    set(T_TIMEOUT 120)
  endif()
  foreach(folder ${T_FOLDERS})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    list(APPEND T_SOURCES ${found})
  endforeach()
  set(kind "")
  set(label unit)
  set(main GTest::gtest_main)
  if(T_WINDOW)
    set(kind QT)
    set(label window)
    set(main test_window_main Qt6::Gui)
  elseif(T_QT)
    set(kind QT)
  elseif(T_ASYNC)
    set(kind ASYNC)
  endif()
  brell_program(${name} ${kind} SOURCES ${T_SOURCES} USES ${T_USES} GTest::gtest ${main})
  target_compile_definitions(${name} PRIVATE
      BRELL_FIXTURES="${CMAKE_SOURCE_DIR}/tests/fixtures")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT ${T_TIMEOUT} LABELS ${label})
  if(T_WINDOW)
    brell_without_screen(${name})
  endif()
endfunction()

# Of these folders every source is compiled by itself, since their names collide.
function(brell_unbatched)
  foreach(folder ${ARGN})
    file(GLOB found "${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp")
    set_source_files_properties(${found} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  endforeach()
endfunction()

# brell_quick_test(test_controls SOURCES ... USES ...)
# Runs the tst_*.qml files beside it, without a display.
function(brell_quick_test name)
  cmake_parse_arguments(T "" "" "SOURCES;USES" ${ARGN})
  brell_program(${name} QT SOURCES ${T_SOURCES} USES ${T_USES} Qt6::QuickTest)
  target_compile_definitions(${name} PRIVATE
      QUICK_TEST_SOURCE_DIR="${CMAKE_CURRENT_SOURCE_DIR}")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 120)
  set_tests_properties(${name} PROPERTIES LABELS window)
  brell_without_screen(${name})
endfunction()

function(brell_without_screen name)
  set_tests_properties(${name} PROPERTIES
      ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_QUICK_BACKEND=software")
endfunction()
